#include <algorithm>

#include "document/numbers.h"
#include "document/scenery_types.h"
#include "panel/panel_handlers.h"
#include "tools/property_text.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr double kSmallestCollider = 2;
constexpr double kLargestCollider = 999;
constexpr const char* kEnterApplies = "Enter applies";  // while a text is typed

/// True, with the user told, when Edit has nothing of the kind to work on.
template <typename List>
bool RefusesEmpty(const PanelEditing& editing, const List& list, const char* reason) {
  if (!editing.IsTool(ToolMode::kEdit) || !list.Empty()) return false;
  Refuse(editing, reason);
  return true;
}

/// As one undo step.
template <typename TableType, typename List, typename Change>
void ChangeSelected(PanelEditing& editing, const char* action, TableType& table, const List& list,
                    Change change) {
  TakeUndoSnapshot(editing, action);
  for (const int slot : list.Used()) change(table[slot]);
}

void ResetColliderText(PanelEditing& editing) {
  const std::string text(kColliderSizes.front());
  editing.panel.contents.CBcollider.text = text;
  if (editing.IsTool(ToolMode::kAddCollider)) editing.tool.next.colliderSize = text;
}

/// False, with the user told and the box put back, for a size that no collider may have.
bool AcceptsSize(PanelEditing& editing, double size) {
  if (size >= kSmallestCollider && size <= kLargestCollider) return true;
  Refuse(editing, "Size is out of the limit.");
  ResetColliderText(editing);
  return false;
}

bool IsStandardSize(double size) {
  return std::ranges::any_of(kColliderSizes, [size](std::string_view standard) {
    return LeadingNumber(standard) == size;
  });
}

}  // namespace

void CBspawn_Click(PanelEditing& editing, const std::string& text) {
  const auto& spawns = editing.selection.spawns;
  if (RefusesEmpty(editing, spawns, "You need select at least 1 spawnpoint.")) return;
  editing.panel.contents.CBspawn.text = text;
  // Any other text means the normal team.
  const std::uint8_t team = text == kSpawnTypes[kRedTeam]    ? kRedTeam
                            : text == kSpawnTypes[kBlueTeam] ? kBlueTeam
                                                             : kNormalTeam;
  if (editing.IsTool(ToolMode::kEdit)) {
    ChangeSelected(editing, "Type", editing.document.spawns, spawns,
                   [team](SpawnPoint& spawn) { spawn.team = team; });
  } else if (editing.IsTool(ToolMode::kAddSpawn)) {
    editing.tool.value = team;
  }
  RedrawMap(editing);
}

void CBspawn_DropDown(PanelEditing& editing) {
  ComboContents& combo = editing.panel.contents.CBspawn;
  if (combo.list == ComboList::kValuesAndMany) combo.list = ComboList::kValues;
}

void CBscenery_Click(PanelEditing& editing, const std::string& text) {
  const auto& sceneries = editing.selection.sceneries;
  if (RefusesEmpty(editing, sceneries, "You need select at least 1 scenery.")) return;
  editing.panel.contents.CBscenery.text = text;
  const auto row = std::ranges::find(kSceneryTypes, text, &SceneryType::name);
  // "Many types" is no type to store.
  if (row == kSceneryTypes.end() || row == kSceneryTypes.begin()) return;
  const auto type = static_cast<std::uint8_t>(row - kSceneryTypes.begin());
  if (editing.IsTool(ToolMode::kEdit)) {
    ChangeSelected(editing, "Type", editing.document.sceneries, sceneries,
                   [type](SceneryObject& scenery) { scenery.type = type; });
  } else if (editing.IsTool(ToolMode::kAddScenery)) {
    editing.tool.value = type;
  }
  RedrawMap(editing);
}

void CBscenery_DropDown(PanelEditing& editing) {
  editing.panel.contents.CBscenery.list = ComboList::kValues;
}

void CBscenery2_Click(PanelEditing& editing, const std::string& text) {
  const auto& sceneries = editing.selection.sceneries;
  if (RefusesEmpty(editing, sceneries, "You need select at least 1 scenery.")) return;
  editing.panel.contents.CBscenery2.text = text;
  if (text == kManyTypes) return;  // no level: as a number it would be 0, invisible
  if (editing.IsTool(ToolMode::kEdit)) {
    const std::uint8_t level = VisibilityLevel(text);
    ChangeSelected(editing, "Visibility", editing.document.sceneries, sceneries,
                   [level](SceneryObject& scenery) { scenery.level = level; });
  } else {
    editing.tool.next.visibility = text;
  }
  RedrawMap(editing);
}

