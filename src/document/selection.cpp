#include "document/selection.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr float kSmallestExtent = 4.0f;  // world units

/// The stretch of one axis that is taken up. What is infinite or no number does not count:
/// moves that follow from it would carry it into every other object.
struct Extent {
  float low = std::numeric_limits<float>::max();
  float high = std::numeric_limits<float>::lowest();

  void Include(float value) {
    if (!std::isfinite(value)) return;
    low = std::min(low, value);
    high = std::max(high, value);
  }
  bool Empty() const { return low > high; }
};

struct Bounds {
  Extent across;
  Extent down;

  void Include(float x, float y) {
    across.Include(x);
    down.Include(y);
  }
  SelectionBox AsBox() const {
    const Extent x = across.Empty() ? Extent{0, 0} : across;
    const Extent y = down.Empty() ? Extent{0, 0} : down;
    return {x.low, x.high, y.low, y.high};
  }
};

void Widen(float& low, float& high) {
  if (high - low >= kSmallestExtent) return;
  const float center = (low + high) / 2;
  low = center - kSmallestExtent / 2;
  high = center + kSmallestExtent / 2;
}

int SlotOf(int index) { return index; }
int SlotOf(const VertexReference& vertex) { return vertex.polygon; }

template <typename List>
void DropBehind(List& list, std::int16_t last) {
  const auto end = std::remove_if(list.entries.begin(), list.entries.begin() + list.Count(),
                                  [last](const auto& entry) { return SlotOf(entry) > last; });
  list.last = static_cast<std::int16_t>(end - list.entries.begin() - 1);
}

}  // namespace

std::int16_t Selection::TotalCounter() const {
  return static_cast<std::int16_t>(vertices.Count() + spawns.Count() + sceneries.Count() +
                                   colliders.Count() + waypoints.Count() - 1);
}

void ClearLists(Selection& selection) {
  selection.vertices.Clear();
  selection.spawns.Clear();
  selection.sceneries.Clear();
  selection.colliders.Clear();
  selection.waypoints.Clear();
}

void ClearSelection(Selection& selection, Display& display) {
  ClearLists(selection);
  selection.box = SelectionBox{};
  selection.connectionAnchor = kNoIndex;
  selection.buttonHeld = false;
  selection.placing = false;
  selection.moveSnapshotTaken = false;
  display.SetPointer(PointerShape::kDefault);
}

void EndDrag(Selection& selection) {
  selection.buttonHeld = false;
  selection.moving = false;
  selection.rotating = false;
  selection.sizing = false;
  selection.placing = false;
}

void ResetDragState(Selection& selection) {
  EndDrag(selection);
  selection.moveSnapshotTaken = false;
  selection.connectionAnchor = kNoIndex;
}

void DropMissing(Selection& selection, const MapDocument& document) {
  const bool wasEmpty = selection.Empty();
  DropBehind(selection.vertices, document.lastPolygon);
  DropBehind(selection.spawns, document.lastSpawn);
  DropBehind(selection.sceneries, document.lastScenery);
  DropBehind(selection.colliders, document.lastCollider);
  DropBehind(selection.waypoints, document.lastWaypoint);
  if (selection.Empty() && !wasEmpty) selection.box = SelectionBox{};
}

SelectionBox BoundsOf(const Selection& selection, const MapDocument& document) {
  if (selection.Empty()) return {};
  Bounds bounds;
  for (const VertexReference vertex : selection.vertices.Items()) {
    const PolygonVertex& corner =
        document.polygons[static_cast<std::size_t>(vertex.polygon)].vertices[vertex.corner];
    bounds.Include(corner.x, corner.y);
  }
  for (const std::uint8_t index : selection.spawns.Items()) {
    const SpawnPoint& spawn = document.spawns[index];
    bounds.Include(FromFixedPoint(spawn.x), FromFixedPoint(spawn.y));
  }
  for (const std::uint8_t index : selection.sceneries.Items()) {
    const SceneryObject& scenery = document.sceneries[index];
    bounds.Include(scenery.x - 0.5f, scenery.y - 0.5f);
  }
  for (const std::uint8_t index : selection.colliders.Items()) {
    const Collider& collider = document.colliders[index];
    bounds.Include(collider.x, collider.y);
  }
  for (const std::int16_t index : selection.waypoints.Items()) {
    const Waypoint& waypoint = document.waypoints[static_cast<std::size_t>(index)];
    bounds.Include(FromFixedPoint(waypoint.x), FromFixedPoint(waypoint.y));
  }
  return bounds.AsBox();
}

void CompleteSelectionBox(Selection& selection, const MapDocument& document) {
  if (!selection.Empty() && !selection.box.Complete()) UpdateSelectionBox(selection, document);
}

void UpdateSelectionBox(Selection& selection, const MapDocument& document) {
  selection.box = BoundsOf(selection, document);
  if (selection.Empty()) return;
  Widen(selection.box.left, selection.box.right);
  Widen(selection.box.top, selection.box.bottom);
}

}  // namespace vesmora
