// What is computed of numbers, most of them drawn at random, against a record: places of window and
// panels, posters, what is read of bitmaps, what of a line is seen, strokes of every kind.
// VESMORA_RECORD=1 in the environment records anew.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "app/window_placement.h"
#include "document/checksum.h"
#include "map_tool/poster.h"
#include "support/record.h"
#include "support/sheet.h"
#include "view/clip.h"
#include "view/layout.h"
#include "view/texture.h"

namespace vesmora {
namespace {

constexpr int kWidth = 120;  // of what is drawn on
constexpr int kHeight = 90;

class RecordedValuesTest : public testing::Test {
 protected:
  template <typename Number>
  Number OneOf(std::initializer_list<Number> numbers) {
    return numbers.begin()[random_() % numbers.size()];
  }
  int Step(int low, int count, int step) {
    return low + step * static_cast<int>(random_() % static_cast<unsigned>(count));
  }
  /// About the picture, at its edges, and far away.
  float Coordinate() {
    if (random_() % 6 != 0) return static_cast<float>(Step(-60, 340, 1)) / 2;
    return OneOf({0.F, -0.5F, 1.F, 89.F, 90.F, 90.5F, 119.F, 120.F, 121.F, -40.F, 5e3F, -3e4F, 1e9F,
                  -1e38F, 3e38F, INFINITY, NAN});
  }
  ScreenPoint Point() {
    const float x = Coordinate();
    return {x, Coordinate()};
  }
  template <typename... Values>
  void Put(const Values&... values) {
    ((text_ << values << ' '), ...);
  }
  void Put(const ScreenRect& rect) { Put(rect.left, rect.top, rect.width, rect.height); }
  void Put(const PanelRect& rect) { Put(rect.left, rect.top, rect.width, rect.height); }

