// What the primitives of the drawing become in the pixels of a picture.
#include "view/qt/painter_canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <set>
#include <string>
#include <vector>

namespace vesmora {
namespace {

using Draw = std::function<void(PainterCanvas&)>;
using Rows = std::vector<std::string>;

constexpr Rgb kRed = {255, 0, 0};
constexpr Rgb kBlue = {1, 2, 254};
constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr QRgb kGuard = 0xFF00FF00;

char LetterOf(QRgb pixel) {
  if (pixel == qRgb(172, 190, 172)) return '.';
  if (pixel == qRgb(255, 0, 0)) return 'r';
  if (pixel == qRgb(1, 2, 254)) return 'b';
  return pixel == qRgb(0, 0, 0) ? 'k' : '?';
}

/// A letter for each pixel of a picture of `width` x `height` window pixels. It lies in a larger
/// one, of which nothing may change.
Rows Painted(double ratio, int width, int height, const Draw& draw) {
  constexpr int kRim = 3;
  const QSize size = QSize(width, height) * ratio;
  QImage around(size + QSize(2 * kRim, 2 * kRim), QImage::Format_RGB32);
  around.fill(kGuard);
  QImage picture(around.scanLine(kRim) + 4 * kRim, size.width(), size.height(),
                 around.bytesPerLine(), QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  PainterCanvas canvas(QFont(), QColor(172, 190, 172));
  for (int round = 0; round < 2; ++round) {  // the second with all that was kept
    canvas.Begin(picture);
    canvas.Clear();
    draw(canvas);
    canvas.End();
  }
  Rows rows(static_cast<std::size_t>(size.height()));
  for (int y = 0; y < around.height(); ++y) {
    for (int x = 0; x < around.width(); ++x) {
      const QRgb pixel = around.pixel(x, y);
      if (QRect(QPoint(kRim, kRim), size).contains(x, y)) {
        rows[static_cast<std::size_t>(y - kRim)] += LetterOf(pixel);
      } else {
        EXPECT_EQ(pixel, kGuard) << x << "," << y;
      }
    }
  }
  return rows;
}

Rows Line(ScreenPoint from, ScreenPoint to, PenStyle style, int width, int height, double ratio) {
  return Painted(ratio, width, height, [&](PainterCanvas& canvas) {
    canvas.DrawLine({kRed, style}, from, to);
  });
}

std::string Repeated(const std::string& row, int times) {
  std::string wide;
  for (const char letter : row) wide.append(static_cast<std::size_t>(times), letter);
  return wide;
}

TEST(PainterCanvasTest, LinesHaveBothEndsTheirDashesAndOneWindowPixel) {
  using Row = std::pair<PenStyle, std::string>;
  for (const auto& [style, dashes] :
       {Row(PenStyle::kSolid, ".rrrrrrrrrrrr.."), Row(PenStyle::kDash, ".rrrr..rrrr..r."),
        Row(PenStyle::kDot, ".r..r..r..r..r."), Row(PenStyle::kDashDot, ".rrrr..r..rrrr.")}) {
    const float end = dashes[13] == 'r' ? 13 : 12;
    const Rows once = Line({1, 0.5f}, {end, 0.5f}, style, 15, 3, 1);
    EXPECT_EQ(once, (Rows{"...............", dashes, "..............."}));
    const Rows upright = Line({1.5f, end}, {1.5f, 1}, style, 3, 15, 1);
    const auto lowest = static_cast<std::size_t>(end);  // where it starts
    for (std::size_t y = 0; y < 15; ++y) {
      const bool isOn = y >= 1 && y <= lowest;
      EXPECT_EQ(upright[y], isOn ? std::string("..") + dashes[lowest + 1 - y] : "...") << y;
    }
    const std::string blank(30, '.');
    EXPECT_EQ(Line({1, 1}, {end, 1}, style, 15, 3, 2),
              (Rows{blank, blank, Repeated(dashes, 2), Repeated(dashes, 2), blank, blank}));
    EXPECT_EQ(Line({end, 1}, {1, 1}, style, 15, 3, 2)[3].substr(2, 2), "rr") << "whole at its end";
  }
  EXPECT_EQ(Line({1, 1}, {3, 1}, PenStyle::kSolid, 6, 3, 1.5),
            (Rows{".........", ".........", "..rrrrr..", "..rrrrr..", "........."}));
  EXPECT_EQ(Line({1, 1}, {1, 1}, PenStyle::kDot, 3, 2, 2),
            (Rows{"......", "......", "..rr..", "..rr.."}));
  const Rows sloping = {"rr......", "..rr....", "....rr..", "......rr"};
  for (const auto& [from, to] :
       {std::pair<ScreenPoint, ScreenPoint>({0, 0}, {7, 3}), {{7, 3}, {0, 0}}}) {
    EXPECT_EQ(Line(from, to, PenStyle::kSolid, 8, 4, 1), sloping);
  }
  EXPECT_EQ(Line({6, 0}, {0, 1}, PenStyle::kSolid, 7, 2, 1),
            Line({0, 1}, {6, 0}, PenStyle::kSolid, 7, 2, 1));
}

TEST(PainterCanvasTest, LinesThatCrossTheEdgesAreWholeInside) {
  EXPECT_EQ(Line({-2, 0}, {9, 0}, PenStyle::kDot, 8, 1, 1), Rows{".r..r..r"});
  EXPECT_EQ(Line({-2, 0}, {9, 0}, PenStyle::kDash, 8, 1, 1), Rows{"rr..rrrr"});
  for (const double ratio : {1.0, 1.5, 2.0}) {
    for (const float reach : {10.0f, 1e4f, 1e12f}) {
      const Rows falling = Line({-reach, -reach}, {reach, reach}, PenStyle::kSolid, 8, 8, ratio);
      const Rows rising =
          Line({-reach, 7 + reach}, {7 + reach, -reach}, PenStyle::kSolid, 8, 8, ratio);
      for (std::size_t i = 0; i < falling.size(); ++i) {
        EXPECT_EQ(falling[i][i], 'r') << reach << " " << i;
        EXPECT_TRUE(rising[i].find('r') != std::string::npos || reach > 1e6f) << i;
      }
      const Rows level = Line({reach, 7}, {-reach, 7}, PenStyle::kSolid, 8, 8, ratio);
      EXPECT_EQ(level.back(), std::string(level.size(), 'r'));
      EXPECT_EQ(Line({0, reach}, {0, -reach}, PenStyle::kSolid, 8, 8, ratio)[0].substr(0, 2),
                ratio == 1 ? "r." : "rr");
    }
    const Rows nothing = Line({-9, -9}, {-9, 30}, PenStyle::kDash, 8, 8, ratio);
    EXPECT_EQ(nothing, Painted(ratio, 8, 8, [](PainterCanvas& canvas) {
                for (const ScreenPoint far : {ScreenPoint{kNan, 1}, {-1e30f, HUGE_VALF}}) {
                  canvas.DrawLine({kRed}, far, {4, 4});
                  canvas.DrawCircle({kRed}, far, 3);
                  canvas.DrawText(kRed, far, "1");
                }
                canvas.DrawText(kRed, {8, 1}, "1");
                canvas.DrawCircle({kRed}, {4, 4}, 1500);  // all round the picture
              }));
  }
}

TEST(PainterCanvasTest, EqualStepsAreEqualAtEveryScale) {
  for (const double ratio : {1.0, 1.25, 1.5, 2.0}) {
    for (const float start : {-0.5f, 0.25f, 0.5f, 1.5f}) {
      const Rows rows = Painted(ratio, 200, 2, [&](PainterCanvas& canvas) {
        for (int i = 0; i < 8; ++i) {
          const float x = start + 25 * static_cast<float>(i);
          canvas.DrawLine({kRed}, {x, -3}, {x, 9});
        }
      });
      std::set<std::size_t> steps;
      std::set<std::size_t> widths;
      const std::string row = rows[0] + ".";
      for (std::size_t x = row.find("r.", 5) + 1; x < row.rfind('r');) {
        const std::size_t next = row.find('r', x);
        const std::size_t end = row.find('.', next);
        widths.insert(end - next);
        steps.insert(end - x);
        x = end;
      }
      EXPECT_EQ(widths, std::set{static_cast<std::size_t>(std::lround(ratio))}) << ratio << start;
      EXPECT_GE(*steps.begin(), std::floor(25 * ratio)) << ratio << " " << start;
      EXPECT_LE(*steps.rbegin(), std::ceil(25 * ratio)) << ratio << " " << start;
    }
  }
}

TEST(PainterCanvasTest, BoxesHaveTheirCornersAndSmallDottedOnesDarkGaps) {
  const auto box = [](PenStyle style, float right, float bottom, int width, double ratio) {
    return Painted(ratio, width, 5, [&](PainterCanvas& canvas) {
      canvas.DrawRectangle({kRed, style}, {1, 1}, {right, bottom});
    });
  };
  EXPECT_EQ(box(PenStyle::kSolid, 4, 3, 6, 1),
            (Rows{"......", ".rrrr.", ".r..r.", ".rrrr.", "......"}));
  EXPECT_EQ(box(PenStyle::kDot, 7, 4, 9, 1),
            (Rows{".........", ".rrkrrkr.", ".k.....r.", ".r.....k.", ".rkrrkrr."}));
  EXPECT_EQ(box(PenStyle::kDot, 2, 1, 4, 2)[2], "..rrrr..");
  const std::string dots = ".rr.rr.rr.rr.rr.rr.rr.rr.rr";
  for (const double ratio : {1.0, 2.0}) {
    const auto top = static_cast<std::size_t>(ratio);
    EXPECT_EQ(box(PenStyle::kDot, 26, 90, 28, ratio)[top],
              Repeated(dots + ".", static_cast<int>(ratio)));
    EXPECT_EQ(box(PenStyle::kDot, 25, 4, 28, ratio)[top].find('k') != std::string::npos, true);
    EXPECT_EQ(box(PenStyle::kDot, 26, 4, 28, ratio)[top].find('k'), std::string::npos);
    EXPECT_EQ(box(PenStyle::kDot, 4, 26, 28, ratio)[top].find('k'), std::string::npos);
  }
  EXPECT_EQ(box(PenStyle::kDashDot, 8, 90, 10, 1)[1], ".rrrr..rr.");
}

TEST(PainterCanvasTest, CirclesAreRoundAndTheSmallestStandOut) {
  const auto circle = [](float x, float y, int radius, PenStyle style, int side, double ratio) {
    return Painted(ratio, side, side, [&](PainterCanvas& canvas) {
      canvas.DrawCircle({kRed, style}, {x, y}, static_cast<std::int16_t>(radius));
    });
  };
  EXPECT_EQ(circle(2.5f, 3, 2, PenStyle::kSolid, 7, 1),
            (Rows{".......", "..rrr..", ".rr.rr.", ".r...r.", ".rr.rr.", "..rrr..", "......."}));
  EXPECT_EQ(circle(3, 3, 2, PenStyle::kDash, 7, 1),
            (Rows{".......", "...rr..", "....rr.", ".....r.", ".rr.rr.", "..rrr..", "......."}));
  for (const double ratio : {1.0, 1.25, 1.5, 2.0, 3.0}) {  // hollow, however thick
    const Rows rows = circle(3, 3, 2, PenStyle::kSolid, 7, ratio);
    EXPECT_EQ(rows[rows.size() / 2][rows.size() / 2], '.') << ratio;
  }
  EXPECT_EQ(circle(1, 1, 1, PenStyle::kSolid, 3, 1), (Rows{".r.", "r.r", ".r."}));
  EXPECT_EQ(circle(0, 1, 0, PenStyle::kSolid, 2, 2), (Rows{"....", "....", "rr..", "rr.."}));
  for (const std::string& row : circle(50 - 1200, 50, 1200, PenStyle::kSolid, 100, 1)) {
    EXPECT_NE(row.find('r'), std::string::npos) << "all the way round";
  }
  for (const double ratio : {1.0, 1.5, 2.0}) {
    for (const int radius : {5, 10, 40, 900, 1200, 32000}) {
      const auto middle = static_cast<float>(radius < 100 ? 50 : 50 - radius / std::sqrt(2.0));
      const Rows rows = circle(middle, middle, radius, PenStyle::kSolid, 100, ratio);
      int found = 0;
      for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows.size(); ++x) {
          const double centre = (middle + 0.5) * ratio - 0.5;
          const double off =
              std::hypot(static_cast<double>(x) - centre, static_cast<double>(y) - centre) -
              radius * ratio;
          if (rows[y][x] == 'r') ++found;
          EXPECT_TRUE(rows[y][x] == '.' || std::abs(off) <= 0.6 + ratio) << x << "," << y;
        }
      }
      const double length = radius < 100 ? 8 / std::sqrt(2.0) * radius * ratio : 90 * ratio;
      EXPECT_GE(found, length * std::floor(ratio + 0.5) * 0.95) << radius << " " << ratio;
    }
  }
}

TEST(PainterCanvasTest, LabelsStandWhereTheyAreMeasured) {
  const auto label = [](double ratio, const Draw& draw) { return Painted(ratio, 40, 40, draw); };
  const Rows blank = label(1, [](PainterCanvas&) {});
  TextSize size;
  const Rows at = label(1, [&](PainterCanvas& canvas) {
    size = canvas.MeasureText("17");
    canvas.DrawText(kRed, {5.5f, 4}, "17");
  });
  int left = 40;
  int right = 0;
  for (std::size_t y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      if (at[y][static_cast<std::size_t>(x)] == '.') continue;
      EXPECT_TRUE(y >= 4 && static_cast<float>(y) < 4 + size.height) << y;
      left = std::min(left, x);
      right = std::max(right, x);
    }
  }
  EXPECT_TRUE(left >= 6 && static_cast<float>(right) <= 6 + size.width && right > left + 4);
  for (const double ratio : {1.0, 2.0}) {
    const auto down = static_cast<std::size_t>(ratio);
    const float rounded = ratio == 1 ? 5.5f : 6;
    const Draw other = [rounded](PainterCanvas& canvas) {
      for (int i = 100; i < 200; ++i) canvas.MeasureText(std::to_string(i));
      canvas.DrawText(kBlue, {6, 5}, "88");
      canvas.DrawRectangle({kBlue}, {0, 0}, {39, 39});
      canvas.Clear();
      canvas.DrawText(kRed, {rounded, 4.5f}, "17");
    };
    const Rows before = label(ratio, [](PainterCanvas& canvas) {
      canvas.DrawText(kRed, {6, 4}, "17");
    });
    const Rows shifted = label(ratio, other);
    EXPECT_EQ(Rows(shifted.begin() + 1, shifted.end()), Rows(before.begin(), before.end() - 1));
    EXPECT_NE(before, label(ratio, [](PainterCanvas& canvas) {
                canvas.DrawText(kBlue, {6, 4}, "17");
              }));
    EXPECT_EQ(before[3 * down].find_first_not_of('.'), std::string::npos);
  }
  for (const ScreenPoint partly :
       {ScreenPoint{3 - size.width / 2, 5}, {37, 5}, {5, 2 - size.height / 2}, {5, 34}}) {
    EXPECT_NE(blank, label(1, [&](PainterCanvas& canvas) { canvas.DrawText(kRed, partly, "17"); }));
  }
}

