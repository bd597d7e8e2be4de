// A Canvas that paints nothing: it checks what a painter relies on.
#pragma once

#include <cctype>
#include <cstdint>
#include <optional>
#include <string_view>

#include "require.h"
#include "view/canvas.h"
#include "view/clip.h"

namespace vesmora {

class CheckingCanvas final : public Canvas {
 public:
  CheckingCanvas(int width, int height) : width_(width), height_(height) {}

  int Clears() const { return clears_; }
  int Primitives() const { return primitives_; }

  void Clear() override {
    Require(primitives_ == 0, "drawn on before it was cleared");
    ++clears_;
  }
  void DrawLine(Pen pen, ScreenPoint from, ScreenPoint to) override {
    Count(pen);
    const std::optional<PixelLine> line = ClipLine(from, to, width_, height_);
    if (!line) return;
    Require(IsNear(line->x1, width_) && IsNear(line->x2, width_) && IsNear(line->y1, height_) &&
                IsNear(line->y2, height_),
            "a clipped line leaves the window");
  }
  void DrawRectangle(Pen pen, ScreenPoint corner, ScreenPoint opposite) override {
    DrawLine(pen, corner, {opposite.x, corner.y});
    DrawLine(pen, {corner.x, opposite.y}, opposite);
  }
  void DrawCircle(Pen pen, ScreenPoint center, std::int16_t radius) override {
    Count(pen);
    if (!CircleTouches(center, radius, width_, height_)) return;
    Require(radius >= 0, "a circle with a negative radius is seen");
    // Anything farther could not touch, and has no whole pixels to be drawn at.
    Require(IsWithin(center.x, width_ + radius) && IsWithin(center.y, height_ + radius),
            "a circle out of reach is seen");
  }
  void DrawText(Rgb color, ScreenPoint /*topLeft*/, std::string_view text) override {
    Count({color, PenStyle::kSolid});
    CheckLabel(text);
  }
  TextSize MeasureText(std::string_view text) override {
    CheckLabel(text);
    return {7.0f * static_cast<float>(text.size()), 13.0f};
  }

 private:
  static constexpr int kReach = 20;  // pixels, a little more than the clipping's margin

  static bool IsNear(int position, int limit) {
    return position >= -kReach && position <= limit + kReach;
  }
  static bool IsWithin(float position, int distance) {
    const auto reach = static_cast<float>(distance + kReach);
    return position >= -reach && position <= reach;
  }
  void Count(Pen pen) {
    Require(clears_ == 1, "drawn on uncleared");
    Require(pen.style <= PenStyle::kDashDot, "an unknown pen style");
    ++primitives_;
  }
  static void CheckLabel(std::string_view text) {
    Require(!text.empty() && text.size() <= 11, "a label is no 32-bit number");
    for (const char c : text) {
      Require(c == '-' || std::isdigit(static_cast<unsigned char>(c)) != 0, "a label is no number");
    }
  }

  int width_;
  int height_;
  int clears_ = 0;
  int primitives_ = 0;
};

}  // namespace vesmora
