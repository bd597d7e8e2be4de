#include "tools/add_objects.h"

#include "document/geometry.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "tools/angles.h"
#include "tools/property_text.h"
#include "tools/slot.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

constexpr std::int32_t kSpawnActive = 256;
constexpr float kSceneryOffset = 0.5f;

void FillSpawn(const EditingState& state, SpawnPoint& spawn, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(state, input.x, input.y);
  spawn.active = kSpawnActive;
  spawn.x = ToFixedPoint(point.x);
  spawn.y = ToFixedPoint(point.y);
  spawn.team = RoundToUint8(state.tool.value);
}

void FillCollider(const EditingState& state, Collider& collider, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(state, input.x, input.y);
  collider.active = 1;
  collider.x = static_cast<float>(point.x);
  collider.y = static_cast<float>(point.y);
  collider.radius = state.tool.value;
}

SceneryObject MakeScenery(const EditingState& state, const MouseInput& input) {
  const WorldPoint point = PlacedPoint(state, input.x, input.y);
  const std::uint8_t type = RoundToUint8(state.tool.value);
  const SceneryType& base = SceneryTypeOf(type);
  return {.active = 1,
          .type = type,
          .carried = {},
          .width = base.width,
          .height = base.height,
          .x = static_cast<float>(point.x) + kSceneryOffset,
          .y = static_cast<float>(point.y) + kSceneryOffset,
          .rotation = type == kLianaType ? kLianaRotation : 0,
          .scaleX = 1,
          .scaleY = 1,
          .level = VisibilityLevel(state.tool.next.visibility),
          .carriedTail = {}};
}

bool IsDirectionPending(const EditingState& state) { return state.tool.value == kNoToolValue; }

void PointSceneryAt(EditingState& state, const MouseInput& input) {
  SceneryObject* scenery = PendingScenery(state);
  if (scenery == nullptr) return;
  const float dx = state.view.LaskeRuutu2X(input.x) - scenery->x;
  const float dy = state.view.LaskeRuutu2Y(input.y) - scenery->y;
  const float angle = OffsetToPolar(dx, dy).angle;
  scenery->rotation = state.shiftDown ? SnapAngle45(angle) : angle;
}

}  // namespace

void PressInAddSpawn(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (document.lastSpawn >= kSpawnCapacity - 1) {
    Refuse(editing, "Max number of spawns reached.");
    return;
  }
  TakeUndoSnapshot(editing, "Spwan");
  FillSpawn(state, SlotAt(document.spawns, ++document.lastSpawn), input);
  const int next = document.lastSpawn + 1;
  if (next < kSpawnCapacity - 1) FillSpawn(state, SlotAt(document.spawns, next), input);
  RefreshAll(editing);
}

void MoveInAddSpawn(const Editing& editing, const MouseInput& input) {
  MapDocument& document = editing.state.document;
  if (document.lastSpawn >= kSpawnCapacity - 1) return;
  FillSpawn(editing.state, SlotAt(document.spawns, document.lastSpawn + 1), input);
  editing.ports.display.RedrawMap();
}

void PressInAddScenery(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (IsDirectionPending(state)) {
    PointSceneryAt(state, input);
    state.tool.value = 0;
    ChangeTool(editing, ToolMode::kAddScenery);
    return;
  }
  if (document.lastScenery >= kSceneryCapacity - 1) {
    Refuse(editing, "Max number of sceneries reached.");
    return;
  }
  const SceneryObject scenery = MakeScenery(state, input);
  if (scenery.type == kLianaType) state.gesture.Begin(state);
  TakeUndoSnapshot(editing, "Scenery");
  SlotAt(document.sceneries, ++document.lastScenery) = scenery;
  if (scenery.type == kLianaType) {
    state.tool.value = kNoToolValue;
    state.tool.pendingScenery = document.lastScenery;
  }
  RefreshAll(editing);
}

void MoveInAddScenery(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (IsDirectionPending(state)) {
    PointSceneryAt(state, input);
  } else if (document.lastScenery < kSceneryCapacity - 1) {
    SlotAt(document.sceneries, document.lastScenery + 1) = MakeScenery(state, input);
  }
  editing.ports.display.RedrawMap();
}

void PressInAddCollider(const Editing& editing, const MouseInput& input) {
  EditingState& state = editing.state;
  MapDocument& document = state.document;
  if (document.lastCollider >= kColliderCapacity - 1) {
    Refuse(editing, "Max number of colliders reached.");
    return;
  }
  TakeUndoSnapshot(editing, "Collider");
  FillCollider(state, SlotAt(document.colliders, ++document.lastCollider), input);
  const int next = document.lastCollider + 1;
  if (next < kColliderCapacity - 1) FillCollider(state, SlotAt(document.colliders, next), input);
  RefreshAll(editing);
}

void MoveInAddCollider(const Editing& editing, const MouseInput& input) {
  MapDocument& document = editing.state.document;
  if (document.lastCollider >= kColliderCapacity - 1) return;
  FillCollider(editing.state, SlotAt(document.colliders, document.lastCollider + 1), input);
  editing.ports.display.RedrawMap();
}

}  // namespace vesmora
