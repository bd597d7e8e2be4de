#include "tools/picking.h"

#include <utility>

#include "document/numbers.h"
#include "tools/tool_change.h"
#include "view/scenery_shape.h"

namespace vesmora {
namespace {

constexpr float kHandleReach = 3;  // world units to each side

void PutInOrder(float& low, float& high) {
  if (!(low > high)) return;
  const float farEdge = RoundToInt16(low);
  low = high;
  high = farEdge;
}

bool Contains(const SelectionBox& box, float x, float y) {
  return x >= box.left && x <= box.right && y >= box.top && y <= box.bottom;
}

/// Polygons that can be picked: not the one that is being built.
int PickablePolygons(const EditingState& state) {
  return state.document.lastPolygon + 1 - (IsConstructing(state) ? 1 : 0);
}

void FindVertices(EditingState& state, const SelectionBox& box, bool firstOnly) {
  auto& list = state.selection.vertices;
  const auto polygons = static_cast<std::int16_t>(PickablePolygons(state));
  for (std::int16_t polygon = 0; polygon < polygons; ++polygon) {
    const auto& corners = state.document.polygons[static_cast<std::size_t>(polygon)].vertices;
    constexpr std::uint8_t kCorners = 3;
    for (std::uint8_t corner = 0; corner < kCorners; ++corner) {
      if (!Contains(box, corners[corner].x, corners[corner].y)) continue;
      if (!list.Add({polygon, corner})) {
        state.selection.buttonHeld = false;  // ends the rubber band
        return;
      }
      if (firstOnly) return;
    }
  }
}

/// Adds every used record whose point lies in the box.
template <typename Table, typename List, typename PointOf>
void FindRecords(const Table& table, std::int16_t last, List& list, const SelectionBox& box,
                 PointOf pointOf) {
  using Index = typename decltype(list.entries)::value_type;
  for (int i = 0; i <= last; ++i) {
    const auto [x, y] = pointOf(table[static_cast<std::size_t>(i)]);
    if (Contains(box, x, y)) list.Add(static_cast<Index>(i));
  }
}

struct Point {
  float x;
  float y;
};

void FindWaypoints(EditingState& state, const SelectionBox& box, bool firstOnly) {
  for (std::int16_t i = 0; i <= state.document.lastWaypoint; ++i) {
    const Waypoint& waypoint = state.document.waypoints[static_cast<std::size_t>(i)];
    if (!Contains(box, FromFixedPoint(waypoint.x), FromFixedPoint(waypoint.y))) continue;
    if (!state.show.ShowsPath(waypoint.path)) continue;
    state.selection.waypoints.Add(i);
    if (firstOnly) return;
  }
}

void FindEverythingElse(EditingState& state, const SelectionBox& box) {
  const MapDocument& document = state.document;
  Selection& selection = state.selection;
  if (state.show.Shows(ShowFlag::kSpawns)) {
    FindRecords(document.spawns, document.lastSpawn, selection.spawns, box,
                [](const SpawnPoint& spawn) {
                  return Point{FromFixedPoint(spawn.x), FromFixedPoint(spawn.y)};
                });
  }
  if (state.show.Shows(ShowFlag::kSceneries)) {
    FindRecords(document.sceneries, document.lastScenery, selection.sceneries, box,
                [](const SceneryObject& scenery) {
                  return Point{scenery.x - 0.5f, scenery.y - 0.5f};
                });
  }
  if (state.show.Shows(ShowFlag::kColliders)) {
    FindRecords(document.colliders, document.lastCollider, selection.colliders, box,
                [](const Collider& collider) {
                  return Point{collider.x, collider.y};
                });
  }
}

}  // namespace

SelectionBox Normalised(SelectionBox box) {
  PutInOrder(box.left, box.right);
  PutInOrder(box.top, box.bottom);
  return box;
}

void SelectInBox(const Editing& editing, const SelectionBox& box, bool keep, SelectionKind kind) {
  EditingState& state = editing.state;
  Selection& selection = state.selection;
  ClearLists(selection);
  const SelectionBox ordered = Normalised(box);
  const bool all = kind == SelectionKind::kAll;
  if (state.show.Shows(ShowFlag::kPolygons) && kind != SelectionKind::kFirstWaypoint) {
    FindVertices(state, ordered, !all);
  }
  if (all) FindEverythingElse(state, ordered);
  if (state.show.Shows(ShowFlag::kWaypoints) && kind != SelectionKind::kFirstVertex) {
    FindWaypoints(state, ordered, !all);
  }
  if (!keep && selection.Empty() && !selection.buttonHeld) selection.box = SelectionBox{};
  editing.ports.display.RefreshInfoPanel();
}

float HoverReach(const ViewTransform& view) { return 5 / ((view.zoom + 1) / 2); }

void PickAtPoint(const Editing& editing) {
  SelectionBox& box = editing.state.selection.box;
  const std::int16_t steps = RoundToInt16(HoverReach(editing.state.view));
  for (std::int16_t i = 2; i <= steps; ++i) {
    box.left -= i;
    box.top -= i;
    box.right += i;
    box.bottom += i;
    SelectInBox(editing, box, true, SelectionKind::kAll);
    if (!editing.state.selection.Empty()) break;
  }
  SelectInBox(editing, box, false, SelectionKind::kAll);
}

bool HandleHitTest(SceneryHandle handle, const SceneryObject& scenery, std::int16_t x,
                   std::int16_t y) {
  const auto [along, across] = SidesOf(scenery);
  float handleX = scenery.x + along.x;
  float handleY = scenery.y + along.y;
  if (handle == SceneryHandle::kSize) {
    handleX += across.x;
    handleY += across.y;
  }
  return x >= handleX - kHandleReach && x <= handleX + kHandleReach &&
         y >= handleY - kHandleReach && y <= handleY + kHandleReach;
}

}  // namespace vesmora