  std::mt19937 random_{1};
  std::ostringstream text_;
};

TEST_F(RecordedValuesTest, PlacesOfWindowAndPanels) {
  for (int i = 0; i < 150; ++i) {
    std::vector<ScreenRect> screens(static_cast<std::size_t>(Step(i == 0 ? 0 : 1, 2, 1)));
    for (int left = Step(-1280, 3, 640); ScreenRect & screen : screens) {
      screen = {left, Step(-100, 3, 100), Step(640, 3, 640), Step(480, 3, 300)};
      left += screen.width;
      Put(screen);
    }
    const ScreenRect window = {Step(-1400, 60, 60), Step(-40, 60, 12), Step(120, 20, 120),
                               Step(96, 12, 96)};
    Put(window);
    Put("\n  ->");
    Put(FitToScreens(window, screens));
    const PanelSizes sizes = {Step(100, 9, 50), Step(20, 5, 10), Step(20, 5, 10), Step(500, 9, 60)};
    const auto [width, height] =
        MinimumWindowSize(sizes, {Step(0, 3, 5), Step(20, 3, 5)}, {window.width, window.height});
    const WindowLayout layout = ComputeLayout(sizes, window.width, window.height);
    const DrawingArea area = ComputeDrawingArea(sizes, window.width, window.height);
    Put("\n ", width, height, StripRoom(sizes, window.width), layout.palaCovered,
        layout.pylaCovered, area.width, area.height, area.rightPanelWidth, area.bottomPanelHeight,
        area.topPanelHeight, "\n ");
    for (const PanelRect& rect :
         {layout.ppalkki, layout.pala, layout.pyla, layout.fmaski0, layout.fmaski1}) {
      Put(rect);
    }
    text_ << '\n';
  }
  CompareWithRecord("recorded_places.txt", text_.str());
}

TEST_F(RecordedValuesTest, Posters) {
  for (const std::size_t count : {1U, 2U, 3U, 7U, 50U, 500U, 3000U, 20000U, 100000U, 100001U}) {
    for (const int side : {0, 1, 64, 300, 4000}) {
      map_tool::PictureOptions options;
      options.width = side;
      options.height = side / 2 + 1;
      options.isSizeTold = side > 0;
      const map_tool::PosterLayout layout = map_tool::LayOutPoster(count, options);
      Put(count, side, "->", layout.columns, layout.rows, layout.tileWidth, layout.tileHeight);
      Put(layout.Width(), layout.Height(), layout.problem, "\n");
    }
  }
  CompareWithRecord("recorded_posters.txt", text_.str());
}

TEST_F(RecordedValuesTest, Bitmaps) {
  for (int i = 0; i < 400; ++i) {
    const std::int32_t width = OneOf({1, 1, 2, 3, 5, 0, -1, 4096, 4097});
    const std::int32_t height = OneOf({1, 2, -3, 4096, -4096, 4097, -4097, INT32_MIN});
    const int bits = OneOf({8, 24, 32, 16});
    const int pixels = OneOf({54, 60, 300});
    const std::int32_t compression = OneOf({0, 0, 0, 1});
    const std::int64_t mostRows = width > 5 ? 2 : 4097;
    const std::int64_t rows = std::min(std::abs(std::int64_t{height}), mostRows);
    const auto needed =
        static_cast<std::size_t>(pixels + (std::abs(width) * bits / 8 + 3) / 4 * 4 * rows);
    Bytes file(needed - OneOf({0U, 0U, 1U}));
    for (std::byte& byte : file) byte = static_cast<std::byte>(random_());
    for (const auto& [at, value] : {std::pair{10, pixels},
                                    {14, OneOf({40, 40, 40, 39, 41})},
                                    {18, width},
                                    {22, height},
                                    {28, bits},
                                    {30, compression},
                                    {0, 0x4D42}}) {
      std::memcpy(&file[static_cast<std::size_t>(at)], &value, at == 0 ? 2 : 4);
    }
    const auto texture = ReadBitmap(file);
    Put(width, height, bits, pixels, compression, file.size(), "->");
    if (texture) {
      Put(texture->width, texture->height, Checksum(std::as_bytes(std::span(texture->pixels))));
    }
    Put("\n");
  }
  CompareWithRecord("recorded_bitmaps.txt", text_.str());
}

TEST_F(RecordedValuesTest, WhatIsSeenOfLinesAndCircles) {
  for (int i = 0; i < 600; ++i) {
    const ScreenPoint from = Point();
    const ScreenPoint to = Point();
    Put(from.x, from.y, to.x, to.y, CircleTouches(from, Step(-1, 99, 7), kWidth, kHeight), "->");
    const auto line = ClipLine(from, to, kWidth, kHeight);
    if (line) Put(line->x1, line->y1, line->x2, line->y2);
    text_ << '\n';
  }
  CompareWithRecord("recorded_lines.txt", text_.str());
}

TEST_F(RecordedValuesTest, Strokes) {
  for (int i = 0; i < 600; ++i) {
    const float ratio = OneOf({1.F, 1.25F, 2.F, 2.5F});
    Sheet sheet(kWidth, kHeight, ratio);
    const Pen pen = {
        OneOf({Rgb{1, 2, 3}, Rgb{9, 9, 9}}),
        OneOf({PenStyle::kSolid, PenStyle::kDash, PenStyle::kDot, PenStyle::kDashDot})};
    const ScreenPoint from = Point();
    if (i % 3 == 0) {
      sheet.DrawLine(pen, from, Point());
    } else if (i % 3 == 1) {
      const float side = OneOf({1.F, 24.F, 24.5F, 25.F, 60.F});
      sheet.DrawRectangle(pen, from, {from.x + side, from.y - OneOf({3.F, 24.F, 25.F})});
    } else {
      const auto radius = static_cast<std::int16_t>(
          OneOf({-1, 0, 1, 2, 3, 4, 5, 10, 31, 60, 511, 512, 1023, 1024, 1025, 32767}));
      const float away = static_cast<float>(radius) * OneOf({0.F, 1.F, 0.7071F});
      sheet.DrawCircle(pen, {60 - away, 45 + OneOf({0.F, away})}, radius);
    }
    Put(i % 3, ratio, static_cast<int>(pen.style), "=", sheet.Sum());
    text_ << '\n';
  }
  CompareWithRecord("recorded_strokes.txt", text_.str());
}

}  // namespace
}  // namespace vesmora
