#include "app/window_placement.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string>

#include "document/numbers.h"
#include "document/text.h"

namespace vesmora {
namespace {

const std::string kSection = "Windows";
constexpr std::int16_t kNotSet = -999;

std::optional<std::int16_t> ReadNumber(Settings& settings, const std::string& key) {
  const std::string text = settings.Read(kSection, key, std::to_string(kNotSet));
  const std::string_view digits = TrimBlanks(text);
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end == digits.data()) return std::nullopt;
  const std::int16_t number = RoundToInt16(value);
  if (number == kNotSet) return std::nullopt;
  return number;
}

void WriteNumber(Settings& settings, const std::string& key, std::optional<std::int16_t> value) {
  settings.Write(kSection, key, std::to_string(value.value_or(kNotSet)));
}

std::int64_t OverlapArea(const ScreenRect& a, const ScreenRect& b) {
  const std::int64_t width =
      std::min(a.left + a.width, b.left + b.width) - std::max(a.left, b.left);
  const std::int64_t height = std::min(a.top + a.height, b.top + b.height) - std::max(a.top, b.top);
  return std::max<std::int64_t>(width, 0) * std::max<std::int64_t>(height, 0);
}

/// Enough of the title bar lies on one screen to drag the window by.
bool IsWithinReach(const ScreenRect& window, std::span<const ScreenRect> screens) {
  constexpr int kBarHeight = 24;
  constexpr int kLeastWidth = 120;
  const ScreenRect bar{window.left, window.top, window.width, kBarHeight};
  return std::ranges::any_of(screens, [&](const ScreenRect& screen) {
    return OverlapArea(screen, bar) >= std::int64_t{kBarHeight} * kLeastWidth;
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
  window.top = FitInside(window.top, window.height, screen.top, screen.height);
  return window;
}

}  // namespace vesmora
