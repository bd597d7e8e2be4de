#include "tools/edit_commands.h"

#include <algorithm>
#include <functional>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/texture_mapping.h"
#include "tools/picking.h"

namespace vesmora {
namespace {

/// Turns records over about a centre, across one axis.
struct TurnOver {
  bool isLeftRight;
  float center;

  void operator()(PolygonVertex& corner) const {
    const float textureSize = isLeftRight ? kTextureWidth : kTextureHeight;
    Mirror(isLeftRight ? corner.u : corner.v, center / textureSize);
    MirrorPlace(corner);
  }
  void operator()(Collider& collider) const { MirrorPlace(collider); }
  void operator()(SceneryObject& scenery) const {
    MirrorPlace(scenery);
    float& scale = isLeftRight ? scenery.scaleY : scenery.scaleX;
    scale = -scale;
    scenery.rotation = kPi - scenery.rotation;
  }
  void operator()(SpawnPoint& spawn) const { MirrorPlace(spawn); }
  void operator()(Waypoint& waypoint) const {
    MirrorPlace(waypoint);
    auto& settings = waypoint.botSettings;  // left, right, up, down
    if (isLeftRight) {
      std::swap(settings[0], settings[1]);
    } else {
      std::swap(settings[2], settings[3]);
    }
  }

 private:
  template <typename Record>
  void MirrorPlace(Record& record) const {
    Mirror(isLeftRight ? record.x : record.y, center);
  }
  static void Mirror(float& value, float about) { value = about - (value - about); }
  static void Mirror(std::int32_t& fixedPoint, double about) {
    fixedPoint = RoundToInt32(-(fixedPoint - about * 256.0) + about * 256.0);
  }
};

void TurnOverSelection(Editing& editing, const char* action, bool isLeftRight) {
  if (editing.selection.Empty()) {
    Refuse(editing, "You need select something at first.");
    return;
  }
  EndActivity(editing);
  RequireBox(editing);
  TakeUndoSnapshot(editing, action);
  const WorldPoint center = editing.selection.box.Center();
  VisitSelected(editing.document, editing.selection,
                TurnOver{isLeftRight, isLeftRight ? center.x : center.y});
  RefreshAll(editing);
}

/// Puts the used records of a table into an order that `arrange` makes of their slots; it is told
/// which of them are among `selected`, which rise.
template <typename TableType, typename Slots, typename Arrange>
void Reorder(TableType& table, const Slots& selected, Arrange arrange) {
  const auto records = table.Used();
  std::vector<int> order(records.size());
  std::iota(order.begin(), order.end(), 0);
  arrange(std::span(order),
          [&selected](int slot) { return std::ranges::binary_search(selected, slot); });
  const std::vector before(records.begin(), records.end());
  std::ranges::transform(order, records.begin(),
                         [&before](int slot) { return before[static_cast<std::size_t>(slot)]; });
}

/// Polygons and sceneries alone are drawn in the order of their slots.
template <typename Arrange>
void ReorderSelection(Editing& editing, const char* action, Arrange arrange) {
  EndActivity(editing);
  TakeUndoSnapshot(editing, action);
  const PolygonSlots polygons = SelectedPolygons(editing.selection);
  Reorder(editing.document.polygons, polygons.Used(), arrange);
  Reorder(editing.document.sceneries, editing.selection.sceneries.Used(), arrange);
  ClearSelection(editing);
  RefreshAll(editing);
}

}  // namespace

void MenuSelectAll(Editing& editing) {
  ClearSelection(editing);
  ListAllShown(editing.document, editing.show, editing.selection);
  UpdateSelectionBox(editing.selection, editing.document);
  RefreshAll(editing);
}

void MenuMirror(Editing& editing) { TurnOverSelection(editing, "Mirror", true); }

void MenuFlip(Editing& editing) { TurnOverSelection(editing, "Flip", false); }

void MenuFront(Editing& editing) {
  ReorderSelection(editing, "Bring", [](std::span<int> order, auto isSelected) {
    std::stable_partition(order.begin(), order.end(), std::not_fn(isSelected));
  });
}

void MenuBack(Editing& editing) {
  ReorderSelection(editing, "Send", [](std::span<int> order, auto isSelected) {
    const auto rest = std::stable_partition(order.begin(), order.end(), isSelected);
    std::reverse(order.begin(), rest);  // one after the other goes behind all
  });
}

}  // namespace vesmora
