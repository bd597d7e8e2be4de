#include "tools/edit_commands.h"

#include <algorithm>
#include <utility>

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

template <typename TableType>
void MoveToEnd(TableType& table, int slot) {
  const auto used = table.Used();
  std::rotate(used.begin() + slot, used.begin() + slot + 1, used.end());
}

template <typename TableType>
void MoveToStart(TableType& table, int slot) {
  const auto used = table.Used();
  std::rotate(used.begin(), used.begin() + slot, used.begin() + slot + 1);
}

/// Polygons and sceneries alone are drawn in the order of their slots. `reorder` gets a table
/// and its selected slots, each once.
template <typename Reorder>
void ReorderSelection(Editing& editing, const char* action, Reorder reorder) {
  EndActivity(editing);
  TakeUndoSnapshot(editing, action);
  const PolygonSlots polygons = SelectedPolygons(editing.selection);
  reorder(editing.document.polygons, polygons.Used());
  reorder(editing.document.sceneries, editing.selection.sceneries.Used());
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
  ReorderSelection(editing, "Bring", [](auto& table, auto slots) {
    int moved = 0;  // each one taken out moves the later ones down
    for (const int slot : slots) MoveToEnd(table, slot - moved++);
  });
}

void MenuBack(Editing& editing) {
  ReorderSelection(editing, "Send", [](auto& table, auto slots) {
    for (const int slot : slots) MoveToStart(table, slot);
  });
}

}  // namespace vesmora
