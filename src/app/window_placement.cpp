#include "app/window_placement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "document/numbers.h"
#include "platform/text.h"

namespace vesmora {
namespace {

const std::string kPlacementSection = "Windows";
constexpr std::int16_t kNotSet = -999;
constexpr int kBarHeight = 28;  // of a title bar, above the window's own area

std::optional<std::int16_t> ReadNumber(Settings& settings, const std::string& key) {
  const std::string text = settings.Read(kPlacementSection, key, std::to_string(kNotSet));
  const std::string_view digits = TrimBlanks(text);
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end == digits.data() || !std::isfinite(value)) return std::nullopt;
  const std::int16_t number = RoundToInt16(value);
  if (number == kNotSet) return std::nullopt;
  return number;
}

void WriteNumber(Settings& settings, const std::string& key, std::optional<std::int16_t> value) {
  settings.Write(kPlacementSection, key, std::to_string(value.value_or(kNotSet)));
}

int Overlap(int firstStart, int firstLength, int secondStart, int secondLength) {
  const int end = std::min(firstStart + firstLength, secondStart + secondLength);
  return std::max(end - std::max(firstStart, secondStart), 0);
}

std::int64_t OverlapArea(const ScreenRect& a, const ScreenRect& b) {
  return std::int64_t{Overlap(a.left, a.width, b.left, b.width)} *
         Overlap(a.top, a.height, b.top, b.height);
}

/// Enough of the title bar lies on one screen to drag the window by.
bool IsWithinReach(const ScreenRect& window, std::span<const ScreenRect> screens) {
  constexpr int kLeastHeight = 12;
  constexpr int kLeastWidth = 120;
  return std::ranges::any_of(screens, [&](const ScreenRect& screen) {
    return Overlap(screen.left, screen.width, window.left, window.width) >= kLeastWidth &&
           Overlap(screen.top, screen.height, window.top - kBarHeight, kBarHeight) >= kLeastHeight;
  });
}

int FitInside(int position, int size, int low, int room) {
  return std::max(low, std::min(position, low + room - size));
}

}  // namespace

WindowPlacement LoadPlacement(Settings& settings) {
  return {.state = ReadNumber(settings, "State"),
          .top = ReadNumber(settings, "Top"),
          .left = ReadNumber(settings, "Left"),
          .width = ReadNumber(settings, "Width"),
          .height = ReadNumber(settings, "Height")};
}

void StorePlacement(const WindowPlacement& placement, Settings& settings) {
  WriteNumber(settings, "State", placement.state);
  WriteNumber(settings, "Top", placement.top);
  WriteNumber(settings, "Left", placement.left);
  WriteNumber(settings, "Width", placement.width);
  WriteNumber(settings, "Height", placement.height);
}

ScreenRect FitToScreens(ScreenRect window, std::span<const ScreenRect> screens) {
  if (screens.empty()) return window;
  const ScreenRect screen = *std::ranges::max_element(
      screens, {}, [&](const ScreenRect& s) { return OverlapArea(s, window); });
  window.width = std::min(window.width, screen.width);
  window.height = std::min(window.height, screen.height);
  if (IsWithinReach(window, screens)) return window;
  window.left = FitInside(window.left, window.width, screen.left, screen.width);
  window.top =
      FitInside(window.top, window.height, screen.top + kBarHeight, screen.height - kBarHeight);
  return window;
}

}  // namespace vesmora
