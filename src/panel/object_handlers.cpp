#include "panel/object_handlers.h"

#include <algorithm>

#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/property_text.h"

namespace vesmora {
namespace {

constexpr double kSmallestCollider = 2;
constexpr double kLargestCollider = 999;

/// Keeps handlers that a choice sets off in turn from running, and puts the flag back.
class RefreshingForNow {
 public:
  explicit RefreshingForNow(PanelState& panel) : panel_(panel), before_(panel.panelRefreshing) {
    panel_.panelRefreshing = true;
  }
  RefreshingForNow(const RefreshingForNow&) = delete;
  RefreshingForNow& operator=(const RefreshingForNow&) = delete;
  ~RefreshingForNow() { panel_.panelRefreshing = before_; }

 private:
  PanelState& panel_;
  bool before_;
};

ToolMode ToolOf(const PanelContext& context) { return context.editing.state.document.toolIndex; }

bool IsEdit(const PanelContext& context) { return ToolOf(context) == ToolMode::kEdit; }

Selection& SelectionOf(const PanelContext& context) { return context.editing.state.selection; }

MapDocument& DocumentOf(const PanelContext& context) { return context.editing.state.document; }

/// True, with the user told, when Edit has nothing of the kind to work on.
template <typename List>
bool RefusesEmpty(const PanelContext& context, const List& list, const char* reason) {
  if (!IsEdit(context) || !list.Empty()) return false;
  Refuse(context.editing, reason);
  return true;
}

template <typename Table, typename List, typename Change>
void ChangeSelected(Table& table, const List& list, Change change) {
  for (const auto index : list.Items()) change(table[static_cast<std::size_t>(index)]);
}

void Redraw(const PanelContext& context) { context.editing.ports.display.RedrawMap(); }

void ResetColliderText(const PanelContext& context) {
  const std::string text(kColliderSizes.front());
  context.panel.contents.CBcollider.text = text;
  if (ToolOf(context) == ToolMode::kAddCollider)
    context.editing.state.tool.next.colliderSize = text;
}

bool IsColliderSize(double size) { return size >= kSmallestCollider && size <= kLargestCollider; }

bool IsStandardSize(double size) {
  return std::ranges::any_of(kColliderSizes, [size](std::string_view standard) {
    return LeadingNumber(standard) == size;
  });
}

}  // namespace

void CBspawn_Click(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing) return;
  const RefreshingForNow refreshing(context.panel);
  const auto& spawns = SelectionOf(context).spawns;
  if (RefusesEmpty(context, spawns, "You need select at least 1 spawnpoint.")) return;
  context.panel.contents.CBspawn.text = text;
  // Any other text means the normal team.
  const std::uint8_t team = text == kSpawnTypes[1] ? 1 : text == kSpawnTypes[2] ? 2 : 0;
  if (IsEdit(context)) {
    TakeUndoSnapshot(context.editing, "Type");
    ChangeSelected(DocumentOf(context).spawns, spawns,
                   [team](SpawnPoint& spawn) { spawn.team = team; });
  } else if (ToolOf(context) == ToolMode::kAddSpawn) {
    context.editing.state.tool.value = team;
  }
  Redraw(context);
}

void CBspawn_DropDown(const PanelContext& context) {
  ComboContents& combo = context.panel.contents.CBspawn;
  if (context.panel.panelRefreshing || combo.tag != ListTag::kFirst) return;
  combo.tag = ListTag::kEmpty;  // with items: the three types without "Many types"
}

void CBscenery_Click(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing) return;
  const auto& sceneries = SelectionOf(context).sceneries;
  if (RefusesEmpty(context, sceneries, "You need select at least 1 scenery.")) return;
  context.panel.contents.CBscenery.text = text;
  const auto row = std::ranges::find(kSceneryTypes, text, &SceneryType::name);
  // "Many types" is no type to store.
  if (row == kSceneryTypes.end() || row == kSceneryTypes.begin()) return;
  const auto type = static_cast<std::uint8_t>(row - kSceneryTypes.begin());
  if (IsEdit(context)) {
    TakeUndoSnapshot(context.editing, "Type");
    ChangeSelected(DocumentOf(context).sceneries, sceneries,
                   [type](SceneryObject& scenery) { scenery.type = type; });
  } else if (ToolOf(context) == ToolMode::kAddScenery) {
    context.editing.state.tool.value = type;
  }
  Redraw(context);
}

void CBscenery_DropDown(const PanelContext& context) {
  if (context.panel.panelRefreshing) return;
  context.panel.contents.CBscenery.tag = ListTag::kFirst;
}

void CBscenery2_Click(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing) return;
  const RefreshingForNow refreshing(context.panel);
  const auto& sceneries = SelectionOf(context).sceneries;
  if (RefusesEmpty(context, sceneries, "You need select at least 1 scenery.")) return;
  context.panel.contents.CBscenery2.text = text;
  if (text == kManyTypes) return;  // no level: as a number it would be 0, invisible
  if (IsEdit(context)) {
    const std::uint8_t level = VisibilityLevel(text);
    TakeUndoSnapshot(context.editing, "Visibility");
    ChangeSelected(DocumentOf(context).sceneries, sceneries,
                   [level](SceneryObject& scenery) { scenery.level = level; });
  } else {
    context.editing.state.tool.next.visibility = text;
  }
  Redraw(context);
}

