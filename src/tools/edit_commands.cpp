#include "tools/edit_commands.h"

#include <algorithm>

#include "document/geometry.h"
#include "document/numbers.h"
#include "tools/texture_mapping.h"

namespace vesmora {
namespace {

float MirroredAt(float center, float value) { return center - (value - center); }

std::int32_t MirroredFixedPoint(double center, std::int32_t value) {
  return RoundToInt32(-(value - center * 256.0) + center * 256.0);
}

/// Which way things are turned over: one axis of every record.
struct Axis {
  const char* action;
  float PolygonVertex::*place;
  float PolygonVertex::*texture;
  float textureSize;
  float SceneryObject::*sceneryPlace;
  float SceneryObject::*sceneryScale;
  float Collider::*colliderPlace;
  std::int32_t SpawnPoint::*spawnPlace;
  std::int32_t Waypoint::*waypointPlace;
  std::size_t firstBotSetting;  // of the two directions that change places
};

constexpr Axis kLeftRight = {"Mirror",          &PolygonVertex::x,
                             &PolygonVertex::u, kTextureWidth,
                             &SceneryObject::x, &SceneryObject::scaleY,
                             &Collider::x,      &SpawnPoint::x,
                             &Waypoint::x,      0};
constexpr Axis kUpDown = {"Flip",
                          &PolygonVertex::y,
                          &PolygonVertex::v,
                          kTextureHeight,
                          &SceneryObject::y,
                          &SceneryObject::scaleX,
                          &Collider::y,
                          &SpawnPoint::y,
                          &Waypoint::y,
                          2};

void TurnOverSelection(EditingState& state, const Axis& axis, float center) {
  MapDocument& document = state.document;
  const Selection& selection = state.selection;
  for (const VertexReference vertex : selection.vertices.Items()) {
    PolygonVertex& corner =
        document.polygons[static_cast<std::size_t>(vertex.polygon)].vertices[vertex.corner];
    corner.*axis.texture = MirroredAt(center / axis.textureSize, corner.*axis.texture);
    corner.*axis.place = MirroredAt(center, corner.*axis.place);
  }
  for (const std::uint8_t index : selection.colliders.Items()) {
    Collider& collider = document.colliders[index];
    collider.*axis.colliderPlace = MirroredAt(center, collider.*axis.colliderPlace);
  }
  for (const std::uint8_t index : selection.sceneries.Items()) {
    SceneryObject& scenery = document.sceneries[index];
    scenery.*axis.sceneryPlace = MirroredAt(center, scenery.*axis.sceneryPlace);
    scenery.*axis.sceneryScale = -(scenery.*axis.sceneryScale);
    scenery.rotation = kPi - scenery.rotation;
  }
  for (const std::uint8_t index : selection.spawns.Items()) {
    SpawnPoint& spawn = document.spawns[index];
    spawn.*axis.spawnPlace = MirroredFixedPoint(center, spawn.*axis.spawnPlace);
  }
  for (const std::int16_t index : selection.waypoints.Items()) {
    Waypoint& waypoint = document.waypoints[static_cast<std::size_t>(index)];
    waypoint.*axis.waypointPlace = MirroredFixedPoint(center, waypoint.*axis.waypointPlace);
    std::swap(waypoint.botSettings[axis.firstBotSetting],
              waypoint.botSettings[axis.firstBotSetting + 1]);
  }
}

void TurnOver(const Editing& editing, const Axis& axis) {
  const SelectionBox& box = editing.state.selection.box;
  if (editing.state.selection.Empty()) {
    Refuse(editing, "You need select something at first.");
    return;
  }
  EndMouseWork(editing.state);
  TakeUndoSnapshot(editing, axis.action);
  const bool isMirror = &axis == &kLeftRight;
  const float center = isMirror ? (box.left + box.right) / 2 : (box.top + box.bottom) / 2;
  TurnOverSelection(editing.state, axis, center);
  RefreshAll(editing);
}

template <typename Table>
void MoveToEnd(Table& table, int slot, int last) {
  std::rotate(table.begin() + slot, table.begin() + slot + 1, table.begin() + last + 1);
}

template <typename Table>
void MoveToStart(Table& table, int slot) {
  std::rotate(table.begin(), table.begin() + slot, table.begin() + slot + 1);
}

/// Calls `move` once for each polygon that has selected corners, in list order.
template <typename Move>
void ForEachSelectedPolygon(const Selection& selection, Move move) {
  int previous = -1;
  for (const VertexReference& vertex : selection.vertices.Items()) {
    if (vertex.polygon != previous) move(int{vertex.polygon});
    previous = vertex.polygon;
  }
}

void FinishReordering(const Editing& editing) {
  ClearSelection(editing.state.selection, editing.ports.display);
  RefreshAll(editing);
}

}  // namespace

void MenuMirror(const Editing& editing) { TurnOver(editing, kLeftRight); }

void MenuFlip(const Editing& editing) { TurnOver(editing, kUpDown); }

void MenuFront(const Editing& editing) {
  MapDocument& document = editing.state.document;
  const Selection& selection = editing.state.selection;
  EndMouseWork(editing.state);
  TakeUndoSnapshot(editing, "Bring");
  int moved = 0;  // each one taken out moves the later ones down
  ForEachSelectedPolygon(selection, [&](int polygon) {
    MoveToEnd(document.polygons, polygon - moved, document.lastPolygon);
    MoveToEnd(document.normals, polygon - moved, document.lastPolygon);
    ++moved;
  });
  moved = 0;
  for (const int scenery : selection.sceneries.Items()) {
    MoveToEnd(document.sceneries, scenery - moved++, document.lastScenery);
  }
  FinishReordering(editing);
}

void MenuBack(const Editing& editing) {
  MapDocument& document = editing.state.document;
  const Selection& selection = editing.state.selection;
  EndMouseWork(editing.state);
  TakeUndoSnapshot(editing, "Send");
  ForEachSelectedPolygon(selection, [&](int polygon) {
    MoveToStart(document.polygons, polygon);
    MoveToStart(document.normals, polygon);
  });
  for (const int scenery : selection.sceneries.Items()) MoveToStart(document.sceneries, scenery);
  FinishReordering(editing);
}

}  // namespace vesmora
