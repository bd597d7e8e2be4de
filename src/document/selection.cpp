#include "document/selection.h"

#include <algorithm>

#include "document/extent.h"
#include "document/numbers.h"

namespace vesmora {
namespace {

constexpr float kSmallestExtent = 4.0f;  // world units

void Widen(float& low, float& high) {
  if (high - low >= kSmallestExtent) return;
  const float center = (low + high) / 2;
  low = center - kSmallestExtent / 2;
  high = center + kSmallestExtent / 2;
}

void PutInOrder(float& low, float& high) {
  if (!(low > high)) return;
  const float farEdge = RoundToInt16(low);
  low = high;
  high = farEdge;
}

}  // namespace

std::int16_t Selection::TotalCounter() const {
  return static_cast<std::int16_t>(vertices.Count() + spawns.Count() + sceneries.Count() +
                                   colliders.Count() + waypoints.Count() - 1);
}

PolygonSlots SelectedPolygons(const Selection& selection) {
  PolygonSlots polygons;
  for (const VertexReference& vertex : selection.vertices.Used()) {
    if (polygons.Empty() || polygons.Last() != vertex.polygon) polygons.Append(vertex.polygon);
  }
  return polygons;
}

void ClearLists(Selection& selection) {
  selection.vertices.Clear();
  selection.spawns.Clear();
  selection.sceneries.Clear();
  selection.colliders.Clear();
  selection.waypoints.Clear();
  selection.moveSnapshotTaken = false;
}

void Deselect(Selection& selection) {
  ClearLists(selection);
  selection.box = SelectionBox{};
}

void DropMissing(Selection& selection, const MapDocument& document) {
  const bool wasEmpty = selection.Empty();
  VisitLists(document, selection, [](const auto& table, auto& list) {
    const auto isMissing = [&](const auto& entry) { return SlotOf(entry) > table.last; };
    const auto used = list.Used();
    const auto end = std::remove_if(used.begin(), used.end(), isMissing);
    list.SetCount(static_cast<int>(end - used.begin()));
  });
  if (selection.Empty() && !wasEmpty) Deselect(selection);
}

SelectionBox BoundsOf(const Selection& selection, const MapDocument& document) {
  if (selection.Empty()) return {};
  Extent x;
  Extent y;
  VisitSelected(document, selection, [&](const auto& record) {
    const WorldPoint place = PlaceOf(record);
    x.Include(place.x);
    y.Include(place.y);
  });
  if (x.Empty()) x = {0, 0};
  if (y.Empty()) y = {0, 0};
  return {x.low, x.high, y.low, y.high};
}

void UpdateSelectionBox(Selection& selection, const MapDocument& document) {
  selection.box = BoundsOf(selection, document);
  if (selection.Empty()) return;
  Widen(selection.box.left, selection.box.right);
  Widen(selection.box.top, selection.box.bottom);
}

SelectionBox Normalised(SelectionBox box) {
  PutInOrder(box.left, box.right);
  PutInOrder(box.top, box.bottom);
  return box;
}

}  // namespace vesmora
