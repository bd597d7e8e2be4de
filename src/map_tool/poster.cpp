#include "map_tool/poster.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "map_tool/picture.h"
#include "map_tool/png_file.h"
#include "platform/text.h"
#include "platform/utf8.h"
#include "view/bitmap_font.h"
#include "view/pixel_canvas.h"
#include "view/svg_canvas.h"

namespace vesmora::map_tool {
namespace {

constexpr int kGap = 8;  // pixels around each tile
constexpr int kLabelHeight = 12;
constexpr int kUsualWidth = 320;
constexpr int kUsualHeight = 200;
constexpr int kSmallestWidth = 80;
constexpr Rgb kPaper = {255, 255, 255};
constexpr Rgb kInk = {0, 0, 0};

int StepX(const PosterLayout& layout) { return layout.tileWidth + kGap; }
int StepY(const PosterLayout& layout) { return layout.tileHeight + kLabelHeight + kGap; }

std::int64_t PixelsOf(const PosterLayout& layout) {
  return std::int64_t{layout.Width()} * layout.Height();
}

/// About as wide as high.
void Arrange(PosterLayout& layout, std::size_t count) {
  const double perRow = std::sqrt(static_cast<double>(count) * StepY(layout) / StepX(layout));
  layout.columns = std::clamp(static_cast<int>(std::ceil(perRow)), 1, static_cast<int>(count));
  layout.rows = (static_cast<int>(count) + layout.columns - 1) / layout.columns;
}

/// The name without folder and ending, as far as it fits.
std::string LabelOf(const std::string& name, int width) {
  std::string label(FileNamePart(name));
  if (EndsIgnoringCase(label, ".pmp")) label.resize(label.size() - 4);
  std::string_view rest = label;
  for (int i = 0; i < width / kBitmapAdvance && !rest.empty(); ++i) TakeUtf8Character(rest);
  label.resize(label.size() - rest.size());
  return label;
}

std::string Number(int value) { return "\"" + std::to_string(value) + "\""; }

}  // namespace

int PosterLayout::Width() const { return columns * StepX(*this) + kGap; }
int PosterLayout::Height() const { return rows * StepY(*this) + kGap; }

PosterLayout LayOutPoster(std::size_t count, const PictureOptions& options) {
  PosterLayout layout{.tileWidth = options.isSizeTold ? options.width : kUsualWidth,
                      .tileHeight = options.isSizeTold ? options.height : kUsualHeight,
                      .problem = {}};
  constexpr std::size_t kMostMaps = 100'000;
  if (count <= kMostMaps) {
    Arrange(layout, count);
    while (!options.isSizeTold && PixelsOf(layout) > kMostPixels &&
           layout.tileWidth > kSmallestWidth) {
      layout.tileWidth = layout.tileWidth * 3 / 4;
      layout.tileHeight = layout.tileHeight * 3 / 4;
      Arrange(layout, count);
    }
  }
  if (count > kMostMaps || PixelsOf(layout) > kMostPixels) {
    layout.problem = std::to_string(count) + " maps of this size are too many for one picture";
  }
  return layout;
}

Outcome DrawTile(const Task& task, const PosterLayout& layout, bool isSvg, Workbench& bench) {
  Outcome outcome = StartPicture(task, bench);
  if (outcome.status == kTrouble) return outcome;
  const PictureOptions& options = task.arguments.picture;
  const auto& [width, height] = std::pair(layout.tileWidth, layout.tileHeight);
  if (isSvg) {
    outcome.bytes = BytesOf(MapElements(bench, options, task.texture, width, height));
  } else {
    PaintMap(bench, options, task.texture, width, height);
    outcome.bytes = BytesOf(bench.pixels);
  }
  return outcome;
}

Poster::Poster(const PosterLayout& layout, bool isSvg) : layout_(layout), isSvg_(isSvg) {
  if (isSvg) {
    elements_ = "<rect width=" + Number(layout.Width()) + " height=" + Number(layout.Height()) +
                " fill=\"" + SvgColor(kPaper) + "\"/>\n";
  } else {
    pixels_.assign(static_cast<std::size_t>(PixelsOf(layout)), PixelOf(kPaper));
  }
}

void Poster::Put(std::size_t index, const std::string& name, const std::vector<std::byte>& tile) {
  const auto columns = static_cast<std::size_t>(layout_.columns);
  const int left = kGap + static_cast<int>(index % columns) * StepX(layout_);
  const int top = kGap + static_cast<int>(index / columns) * StepY(layout_);
  if (isSvg_) {
    PutElements(left, top, name, tile);
  } else {
    PutPixels(left, top, name, tile);
  }
}

void Poster::PutPixels(int left, int top, const std::string& name,
                       const std::vector<std::byte>& tile) {
  const Picture picture{.first = pixels_.data(),
                        .stride = layout_.Width(),
                        .width = layout_.Width(),
                        .height = layout_.Height()};
  const std::size_t rowBytes = static_cast<std::size_t>(layout_.tileWidth) * sizeof(std::uint32_t);
  for (int y = 0; y < layout_.tileHeight && !tile.empty(); ++y) {
    std::memcpy(picture.first + (top + y) * picture.stride + left,
                tile.data() + static_cast<std::size_t>(y) * rowBytes, rowBytes);
  }
  DrawBitmapText(picture, left, top + layout_.tileHeight + 3, LabelOf(name, layout_.tileWidth),
                 PixelOf(kInk));
}

void Poster::PutElements(int left, int top, const std::string& name,
                         const std::vector<std::byte>& tile) {
  const std::string place = " x=" + Number(left) + " y=" + Number(top);
  elements_ += "<svg" + place + " width=" + Number(layout_.tileWidth) +
               " height=" + Number(layout_.tileHeight) + ">\n";
  elements_.append(reinterpret_cast<const char*>(tile.data()), tile.size());
  elements_ += "</svg>\n<text x=" + Number(left) +
               " y=" + Number(top + layout_.tileHeight + kLabelHeight - 2) +
               " font-family=\"sans-serif\" font-size=\"11\">" +
               SvgText(LabelOf(name, layout_.tileWidth)) + "</text>\n";
}

std::vector<std::byte> Poster::TakeFile() {
  if (!isSvg_) {
    return EncodePng({.first = pixels_.data(),
                      .stride = layout_.Width(),
                      .width = layout_.Width(),
                      .height = layout_.Height()});
  }
  return BytesOf(SvgFile(layout_.Width(), layout_.Height(), elements_));
}

}  // namespace vesmora::map_tool
