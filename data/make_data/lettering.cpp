#include "lettering.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "document/numbers.h"
#include "document/prefab_file.h"
#include "document/save_preparation.h"
#include "glyphs.h"
#include "map_maker.h"

namespace vesmora {
namespace {

// World units.
constexpr float kPen = 4;
constexpr float kThinPen = 2.6f;
constexpr float kFinePen = 1.4f;
constexpr float kCut = 2.6f;      // off the outside of a right-angled corner
constexpr float kBearing = 1.7f;  // between a letter and the edge of its cell
constexpr float kLineTop = kCapHeight + 2.4f;
constexpr float kLineBottom = 24;
constexpr float kSpeck = 0.4f;

constexpr MapColor kTopColor = Color(0xF89818);
constexpr MapColor kFootColor = Color(0xB82410);

Point Direction(Point from, Point to) {
  const float x = to.x - from.x;
  const float y = to.y - from.y;
  const float length = std::sqrt(x * x + y * y);
  return {x / length, y / length};
}

Point Shifted(Point point, Point by, float times) {
  return {point.x + by.x * times, point.y + by.y * times};
}

/// Where the two sides of a stroke pass a point of its path; the outer side of a corner
/// that is cut off has one place before and one behind the cut.
struct Joint {
  Point leftBefore;
  Point rightBefore;
  Point leftBehind;
  Point rightBehind;
};

Joint StraightJoint(Point at, Point side, float pen) {
  const Point left = Shifted(at, side, -pen / 2);
  const Point right = Shifted(at, side, pen / 2);
  return {left, right, left, right};
}

Joint BentJoint(Point before, Point at, Point behind, float pen, float cut) {
  const Point in = Direction(before, at);
  const Point out = Direction(at, behind);
  const float cosine = in.x * out.x + in.y * out.y;
  const Point side = {-(in.y + out.y) / (1 + cosine), (in.x + out.x) / (1 + cosine)};
  Joint joint = StraightJoint(at, side, pen);
  const bool isGentle = cosine > 0.3f;
  if (isGentle || cut == 0) return joint;
  const bool turnsRight = in.x * out.y - in.y * out.x > 0;
  Point& outerBefore = turnsRight ? joint.leftBefore : joint.rightBefore;
  Point& outerBehind = turnsRight ? joint.leftBehind : joint.rightBehind;
  outerBehind = Shifted(outerBefore, out, cut);
  outerBefore = Shifted(outerBefore, in, -cut);
  return joint;
}

class LetterMaker {
 public:
  LetterMaker() : maker_(Color(0xFFFFFF), Color(0xFFFFFF)) {}

  /// Moved right by `offset` and, to leave room for a mark, squeezed to begin at `top`.
  void AddStrokes(std::string_view strokes, float offset, float top = 0);
  /// As wide as the cell. A glyph that ends below the capitals also gets a speck at their
  /// height, too small to be noticed: the editor sets letters by the middle of their bounds.
  void AddLine(float width);
  DataFile Finish(unsigned char code);

 private:
  enum class Ends { kOpen, kJoined };

  void AddStroke(char kind, const std::vector<Point>& points);
  void AddPath(const std::vector<Point>& points, Ends ends, float pen, float cut);
  void AddQuad(Point a, Point b, Point c, Point d);
  float Top();