void CBscenery2_Change(PanelEditing& editing, const std::string& text) {
  if (!editing.IsTool(ToolMode::kAddScenery)) {
    editing.note = kEnterApplies;
    return;
  }
  editing.panel.contents.CBscenery2.text = text;
  editing.tool.next.visibility = text;
}

void CBcollider_Change(PanelEditing& editing, const std::string& text) {
  editing.note = kEnterApplies;
  if (!editing.IsTool(ToolMode::kAddCollider)) return;
  editing.panel.contents.CBcollider.text = text;
  editing.tool.next.colliderSize = text;
}

void ForgetTyping(PanelEditing& editing) {
  if (editing.note == kEnterApplies) editing.note.clear();
}

void CBscenery2_DropDown(PanelEditing& editing) {
  editing.panel.contents.CBscenery2.list = ComboList::kValues;
}

void CBscenery2_Enter(PanelEditing& editing, const std::string& text) {
  if (text == kManyTypes) return;
  const double percentage = LeadingNumber(text);
  if (percentage >= 0 && percentage <= 100) {
    CBscenery2_Click(editing, NumberText(static_cast<float>(percentage)) + "%");
    return;
  }
  Refuse(editing, "Size is out of the limit.");
  editing.panel.contents.CBscenery2.text = kVisibilities.front();
  if (!editing.IsTool(ToolMode::kEdit)) editing.tool.next.visibility = kVisibilities.front();
}

void CBcollider_Click(PanelEditing& editing, const std::string& text) {
  const double size = LeadingNumber(text);
  if (editing.IsTool(ToolMode::kEdit)) {
    const auto& colliders = editing.selection.colliders;
    TakeUndoSnapshot(editing, "Size");
    if (RefusesEmpty(editing, colliders, "You need select at least 1 collider.")) return;
    if (!AcceptsSize(editing, size)) return;
    for (const int slot : colliders.Used()) {
      editing.document.colliders[slot].radius = static_cast<float>(size);
    }
  } else if (editing.IsTool(ToolMode::kAddCollider)) {
    editing.tool.value = RoundToInt16(size);
    editing.tool.next.colliderSize = text;
  }
  editing.panel.contents.CBcollider.text = text;
  RedrawMap(editing);
}

void CBcollider_Enter(PanelEditing& editing, const std::string& text) {
  const double size = LeadingNumber(text);
  if (!AcceptsSize(editing, size)) return;
  if (!IsStandardSize(size) &&
      !editing.ports.dialogs.Ask(
          {.text = "You have select a custom size.\n"
                   "This will work but the official MapMaker will not show custom sized "
                   "colliders.\n"
                   "Do you still want continue?",
           .title = "Warning",
           .icon = MessageIcon::kQuestion})) {
    ResetColliderText(editing);
    return;
  }
  CBcollider_Click(editing, text);
}

void CBbotValinta_Click(PanelEditing& editing, int index, bool isTicked) {
  const auto setting = static_cast<std::size_t>(index);
  const std::uint8_t value = isTicked ? 1 : 0;
  if (editing.IsTool(ToolMode::kEdit)) {
    const auto& waypoints = editing.selection.waypoints;
    TakeUndoSnapshot(editing, "Editing");
    if (RefusesEmpty(editing, waypoints, "You need select at least 1 waypoint.")) return;
    for (const int slot : waypoints.Used()) {
      editing.document.waypoints[slot].botSettings[setting] = value;
    }
  } else {
    editing.tool.next.botSettings[setting] = value;
  }
  editing.panel.contents.CBbotValinta[setting].tick = isTicked ? Tick::kOn : Tick::kOff;
  RedrawMap(editing);
}

void OBbotKumpi_Click(PanelEditing& editing, int path) {
  const auto& waypoints = editing.selection.waypoints;
  if (RefusesEmpty(editing, waypoints, "You need select at least 1 waypoint.")) return;
  if (editing.IsTool(ToolMode::kEdit)) {
    ChangeSelected(editing, "Path", editing.document.waypoints, waypoints,
                   [path](Waypoint& waypoint) { waypoint.path = path; });
  } else if (editing.IsTool(ToolMode::kAddWaypoint)) {
    editing.tool.value = static_cast<std::int16_t>(path);
    ShowPathBeingAdded(editing);
  }
  RefreshAll(editing);
}

void OBbotNayta_Click(PanelEditing& editing, int filter) {
  editing.show.pathFilter = static_cast<std::int16_t>(filter);
  auto& options = editing.panel.contents.OBbotNayta;
  for (std::size_t i = 0; i < options.size(); ++i) {
    options[i].chosen = static_cast<int>(i) == filter;
  }
  RedrawMap(editing);
}

}  // namespace vesmora
