#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/angles.h"
#include "tools/property_text.h"
#include "tools/tool_change.h"
#include "tools/tool_handlers.h"

namespace vesmora {
namespace {

constexpr std::int32_t kSpawnActive = 256;

/// True, with the user told, when nothing more can be added.
template <typename TableType>
bool RefusesFull(const Editing& editing, const TableType& table, const char* kind) {
  if (!table.Full()) return false;
  Refuse(editing, std::string("Max number of ") + kind + " reached.");
  return true;
}

void Fill(const Editing& editing, SpawnPoint& spawn, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(editing, input.x, input.y);
  spawn.active = kSpawnActive;
  spawn.x = ToFixedPoint(point.x);
  spawn.y = ToFixedPoint(point.y);
  spawn.team = RoundToUint8(editing.tool.value);
}

void Fill(const Editing& editing, Collider& collider, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(editing, input.x, input.y);
  collider.active = 1;
  collider.x = point.x;
  collider.y = point.y;
  collider.radius = editing.tool.value;
}

/// Spawn points and colliders: also fills the preview, but never into the table's last slot.
template <typename TableType>
void Add(Editing& editing, TableType& table, const char* action, const MouseInput& input) {
  TakeUndoSnapshot(editing, action);
  Fill(editing, table.TakeSlot(), input);
  if (table.Count() < TableType::kCapacity - 1) Fill(editing, table.Free().front(), input);
  RefreshAll(editing);
}

template <typename TableType>
void ShowPreview(Editing& editing, TableType& table, const MouseInput& input) {
  if (table.Full()) return;
  Fill(editing, table.Free().front(), input);
  RedrawMap(editing);
}

SceneryObject MakeScenery(const Editing& editing, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(editing, input.x, input.y);
  const std::uint8_t type = RoundToUint8(editing.tool.value);
  const SceneryType& base = SceneryTypeOf(type);
  return {.active = 1,
          .type = type,
          .carried = {},
          .width = base.width,
          .height = base.height,
          .x = point.x + kSceneryOffset,
          .y = point.y + kSceneryOffset,
          .rotation = type == kLianaType ? kLianaRotation : 0,
          .scaleX = 1,
          .scaleY = 1,
          .level = VisibilityLevel(NextVisibility(editing)),
          .carriedTail = {}};
}

void PointLianaAt(Editing& editing, const MouseInput& input) {
  SceneryObject& liana = editing.document.sceneries[editing.activity.Liana()];
  const WorldPoint mouse = editing.view.ToWorld(input.x, input.y);
  const float angle = OffsetToPolar(mouse.x - liana.x, mouse.y - liana.y).angle;
  liana.rotation = editing.shiftDown ? SnapAngle45(angle) : angle;
}

}  // namespace

void PressInAddSpawn(Editing& editing, const MouseInput& input) {
  auto& spawns = editing.document.spawns;
  if (!RefusesFull(editing, spawns, "spawns")) Add(editing, spawns, "Spwan", input);
}

void MoveInAddSpawn(Editing& editing, const MouseInput& input) {
  ShowPreview(editing, editing.document.spawns, input);
}

void PressInAddScenery(Editing& editing, const MouseInput& input) {
  auto& sceneries = editing.document.sceneries;
  if (editing.activity.Is(ActivityKind::kDirection)) {
    PointLianaAt(editing, input);
    editing.activity.Forget();
    ChangeTool(editing, ToolMode::kAddScenery);
    return;
  }
  if (RefusesFull(editing, sceneries, "sceneries")) return;
  const SceneryObject scenery = MakeScenery(editing, input);
  if (scenery.type == kLianaType) {
    editing.activity.Begin(ActivityKind::kDirection, editing, sceneries.Count());
  }
  TakeUndoSnapshot(editing, "Scenery");
  sceneries.Append(scenery);
  RefreshAll(editing);
}

void MoveInAddScenery(Editing& editing, const MouseInput& input) {
  auto& sceneries = editing.document.sceneries;
  if (editing.activity.Is(ActivityKind::kDirection)) {
    PointLianaAt(editing, input);
  } else if (!sceneries.Full()) {
    sceneries.Free().front() = MakeScenery(editing, input);
  }
  RedrawMap(editing);
}

void PressInAddCollider(Editing& editing, const MouseInput& input) {
  auto& colliders = editing.document.colliders;
  if (!RefusesFull(editing, colliders, "colliders")) Add(editing, colliders, "Collider", input);
}

void MoveInAddCollider(Editing& editing, const MouseInput& input) {
  ShowPreview(editing, editing.document.colliders, input);
}

}  // namespace vesmora