  MapMaker maker_;
  float offset_ = 0;
  float top_ = 0;
  float stretch_ = 1;
};

void LetterMaker::AddStrokes(std::string_view strokes, float offset, float top) {
  offset_ = offset;
  top_ = top;
  stretch_ = (kCapHeight - top) / kCapHeight;
  std::istringstream text{std::string(strokes)};
  char kind = 0;
  while (text >> kind) {
    std::vector<Point> points;
    Point point{};
    char comma = 0;
    while (text >> std::ws && !std::isalpha(text.peek()) && text >> point.x >> comma >> point.y) {
      points.push_back(point);
    }
    AddStroke(kind, points);
  }
}

void LetterMaker::AddStroke(char kind, const std::vector<Point>& points) {
  switch (kind) {
    case 'p':
      return AddPath(points, Ends::kOpen, kPen, kCut);
    case 'l':
      return AddPath(points, Ends::kOpen, kThinPen, 0);
    case 'o':
      return AddPath(points, Ends::kJoined, kPen, kCut);
    case 'r':
      return AddPath(points, Ends::kJoined, kThinPen, 0);
    case 'f':
      return AddPath(points, Ends::kJoined, kFinePen, 0);
    default:
      return AddQuad(points.at(0), points.at(1), points.at(2), points.at(3));
  }
}

void LetterMaker::AddPath(const std::vector<Point>& points, Ends ends, float pen, float cut) {
  const std::size_t count = points.size();
  std::vector<Joint> joints;
  for (std::size_t i = 0; i < count; ++i) {
    const Point before = points[(i + count - 1) % count];
    const Point behind = points[(i + 1) % count];
    const bool isEnd = ends == Ends::kOpen && (i == 0 || i + 1 == count);
    if (isEnd) {
      const Point along = i == 0 ? Direction(points[i], behind) : Direction(before, points[i]);
      joints.push_back(StraightJoint(points[i], {-along.y, along.x}, pen));
    } else {
      joints.push_back(BentJoint(before, points[i], behind, pen, cut));
    }
  }
  for (const Joint& joint : joints) {
    // One of the two sides is a single point: what is left is a triangle or nothing.
    AddQuad(joint.leftBefore, joint.leftBehind, joint.rightBehind, joint.rightBefore);
  }
  if (ends == Ends::kJoined) joints.push_back(joints.front());
  for (std::size_t i = 0; i + 1 < joints.size(); ++i) {
    AddQuad(joints[i].leftBehind, joints[i + 1].leftBefore, joints[i + 1].rightBefore,
            joints[i].rightBehind);
  }
}

void LetterMaker::AddQuad(Point a, Point b, Point c, Point d) {
  const auto placed = [this](Point point) {
    return Point{offset_ + point.x, top_ + point.y * stretch_};
  };
  const Point upper[] = {placed(a), placed(b)};
  const Point lower[] = {placed(d), placed(c)};
  maker_.AddBand(upper, lower, {kTopColor, kTopColor});
}

float LetterMaker::Top() {
  float top = kLineBottom;
  for (const Polygon& polygon : maker_.Map().polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) top = std::min(top, corner.y);
  }
  return top;
}

void LetterMaker::AddLine(float width) {
  offset_ = 0;
  top_ = 0;
  stretch_ = 1;
  AddQuad({0, kLineTop}, {width, kLineTop}, {width, kLineBottom}, {0, kLineBottom});
  if (Top() > 0) {
    const float middle = width / 2;
    AddQuad({middle - kSpeck, 0}, {middle + kSpeck, 0}, {middle, kSpeck}, {middle, kSpeck});
  }
}

/// Lit from above, whichever strokes a corner belongs to.
MapColor ColorAt(float y) {
  const float part = std::clamp(y / kCapHeight, 0.0f, 1.0f);
  const auto mix = [part](std::uint8_t top, std::uint8_t foot) {
    return RoundToUint8(top + (foot - top) * part);
  };
  return {mix(kTopColor.blue, kFootColor.blue), mix(kTopColor.green, kFootColor.green),
          mix(kTopColor.red, kFootColor.red), 255};
}

DataFile LetterMaker::Finish(unsigned char code) {
  MapDocument& map = maker_.Map();
  for (Polygon& polygon : map.polygons.Used()) {
    for (PolygonVertex& corner : polygon.vertices) corner.color = ColorAt(corner.y);
  }
  Selection nothing;
  PrepareForSave(map, nothing);
  return {"Alphabet/" + std::to_string(code) + ".pre", WritePrefab(map)};
}

DataFile MakeLetter(const Glyph& glyph) {
  LetterMaker maker;
  maker.AddStrokes(glyph.strokes, kBearing);
  maker.AddLine(glyph.width + 2 * kBearing);
  return maker.Finish(glyph.code);
}

DataFile MakeAccentedLetter(const AccentedGlyph& accented) {
  const Glyph& base = *std::ranges::find(Glyphs(), accented.base, &Glyph::code);
  const float width = std::max(base.width, kMarkWidth);
  LetterMaker maker;
  maker.AddStrokes(accented.mark, kBearing + width / 2);
  maker.AddStrokes(base.strokes, kBearing + (width - base.width) / 2, kMarkHeight);
  maker.AddLine(width + 2 * kBearing);
  return maker.Finish(accented.code);
}

}  // namespace

std::vector<DataFile> MakeAlphabet() {
  std::vector<DataFile> files;
  std::ranges::transform(Glyphs(), std::back_inserter(files), MakeLetter);
  std::ranges::transform(AccentedGlyphs(), std::back_inserter(files), MakeAccentedLetter);
  return files;
}

}  // namespace vesmora
