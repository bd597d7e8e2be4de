// The five most recent maps, newest first.
#pragma once

#include <array>
#include <string>

#include "platform/settings.h"

namespace vesmora {

inline constexpr int kRecentSlots = 5;

/// An emptied slot stays as a gap, hidden in the menu, and moves down with the others.
struct RecentFiles {
  std::array<std::string, kRecentSlots> slots;
};

/// Puts `path` at the head. What it displaces moves one place down.
void AddRecent(RecentFiles& recent, const std::string& path);

void LoadRecent(RecentFiles& recent, Settings& settings);
void StoreRecent(const RecentFiles& recent, Settings& settings);

struct RecentMenuItem {
  bool visible = false;
  std::string caption;
};

RecentMenuItem RecentMenuItemOf(const RecentFiles& recent, int slot);

}  // namespace vesmora