TEST(PainterCanvasTest, LabelsHaveTheFontOfTheCanvas) {
  QFont large;
  large.setPixelSize(60);
  QImage picture(80, 80, QImage::Format_RGB32);
  picture.fill(Qt::white);
  PainterCanvas canvas(large, Qt::white);
  canvas.Begin(picture);
  EXPECT_GT(canvas.MeasureText("1").height, 50);
  canvas.DrawText(kRed, {0, 0}, "1");
  canvas.End();
  int rows = 0;
  for (int y = 0; y < 80; ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    rows += std::any_of(row, row + 80, [](QRgb pixel) { return pixel == qRgb(255, 0, 0); }) ? 1 : 0;
  }
  EXPECT_GT(rows, 30);
}

TEST(PainterCanvasTest, WhatIsDrawnLaterLiesAbove) {
  const Pen styles[] = {{kRed}, {kBlue, PenStyle::kDot}, {kRed, PenStyle::kDash}, {kBlue}};
  const Rows rows = Painted(1, 4, 1, [&](PainterCanvas& canvas) {
    for (int i = 0; i < 4; ++i) {
      canvas.DrawLine(styles[i], {static_cast<float>(i), 0}, {3, 0});
    }
    canvas.DrawText(kBlue, {0, -8}, "8");
    canvas.DrawCircle({kRed}, {0, 0}, 0);
  });
  EXPECT_EQ(rows[0].front(), 'r');
  EXPECT_EQ(rows[0].back(), 'b');
}

}  // namespace
}  // namespace vesmora