void CBscenery2_Change(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing || ToolOf(context) != ToolMode::kAddScenery) return;
  context.panel.contents.CBscenery2.text = text;
  context.editing.state.tool.next.visibility = text;
}

void CBcollider_Change(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing || ToolOf(context) != ToolMode::kAddCollider) return;
  context.panel.contents.CBcollider.text = text;
  context.editing.state.tool.next.colliderSize = text;
}

void CBscenery2_DropDown(const PanelContext& context) {
  if (context.panel.panelRefreshing) return;
  context.panel.contents.CBscenery2.tag = ListTag::kFirst;
}

void CBscenery2_Enter(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing || text == kManyTypes) return;
  const double percentage = LeadingNumber(text);
  if (percentage < 0 || percentage > 100) {
    Refuse(context.editing, "Size is out of the limit.");
    context.panel.contents.CBscenery2.text = kVisibilities.front();
    if (!IsEdit(context)) context.editing.state.tool.next.visibility = kVisibilities.front();
    return;
  }
  CBscenery2_Click(context, NumberText(static_cast<float>(percentage)) + "%");
}

void CBcollider_Click(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing) return;
  const auto& colliders = SelectionOf(context).colliders;
  const double size = LeadingNumber(text);
  if (IsEdit(context)) {
    TakeUndoSnapshot(context.editing, "Size");
    if (RefusesEmpty(context, colliders, "You need select at least 1 collider.")) return;
    if (!IsColliderSize(size)) {
      Refuse(context.editing, "Size is out of the limit.");
      ResetColliderText(context);
      return;
    }
    ChangeSelected(DocumentOf(context).colliders, colliders,
                   [size](Collider& collider) { collider.radius = static_cast<float>(size); });
  } else if (ToolOf(context) == ToolMode::kAddCollider) {
    context.editing.state.tool.value = RoundToInt16(size);
    context.editing.state.tool.next.colliderSize = text;
  }
  context.panel.contents.CBcollider.text = text;
  Redraw(context);
}

void CBcollider_Enter(const PanelContext& context, const std::string& text) {
  if (context.panel.panelRefreshing) return;
  const double size = LeadingNumber(text);
  if (!IsColliderSize(size)) {
    Refuse(context.editing, "Size is out of the limit.");
    ResetColliderText(context);
    return;
  }
  if (!IsStandardSize(size) &&
      !context.editing.ports.dialogs.Ask(
          {.text = "You have select a custom size.\n"
                   "This will work but the official MapMaker will not show custom sized "
                   "colliders.\n"
                   "Do you still want continue?",
           .title = "Warning",
           .icon = MessageIcon::kQuestion})) {
    ResetColliderText(context);
    return;
  }
  CBcollider_Click(context, text);
}

void CBbotValinta_Click(const PanelContext& context, int index, bool isTicked) {
  if (context.panel.panelRefreshing) return;
  const auto setting = static_cast<std::size_t>(index);
  const std::uint8_t value = isTicked ? 1 : 0;
  if (IsEdit(context)) {
    const auto& waypoints = SelectionOf(context).waypoints;
    TakeUndoSnapshot(context.editing, "Editing");
    if (RefusesEmpty(context, waypoints, "You need select at least 1 waypoint.")) return;
    ChangeSelected(DocumentOf(context).waypoints, waypoints,
                   [&](Waypoint& waypoint) { waypoint.botSettings[setting] = value; });
  } else {
    context.editing.state.tool.next.botSettings[setting] = value;
  }
  context.panel.contents.CBbotValinta[setting].tick = isTicked ? Tick::kOn : Tick::kOff;
  Redraw(context);
}

void OBbotKumpi_Click(const PanelContext& context, int path) {
  if (context.panel.panelRefreshing) return;
  const auto& waypoints = SelectionOf(context).waypoints;
  if (RefusesEmpty(context, waypoints, "You need select at least 1 waypoint.")) return;
  if (IsEdit(context)) {
    TakeUndoSnapshot(context.editing, "Path");
    ChangeSelected(DocumentOf(context).waypoints, waypoints,
                   [path](Waypoint& waypoint) { waypoint.path = path; });
  } else if (ToolOf(context) == ToolMode::kAddWaypoint) {
    context.editing.state.tool.value = static_cast<std::int16_t>(path);
  }
  Redraw(context);
  const std::int16_t filter = context.editing.state.show.pathFilter;
  context.editing.ports.display.RefreshInfoPanel();
  // The path that is added to may not be hidden: the refresh sees to that.
  if (context.editing.state.show.pathFilter != filter) Redraw(context);
}

void OBbotNayta_Click(const PanelContext& context, int filter) {
  context.editing.state.show.pathFilter = static_cast<std::int16_t>(filter);
  for (std::size_t i = 0; i < context.panel.contents.OBbotNayta.size(); ++i) {
    context.panel.contents.OBbotNayta[i].chosen = static_cast<int>(i) == filter;
  }
  if (!context.panel.panelRefreshing) Redraw(context);
}

}  // namespace vesmora
