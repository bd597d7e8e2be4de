#include "tools/picking.h"

#include "document/numbers.h"
#include "view/scenery_shape.h"

namespace vesmora {
namespace {

constexpr float kHandleReach = 3;  // world units to each side

template <typename Record>
bool PassesPathFilter(const ShowOptions& /*show*/, const Record& /*record*/) {
  return true;
}
bool PassesPathFilter(const ShowOptions& show, const Waypoint& waypoint) {
  return show.ShowsPath(waypoint.path);
}

/// Lists what is shown and `isWanted`.
template <typename Filter>
void ListWhere(const MapDocument& document, const ShowOptions& show, SelectionKind kind,
               Selection& selection, Filter isWanted) {
  ClearLists(selection);
  const bool all = kind == SelectionKind::kAll;
  const auto listShown = [&]<typename Entry, int kEntries>(ShowFlag flag, const auto& table,
                                                           Table<Entry, kEntries>& list) {
    if (!show.Shows(flag)) return;
    VisitEntries(table, 0, [&](auto entry, const auto& record) {
      if (!isWanted(record) || !PassesPathFilter(show, record)) return true;
      return list.Append(static_cast<Entry>(entry)) && all;
    });
  };
  if (all || kind == SelectionKind::kFirstVertex) {
    listShown(ShowFlag::kPolygons, document.polygons, selection.vertices);
  }
  if (all) {
    listShown(ShowFlag::kSpawns, document.spawns, selection.spawns);
    listShown(ShowFlag::kSceneries, document.sceneries, selection.sceneries);
    listShown(ShowFlag::kColliders, document.colliders, selection.colliders);
  }
  if (all || kind == SelectionKind::kFirstWaypoint) {
    listShown(ShowFlag::kWaypoints, document.waypoints, selection.waypoints);
  }
}

}  // namespace

void ListInBox(const MapDocument& document, const ShowOptions& show, const SelectionBox& box,
               SelectionKind kind, Selection& selection) {
  ListWhere(document, show, kind, selection,
            [&box](const auto& record) { return box.Contains(PlaceOf(record)); });
}

void ListAllShown(const MapDocument& document, const ShowOptions& show, Selection& selection) {
  ListWhere(document, show, SelectionKind::kAll, selection,
            [](const auto& /*record*/) { return true; });
}

void SelectInBox(Editing& editing, const SelectionBox& box, bool keep, SelectionKind kind) {
  Selection& selection = editing.selection;
  ListInBox(editing.document, editing.show, Normalised(box), kind, selection);
  // A triangle that is being built, the last polygon, cannot be picked.
  auto& vertices = selection.vertices;
  const std::int16_t unfinished = editing.document.polygons.last;
  const bool isBuilding = editing.activity.PlacedCorners() > 0;
  while (isBuilding && !vertices.Empty() && vertices.Last().polygon == unfinished) {
    vertices.DropLast();
  }
  if (!keep && selection.Empty() && !editing.activity.HoldsButton()) {
    selection.box = SelectionBox{};
  }
  RefreshInfoPanel(editing);
}

float HoverReach(const ViewTransform& view) { return 5 / ((view.zoom + 1) / 2); }

SelectionBox HoverBox(const ViewTransform& view, WorldPoint center) {
  const float reach = HoverReach(view);
  return {.left = center.x - reach,
          .right = center.x + reach,
          .top = center.y - reach,
          .bottom = center.y + reach};
}

void PickAtPoint(Editing& editing) {
  SelectionBox& box = editing.selection.box;
  const std::int16_t steps = RoundToInt16(HoverReach(editing.view));
  for (std::int16_t i = 2; i <= steps; ++i) {
    box.left -= i;
    box.top -= i;
    box.right += i;
    box.bottom += i;
    SelectInBox(editing, box, true, SelectionKind::kAll);
    if (!editing.selection.Empty()) break;
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
