// What the primitives of the drawing become in the pixels of a picture.
#include "view/qt/painter_canvas.h"

#include <gtest/gtest.h>

#include <functional>

namespace vesmora {
namespace {

constexpr Rgb kRed = {255, 0, 0};
constexpr QRgb kGround = qRgb(172, 190, 172);

using Draw = std::function<void(PainterCanvas&)>;

QImage Painted(const Draw& draw, double ratio = 1, const QFont& font = {}) {
  QImage picture(QSize(80, 80) * ratio, QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  PainterCanvas canvas(font, QColor(kGround));
  for (int round = 0; round < 2; ++round) {  // the second with all that was kept
    canvas.Begin(picture);
    canvas.Clear();
    draw(canvas);
    canvas.End();
  }
  return picture;
}

/// Around all that is not ground, in pixels of the picture.
QRect Drawn(const QImage& picture) {
  QRect drawn;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixel(x, y) != kGround) drawn |= QRect(x, y, 1, 1);
    }
  }
  return drawn;
}

TEST(PainterCanvasTest, LabelsStandWhereTheyAreMeasuredInTheFontOfTheCanvas) {
  for (const int height : {12, 60}) {
    QFont font;
    font.setPixelSize(height);
    for (const int ratio : {1, 2}) {
      TextSize size;
      const auto label = [&](ScreenPoint place) {
        return Painted(
            [&](PainterCanvas& canvas) {
              size = canvas.MeasureText("7");
              canvas.DrawText(kRed, place, "7");
            },
            ratio, font);
      };
      const QRect drawn = Drawn(label({6, 4}));
      const QRectF box(QPointF(6, 4) * ratio, QSizeF(size.width, size.height) * ratio);
      EXPECT_TRUE(box.contains(drawn)) << height;
      EXPECT_GT(drawn.height(), height * ratio / 2);
      EXPECT_EQ(Drawn(label({9, 5})), drawn.translated(3 * ratio, ratio));
      EXPECT_FALSE(Drawn(label({3 - size.width / 2, 5})).isEmpty()) << "a part is drawn, too";
    }
  }
}

}  // namespace
}  // namespace vesmora
