#include "app/recent_files.h"

#include <algorithm>

#include "platform/text.h"

namespace vesmora {
namespace {

const std::string kRecentSection = "Recent";
constexpr std::size_t kShortestShown = 5;  // characters

}  // namespace

void AddRecent(RecentFiles& recent, const std::string& path) {
  auto& slots = recent.slots;
  if (slots.front() == path) return;
  std::ranges::replace(slots, path, std::string());
  std::shift_right(slots.begin(), slots.end(), 1);
  slots.front() = path;
}

void LoadRecent(RecentFiles& recent, Settings& settings) {
  for (std::size_t i = 0; i < recent.slots.size(); ++i) {
    recent.slots[i] = TrimBlanks(settings.Read(kRecentSection, std::to_string(i), ""));
  }
}

void StoreRecent(const RecentFiles& recent, Settings& settings) {
  for (std::size_t i = 0; i < recent.slots.size(); ++i) {
    settings.Write(kRecentSection, std::to_string(i), recent.slots[i]);
  }
}

RecentMenuItem RecentMenuItemOf(const RecentFiles& recent, int slot) {
  const std::string& path = recent.slots[static_cast<std::size_t>(slot)];
  return {path.size() >= kShortestShown, "&" + std::to_string(slot + 1) + " " + path};
}

}  // namespace vesmora
