#include "view/pixel_painter.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

#include "document/numbers.h"

namespace vesmora {
namespace {

/// Pen widths. The steps of a smaller circle are closed on its inside: a mark's few pixels are
/// lost among the lines otherwise.
constexpr int kSmallRadius = 3;

/// One coordinate along a line, in fractions of a pixel.
struct Track {
  static constexpr int kBits = 32;
  static constexpr std::int64_t kOne = std::int64_t{1} << kBits;
  // A little more than the half, by what the steps of a line may lose together: halves go up
  // from whichever end the line is drawn.
  static constexpr std::int64_t kHalf = kOne / 2 + (kOne >> 12);

  Track(int from, int to, int steps)
      : start(from * kOne + kHalf), step(steps == 0 ? 0 : (to - from) * kOne / steps) {}

  int At(int i) const { return static_cast<int>((start + i * step) >> kBits); }

  std::int64_t start;
  std::int64_t step;
};

/// Points of a line one pixel thick, by their number from its start.
class ThinLine {
 public:
  ThinLine(const Picture& picture, const Track& x, const Track& y)
      : picture_(picture), x_(x), y_(y) {}

  bool IsInPicture(int i) const {
    const int x = x_.At(i);
    const int y = y_.At(i);
    return x >= 0 && x < picture_.width && y >= 0 && y < picture_.height;
  }

  /// The points `from`, `from` + `every` ... before `end`.
  void Set(int from, int end, int every, std::uint32_t color) const {
    std::int64_t x = x_.start + from * x_.step;
    std::int64_t y = y_.start + from * y_.step;
    for (int i = from; i < end; i += every, x += every * x_.step, y += every * y_.step) {
      picture_.first[(y >> Track::kBits) * picture_.stride + (x >> Track::kBits)] = color;
    }
  }

 private:
  const Picture& picture_;
  const Track& x_;
  const Track& y_;
};

/// How far apart the points of a line are that has no longer dashes, as most lines of a map;
/// 0 for other lines.
int PointDistance(const Dashes& dashes, int penWidth) {
  if (dashes[1] == 0) return 1;
  const bool isDots = dashes[0] == 1 && dashes[2] == 1 && dashes[1] == dashes[3];
  return isDots && penWidth == 1 ? 1 + dashes[1] : 0;
}

}  // namespace

Dashes DashesOf(PenStyle style) {
  switch (style) {
    case PenStyle::kDash:
      return {4, 2, 4, 2};
    case PenStyle::kDot:
      return {1, 2, 1, 2};
    case PenStyle::kDashDot:
      return {4, 2, 1, 2};
    case PenStyle::kSolid:
      break;
  }
  return {1, 0, 1, 0};
}

void PixelPainter::Fill(std::uint32_t color) const {
  if (picture_.height < 1) return;
  std::fill_n(picture_.first, picture_.width, color);
  // Copying a row is many times as fast as setting its pixels.
  for (int y = 1; y < picture_.height; ++y) {
    std::copy_n(picture_.first, picture_.width, picture_.first + y * picture_.stride);
  }
}

void PixelPainter::DrawLine(const PixelLine& line, const Dashes& dashes,
                            std::uint32_t color) const {
  const int dx = line.x2 - line.x1;
  const int dy = line.y2 - line.y1;
  const int steps = std::max(std::abs(dx), std::abs(dy));
  const bool isFlat = std::abs(dx) >= std::abs(dy);
  Track x(line.x1, line.x2, steps);
  Track y(line.y1, line.y2, steps);
  if (steps == 0) x.step = Track::kOne;  // a point is as long as the pen is wide
  const bool isForward = (isFlat ? x : y).step > 0;
  const int begin = isForward ? 0 : 1 - penWidth_;
  const int end = begin + steps + penWidth_;
  const int every = PointDistance(dashes, penWidth_);
  Track& across = isFlat ? y : x;
  for (int row = 0; row < penWidth_; ++row, across.start += Track::kOne) {
    const ThinLine thin(picture_, x, y);
    // Lines are cut a little outside the picture. Between two points in it all are.
    int first = begin;
    int last = end - 1;
    while (first <= last && !thin.IsInPicture(first)) ++first;
    while (first <= last && !thin.IsInPicture(last)) --last;
    if (every > 0) {
      const int leftOut = (first - begin + every - 1) / every;
      thin.Set(begin + leftOut * every, last + 1, every, color);
      continue;
    }
    std::size_t part = 0;
    for (int i = begin; i <= last; part = (part + 2) % dashes.size()) {
      const int gap = i + dashes[part] * penWidth_;
      thin.Set(std::max(i, first), std::min(gap, last + 1), 1, color);
      i = gap + dashes[part + 1] * penWidth_;
    }
  }
}

void PixelPainter::SetPoint(int left, int top, std::uint32_t color) const {
  for (int y = std::max(top, 0); y < std::min(top + penWidth_, picture_.height); ++y) {
    for (int x = std::max(left, 0); x < std::min(left + penWidth_, picture_.width); ++x) {
      picture_.first[y * picture_.stride + x] = color;
    }
  }
}

void PixelPainter::DrawCircle(int x, int y, int radius, const Dashes& dashes,
                              std::uint32_t color) const {
  const auto across = [radius](int along) {
    const double square = static_cast<double>(radius) * radius - static_cast<double>(along) * along;
    return RoundToInt32(std::sqrt(square));
  };
  int diagonal = 0;
  while (diagonal < radius && across(diagonal + 1) > diagonal) ++diagonal;
  const int period = std::accumulate(dashes.begin(), dashes.end(), 0);
  const auto isSet = [&](int step) {
    const int phase = step / penWidth_ % period;
    const int second = dashes[0] + dashes[1];
    return phase < dashes[0] || (phase >= second && phase < second + dashes[2]);
  };
  const auto set = [&](int step, int dx, int dy) {
    if (isSet(step)) SetPoint(x + dx, y + dy, color);
  };
  // Eighths from an axis to a diagonal and back in turn, so that dashes go on round the circle.
  const auto setInEighths = [&](int along, int out) {
    const int back = diagonal - along;
    set(along, out, along);
    set(diagonal + back, along, out);
    set(2 * diagonal + along, -along, out);
    set(3 * diagonal + back, -out, along);
    set(4 * diagonal + along, -out, -along);
    set(5 * diagonal + back, -along, -out);
    set(6 * diagonal + along, along, -out);
    set(7 * diagonal + back, out, -along);
  };
  const bool isSmall = radius >= 2 * penWidth_ && radius <= kSmallRadius * penWidth_;
  for (int along = 0; along <= diagonal; ++along) {
    setInEighths(along, across(along));
    if (isSmall) setInEighths(along, along < diagonal ? across(along + 1) : along);
  }
}

}  // namespace vesmora
