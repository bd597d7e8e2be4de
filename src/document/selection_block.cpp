// The selection as one raw block of undo files: fixed arrays at fixed places.
#include <algorithm>
#include <cstring>
#include <iterator>

#include "document/selection.h"

namespace vesmora {
namespace {

/// Moves through a block value by value.
template <typename Byte>
class BlockCursor {
 public:
  explicit BlockCursor(Byte* position) : position_(position) {}

  template <typename Value>
  void Write(const Value& value) {
    std::memcpy(position_, &value, sizeof(Value));
    position_ += sizeof(Value);
  }

  template <typename Value>
  Value Read() {
    Value value{};
    std::memcpy(&value, position_, sizeof(Value));
    position_ += sizeof(Value);
    return value;
  }

 private:
  Byte* position_;
};

int SearchOrder(int index) { return index; }
int SearchOrder(const VertexReference& vertex) { return vertex.polygon * 256 + vertex.corner; }

/// Lists are in search order, each entry once; what moves objects by them relies on it.
template <typename Entry, int kCapacity, typename IsValid>
void KeepValid(IndexList<Entry, kCapacity>& list, std::int16_t last, IsValid isValid) {
  const int count = std::clamp(last + 1, 0, kCapacity);
  list.Clear();
  for (int i = 0; i < count; ++i) {
    const Entry entry = list.entries[static_cast<std::size_t>(i)];
    const bool isNext = list.Empty() || SearchOrder(list.Items().back()) < SearchOrder(entry);
    if (isNext && isValid(entry)) list.Add(entry);
  }
}

std::int16_t ValidLast(std::int16_t last, int capacity) {
  return static_cast<std::int16_t>(std::clamp<int>(last, -1, capacity - 1));
}

constexpr std::size_t kUsedBytes =
    3 * kPolygonCapacity * (sizeof(std::int16_t) + sizeof(std::uint8_t)) + kSpawnCapacity +
    kSceneryCapacity + kColliderCapacity + kWaypointCapacity * sizeof(std::int16_t) +
    6 * sizeof(std::int16_t) + sizeof(SelectionBox) + 5 * sizeof(std::int16_t);
static_assert(kUsedBytes <= kSelectionBlockSize);

}  // namespace

SelectionBlock PackSelection(const Selection& selection, const MapDocument& document) {
  SelectionBlock block{};
  BlockCursor cursor(block.data());
  for (const VertexReference& vertex : selection.vertices.entries) cursor.Write(vertex.polygon);
  for (const VertexReference& vertex : selection.vertices.entries) cursor.Write(vertex.corner);
  cursor.Write(selection.spawns.entries);
  cursor.Write(selection.sceneries.entries);
  cursor.Write(selection.colliders.entries);
  cursor.Write(selection.waypoints.entries);
  cursor.Write(selection.TotalCounter());
  cursor.Write(selection.vertices.last);
  cursor.Write(selection.spawns.last);
  cursor.Write(selection.sceneries.last);
  cursor.Write(selection.colliders.last);
  cursor.Write(selection.waypoints.last);
  cursor.Write(selection.box);
  // The scans for the last used slots cannot tell an object from a preview or a
  // clipboard record behind it, so the indexes themselves travel along.
  cursor.Write(document.lastPolygon);
  cursor.Write(document.lastSpawn);
  cursor.Write(document.lastScenery);
  cursor.Write(document.lastCollider);
  cursor.Write(document.lastWaypoint);
  return block;
}

void UnpackSelection(const SelectionBlock& block, Selection& selection, MapDocument& document) {
  BlockCursor cursor(block.data());
  for (VertexReference& vertex : selection.vertices.entries) {
    vertex.polygon = cursor.Read<std::int16_t>();
  }
  for (VertexReference& vertex : selection.vertices.entries) {
    vertex.corner = cursor.Read<std::uint8_t>();
  }
  selection.spawns.entries = cursor.Read<decltype(selection.spawns.entries)>();
  selection.sceneries.entries = cursor.Read<decltype(selection.sceneries.entries)>();
  selection.colliders.entries = cursor.Read<decltype(selection.colliders.entries)>();
  selection.waypoints.entries = cursor.Read<decltype(selection.waypoints.entries)>();
  cursor.Read<std::int16_t>();  // the total follows from the lists
  const auto lastVertex = cursor.Read<std::int16_t>();
  const auto lastSpawn = cursor.Read<std::int16_t>();
  const auto lastScenery = cursor.Read<std::int16_t>();
  const auto lastCollider = cursor.Read<std::int16_t>();
  const auto lastWaypoint = cursor.Read<std::int16_t>();
  selection.box = cursor.Read<SelectionBox>();
  document.lastPolygon = ValidLast(cursor.Read<std::int16_t>(), kPolygonCapacity);
  document.lastSpawn = ValidLast(cursor.Read<std::int16_t>(), kSpawnCapacity);
  document.lastScenery = ValidLast(cursor.Read<std::int16_t>(), kSceneryCapacity);
  document.lastCollider = ValidLast(cursor.Read<std::int16_t>(), kColliderCapacity);
  document.lastWaypoint = ValidLast(cursor.Read<std::int16_t>(), kWaypointCapacity);

  KeepValid(selection.vertices, lastVertex, [&](const VertexReference& vertex) {
    return vertex.polygon >= 0 && vertex.polygon <= document.lastPolygon && vertex.corner < 3;
  });
  const auto upTo = [](std::int16_t last) {
    return [last](auto index) { return index >= 0 && index <= last; };
  };
  KeepValid(selection.spawns, lastSpawn, upTo(document.lastSpawn));
  KeepValid(selection.sceneries, lastScenery, upTo(document.lastScenery));
  KeepValid(selection.colliders, lastCollider, upTo(document.lastCollider));
  KeepValid(selection.waypoints, lastWaypoint, upTo(document.lastWaypoint));
}

}  // namespace vesmora
