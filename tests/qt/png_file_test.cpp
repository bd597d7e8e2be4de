// Another reader of pictures finds in the PNG files what was put there.
#include "map_tool/png_file.h"

#include <gtest/gtest.h>

#include <QImage>

namespace vesmora {
namespace {

TEST(PngFileTest, HoldsThePixels) {
  QImage picture(37, 11, QImage::Format_RGB32);
  unsigned color = 0;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) picture.setPixel(x, y, color += 40503);
  }
  const auto png =
      map_tool::EncodePng({reinterpret_cast<std::uint32_t*>(picture.bits()),
                           picture.bytesPerLine() / 4, picture.width(), picture.height()});
  const auto read = QImage::fromData(reinterpret_cast<const uchar*>(png.data()),
                                     static_cast<int>(png.size()), "PNG");
  EXPECT_TRUE(read == picture);
}

}  // namespace
}  // namespace vesmora
