// The frames of the panel that show the selected objects, or what the next one gets.
#include <algorithm>
#include <cmath>

#include "document/numbers.h"
#include "document/scenery_types.h"
#include "panel/panel_parts.h"
#include "tools/property_text.h"
#include "view/palette.h"

namespace vesmora {
namespace {

template <typename Table>
const auto& At(const Table& table, std::int64_t index) {
  return table[static_cast<std::size_t>(index)];
}

/// The value that all listed objects share, or nothing. The list is not empty.
template <typename Items, typename ValueOf>
auto CommonValue(const Items& items, ValueOf valueOf)
    -> std::optional<decltype(valueOf(items.front()))> {
  const auto first = valueOf(items.front());
  const bool isShared =
      std::ranges::all_of(items, [&](const auto& item) { return valueOf(item) == first; });
  return isShared ? std::optional(first) : std::nullopt;
}

void Disable(ComboContents& combo) {
  combo = {.tag = ListTag::kEmpty, .text = "", .enabled = false};
}

std::string SpawnText(std::uint8_t team) {
  return team < kSpawnTypes.size() ? std::string(kSpawnTypes[team]) : std::string();
}

std::string SceneryName(std::uint8_t type) { return std::string(SceneryTypeOf(type).name); }

Tick ToTick(std::uint8_t value) { return value == 0 ? Tick::kOff : Tick::kOn; }

}  // namespace

void RefreshVertexControls(PanelContents& panel, const EditingState& state) {
  const ToolMode tool = state.document.toolIndex;
  const auto vertices = state.selection.vertices.Items();
  const bool enabled = tool == ToolMode::kEdit && !vertices.empty();
  panel.CBverticevari = {.enabled = enabled || tool == ToolMode::kAddPolygon, .color = {}};
  panel.CByhista.enabled = enabled && vertices.size() > 1;
  panel.CBerota.enabled = enabled && vertices.size() > 1;
  panel.CBtexPalauta.enabled = enabled;
  panel.CBtexPoista.enabled = enabled;
  panel.CBtexEiKorjaus = {.tick = state.tool.next.noTextureCorrection ? Tick::kOn : Tick::kOff,
                          .enabled = enabled};
  panel.CBverticeLapi = {.tick = Tick::kOff, .enabled = enabled};
  if (tool == ToolMode::kAddPolygon) panel.CBverticevari.color = state.tool.next.vertexColor;
  if (!enabled) return;

  const MapDocument& document = state.document;
  const auto isPassable = CommonValue(vertices, [&](const VertexReference& vertex) {
    const Normal& normal = At(document.normals, vertex.polygon).edges[vertex.corner];
    return normal.x == 0 && normal.y == 0;
  });
  panel.CBverticeLapi.tick = !isPassable ? Tick::kMixed : *isPassable ? Tick::kOn : Tick::kOff;
  panel.CBverticevari.color = CommonValue(vertices, [&](const VertexReference& vertex) {
    return ToRgb(At(document.polygons, vertex.polygon).vertices[vertex.corner].color);
  });
}

void RefreshSpawnControls(PanelContents& panel, const EditingState& state) {
  ComboContents& combo = panel.CBspawn;
  const auto spawns = state.selection.spawns.Items();
  const ToolMode tool = state.document.toolIndex;
  if (tool == ToolMode::kAddSpawn) {
    combo = {ListTag::kThird, SpawnText(RoundToUint8(state.tool.value)), true};
  } else if (tool != ToolMode::kEdit || spawns.empty()) {
    Disable(combo);
  } else {
    const auto team = CommonValue(
        spawns, [&](std::uint8_t index) { return At(state.document.spawns, index).team; });
    combo = {spawns.size() > 1 ? ListTag::kFirst : ListTag::kSecond,
             team ? SpawnText(*team) : std::string(kManyTypes), true};
  }
}

void RefreshSceneryControls(PanelContents& panel, EditingState& state) {
  const MapDocument& document = state.document;
  const auto sceneries = state.selection.sceneries.Items();
  if (document.toolIndex == ToolMode::kAddScenery) {
    const bool hasType = state.tool.value != kNoToolValue;
    panel.CBscenery.tag = ListTag::kFirst;
    panel.CBscenery.enabled = hasType;
    if (hasType) panel.CBscenery.text = SceneryName(RoundToUint8(state.tool.value));
    const std::string visibility =
        document.lastScenery < 0
            ? std::string(kVisibilities.front())
            : VisibilityText(At(document.sceneries, document.lastScenery).level);
    panel.CBscenery2 = {ListTag::kThird, visibility, hasType};
    state.tool.next.visibility = visibility;
    return;
  }
  if (document.toolIndex != ToolMode::kEdit || sceneries.empty()) {
    Disable(panel.CBscenery);
    Disable(panel.CBscenery2);
    return;
  }
  const ListTag tag = sceneries.size() > 1 ? ListTag::kSecond : ListTag::kFirst;
  const auto type = CommonValue(
      sceneries, [&](std::uint8_t index) { return At(document.sceneries, index).type; });
  const auto level = CommonValue(
      sceneries, [&](std::uint8_t index) { return At(document.sceneries, index).level; });
  panel.CBscenery = {tag, type ? SceneryName(*type) : std::string(kManyTypes), true};
  panel.CBscenery2 = {tag, level ? VisibilityText(*level) : std::string(kManyTypes), true};
}

void RefreshColliderControls(PanelContents& panel, const EditingState& state) {
  ComboContents& combo = panel.CBcollider;
  const auto colliders = state.selection.colliders.Items();
  const ToolMode tool = state.document.toolIndex;
  if (tool == ToolMode::kAddCollider) {
    combo = {ListTag::kFirst, state.tool.next.colliderSize, true};
  } else if (tool != ToolMode::kEdit || colliders.empty()) {
    combo = {ListTag::kFirst, "", false};
  } else {
    const auto radius = CommonValue(
        colliders, [&](std::uint8_t index) { return At(state.document.colliders, index).radius; });
    combo = {ListTag::kFirst, radius ? NumberText(*radius) : std::string(), true};
  }
}

namespace {

/// Which path is chosen: the selected waypoints', or the next one's in the Add tool.
std::int32_t ShownPath(const EditingState& state) {
  const auto waypoints = state.selection.waypoints.Items();
  if (waypoints.empty()) return state.tool.value;
  return CommonValue(waypoints,
                     [&](std::int16_t index) { return At(state.document.waypoints, index).path; })
      .value_or(0);
}

void RefreshBotSettings(PanelContents& panel, EditingState& state) {
  const auto waypoints = state.selection.waypoints.Items();
  auto& next = state.tool.next.botSettings;
  const bool isAdding = state.document.toolIndex == ToolMode::kAddWaypoint;
  // The boxes are what the next waypoint gets: the one under the pointer lends its own.
  if (isAdding && !waypoints.empty()) {
    next = At(state.document.waypoints, waypoints.front()).botSettings;
  }
  for (std::size_t i = 0; i < panel.CBbotValinta.size(); ++i) {
    CheckContents& box = panel.CBbotValinta[i];
    box.enabled = true;
    if (isAdding) {
      box.tick = ToTick(next[i]);
      continue;
    }
    const auto value = CommonValue(waypoints, [&](std::int16_t index) {
      return At(state.document.waypoints, index).botSettings[i];
    });
    box.tick = value ? ToTick(*value) : Tick::kMixed;
  }
}

/// The path that waypoints are added to may not be hidden.
void RefreshPathFilter(PanelContents& panel, EditingState& state) {
  std::int16_t& filter = state.show.pathFilter;
  const bool isShown = state.show.Shows(ShowFlag::kWaypoints);
  for (OptionContents& option : panel.OBbotNayta) option.enabled = isShown;
  if (isShown && state.document.toolIndex == ToolMode::kAddWaypoint) {
    for (std::size_t path = 1; path <= 2; ++path) {
      if (!panel.OBbotKumpi[path - 1].chosen) continue;
      const std::size_t other = 3 - path;
      panel.OBbotNayta[other].enabled = false;
      if (filter == static_cast<std::int16_t>(other)) filter = 0;
    }
  }
  for (std::size_t i = 0; i < panel.OBbotNayta.size(); ++i) {
    panel.OBbotNayta[i].chosen = filter == static_cast<std::int16_t>(i);
  }
}

}  // namespace

void RefreshWaypointControls(PanelContents& panel, EditingState& state) {
  const ToolMode tool = state.document.toolIndex;
  const bool hasWaypoints = tool == ToolMode::kEdit && !state.selection.waypoints.Empty();
  if (tool == ToolMode::kAddWaypoint || hasWaypoints) {
    const std::int32_t path = ShownPath(state);
    panel.OBbotKumpi = {{{path == 1, true}, {path == 2, true}}};
    RefreshBotSettings(panel, state);
  } else {
    panel.OBbotKumpi = {{{false, false}, {false, false}}};
    panel.CBbotValinta.fill({.tick = Tick::kOff, .enabled = false});
  }
  RefreshPathFilter(panel, state);
}

}  // namespace vesmora
