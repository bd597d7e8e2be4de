// The frames of the panel that show the selected objects, or what the next one gets.
#include <algorithm>
#include <optional>

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "panel/panel_parts.h"
#include "tools/property_text.h"
#include "tools/tool_change.h"
#include "view/palette.h"

namespace vesmora {
namespace {

/// The value that all listed objects share, or nothing. The list is not empty.
template <typename Items, typename ValueOf>
auto CommonValue(const Items& items, ValueOf valueOf)
    -> std::optional<decltype(valueOf(items.front()))> {
  const auto first = valueOf(items.front());
  const bool isShared =
      std::ranges::all_of(items, [&](const auto& item) { return valueOf(item) == first; });
  return isShared ? std::optional(first) : std::nullopt;
}

std::string SpawnText(std::uint8_t team) {
  return team <= kBlueTeam ? std::string(kSpawnTypes[team]) : std::string();
}

std::string SceneryName(std::uint8_t type) { return std::string(SceneryTypeOf(type).name); }

template <typename Items>
ComboList ListFor(const Items& selected) {
  return selected.size() > 1 ? ComboList::kValuesAndMany : ComboList::kValues;
}

/// `text` is what the selected objects share, empty when that is nothing or has no name.
ComboContents SharedType(ComboList list, const std::string& text) {
  const bool isMany = text.empty() && list == ComboList::kValuesAndMany;
  return {list, isMany ? std::string(kManyTypes) : text, true};
}

/// A waypoint's setting as it is stored: a check box holds 2 where it is grey.
Tick ToTick(std::uint8_t setting) {
  if (setting == 2) return Tick::kMixed;
  return setting == 0 ? Tick::kOff : Tick::kOn;
}

}  // namespace

void RefreshVertexControls(PanelContents& panel, const Editing& editing) {
  const bool isAdding = editing.IsTool(ToolMode::kAddPolygon);
  const auto vertices = editing.selection.vertices.Used();
  const bool enabled = editing.IsTool(ToolMode::kEdit) && !vertices.empty();
  panel.CBverticevari = {.enabled = enabled || isAdding, .color = {}};
  panel.CByhista.enabled = enabled && vertices.size() > 1;
  panel.CBerota.enabled = enabled && vertices.size() > 1;
  panel.CBtexPalauta.enabled = enabled;
  panel.CBtexPoista.enabled = enabled;
  panel.CBtexEiKorjaus = {.tick = editing.tool.next.noTextureCorrection ? Tick::kOn : Tick::kOff,
                          .enabled = enabled};
  panel.CBverticeLapi = {.tick = Tick::kOff, .enabled = enabled};
  if (isAdding) panel.CBverticevari.color = editing.tool.next.vertexColor;
  if (!enabled) return;

  const auto& polygons = editing.document.polygons;
  const auto isPassable = CommonValue(vertices, [&](VertexReference vertex) {
    return IsPassable(polygons[vertex.polygon].edges[vertex.corner]);
  });
  panel.CBverticeLapi.tick = !isPassable ? Tick::kMixed : *isPassable ? Tick::kOn : Tick::kOff;
  panel.CBverticevari.color = CommonValue(
      vertices, [&](VertexReference vertex) { return ToRgb(RecordOf(polygons, vertex).color); });
}

void RefreshSpawnControls(PanelContents& panel, const Editing& editing) {
  const auto spawns = editing.selection.spawns.Used();
  panel.CBspawn = {};
  if (editing.IsTool(ToolMode::kAddSpawn)) {
    panel.CBspawn = {ComboList::kValues, SpawnText(RoundToUint8(editing.tool.value)), true};
  } else if (editing.IsTool(ToolMode::kEdit) && !spawns.empty()) {
    const auto team =
        CommonValue(spawns, [&](int slot) { return editing.document.spawns[slot].team; });
    panel.CBspawn = SharedType(ListFor(spawns), team ? SpawnText(*team) : "");
  }
}

void RefreshSceneryControls(PanelContents& panel, const Editing& editing) {
  const auto& table = editing.document.sceneries;
  const auto sceneries = editing.selection.sceneries.Used();
  if (editing.IsTool(ToolMode::kAddScenery)) {
    // While a liana waits for its direction there is nothing to choose.
    const bool enabled = !editing.activity.Is(ActivityKind::kDirection);
    panel.CBscenery = {ComboList::kValues, SceneryName(RoundToUint8(editing.tool.value)), enabled};
    panel.CBscenery2 = {ComboList::kValues, NextVisibility(editing), enabled};
    return;
  }
  panel.CBscenery = {};
  panel.CBscenery2 = {};
  if (!editing.IsTool(ToolMode::kEdit) || sceneries.empty()) return;
  const auto type = CommonValue(sceneries, [&](int slot) { return table[slot].type; });
  const auto level = CommonValue(sceneries, [&](int slot) { return table[slot].level; });
  const ComboList list = ListFor(sceneries);
  panel.CBscenery = SharedType(list, type ? SceneryName(*type) : "");
  panel.CBscenery2 = SharedType(list, level ? VisibilityText(*level) : "");
}

void RefreshColliderControls(PanelContents& panel, const Editing& editing) {
  const auto colliders = editing.selection.colliders.Used();
  panel.CBcollider = {ComboList::kValues, "", false};
  if (editing.IsTool(ToolMode::kAddCollider)) {
    panel.CBcollider = {ComboList::kValues, editing.tool.next.colliderSize, true};
  } else if (editing.IsTool(ToolMode::kEdit) && !colliders.empty()) {
    const auto radius =
        CommonValue(colliders, [&](int slot) { return editing.document.colliders[slot].radius; });
    panel.CBcollider = {ComboList::kValues, radius ? NumberText(*radius) : std::string(), true};
  }
}

namespace {

/// Which path is chosen: the selected waypoints', or the next one's in the Add tool.
std::int32_t ShownPath(const Editing& editing) {
  const auto waypoints = editing.selection.waypoints.Used();
  if (waypoints.empty()) return editing.tool.value;
  return CommonValue(waypoints, [&](int slot) { return editing.document.waypoints[slot].path; })
      .value_or(0);
}

Tick BotSettingTick(const Editing& editing, std::size_t setting) {
  if (editing.IsTool(ToolMode::kAddWaypoint)) return ToTick(editing.tool.next.botSettings[setting]);
  const auto value = CommonValue(editing.selection.waypoints.Used(), [&](int slot) {
    return editing.document.waypoints[slot].botSettings[setting];
  });
  return value ? ToTick(*value) : Tick::kMixed;
}

void RefreshPathFilter(PanelContents& panel, const Editing& editing) {
  const bool isShown = editing.show.Shows(ShowFlag::kWaypoints);
  for (std::size_t i = 0; i < panel.OBbotNayta.size(); ++i) {
    panel.OBbotNayta[i] = {.chosen = editing.show.pathFilter == static_cast<std::int16_t>(i),
                           .enabled = isShown};
  }
  if (!editing.IsTool(ToolMode::kAddWaypoint)) return;
  // The path that waypoints are added to may not be hidden.
  if (panel.OBbotKumpi[0].chosen) panel.OBbotNayta[2].enabled = false;
  if (panel.OBbotKumpi[1].chosen) panel.OBbotNayta[1].enabled = false;
}

}  // namespace

void RefreshWaypointControls(PanelContents& panel, const Editing& editing) {
  const bool isAdding = editing.IsTool(ToolMode::kAddWaypoint);
  const bool hasWaypoints = editing.IsTool(ToolMode::kEdit) && !editing.selection.waypoints.Empty();
  panel.OBbotKumpi.fill({.chosen = false, .enabled = false});
  panel.CBbotValinta.fill({.tick = Tick::kOff, .enabled = false});
  if (isAdding || hasWaypoints) {
    const std::int32_t path = ShownPath(editing);
    panel.OBbotKumpi = {{{path == 1, true}, {path == 2, true}}};
    for (std::size_t i = 0; i < panel.CBbotValinta.size(); ++i) {
      panel.CBbotValinta[i] = {.tick = BotSettingTick(editing, i), .enabled = true};
    }
  }
  RefreshPathFilter(panel, editing);
}

}  // namespace vesmora
