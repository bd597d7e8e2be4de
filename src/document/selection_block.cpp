// The selection as one raw block of undo files: fixed arrays at fixed places.
#include <algorithm>
#include <cstring>

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
  void Read(Value& value) {
    std::memcpy(&value, position_, sizeof(Value));
    position_ += sizeof(Value);
  }

 private:
  Byte* position_;
};

int SearchOrder(int index) { return index; }
int SearchOrder(const VertexReference& vertex) { return vertex.polygon * 256 + vertex.corner; }

bool IsCorner(int /*index*/) { return true; }
bool IsCorner(const VertexReference& vertex) { return vertex.corner < 3; }

/// Drops what names nothing or is out of order; what moves objects by the lists relies on it.
template <typename TableType, typename List>
void KeepValid(const TableType& table, List& list) {
  const int count = std::clamp(list.Count(), 0, List::kCapacity);
  list.Clear();
  for (int i = 0; i < count; ++i) {
    const auto entry = list[i];
    const bool isNext = list.Empty() || SearchOrder(list.Last()) < SearchOrder(entry);
    if (isNext && table.Has(SlotOf(entry)) && IsCorner(entry)) list.Append(entry);
  }
}

constexpr std::size_t kUsedBytes =
    3 * kPolygonCapacity * (sizeof(std::int16_t) + sizeof(std::uint8_t)) + kSpawnCapacity +
    kSceneryCapacity + kColliderCapacity + kWaypointCapacity * sizeof(std::int16_t) +
    6 * sizeof(std::int16_t) + sizeof(SelectionBox) + 5 * sizeof(std::int16_t);
static_assert(kUsedBytes == kSelectionBytes);

}  // namespace

SelectionBlock PackSelection(const Selection& selection, const MapDocument& document) {
  SelectionBlock block{};
  BlockCursor cursor(block.data());
  for (const VertexReference& vertex : selection.vertices.slots) cursor.Write(vertex.polygon);
  for (const VertexReference& vertex : selection.vertices.slots) cursor.Write(vertex.corner);
  cursor.Write(selection.spawns.slots);
  cursor.Write(selection.sceneries.slots);
  cursor.Write(selection.colliders.slots);
  cursor.Write(selection.waypoints.slots);
  cursor.Write(selection.TotalCounter());
  VisitLists(document, selection,
             [&](const auto& /*table*/, const auto& list) { cursor.Write(list.last); });
  cursor.Write(selection.box);
  // The marks in the records cannot tell an object from a preview or a clipboard record
  // behind it, so the tables' last indexes themselves travel along.
  VisitTables(document, [&](const auto& table) { cursor.Write(table.last); });
  return block;
}

void UnpackSelection(const SelectionBlock& block, Selection& selection, MapDocument& document) {
  BlockCursor cursor(block.data());
  for (VertexReference& vertex : selection.vertices.slots) cursor.Read(vertex.polygon);
  for (VertexReference& vertex : selection.vertices.slots) cursor.Read(vertex.corner);
  cursor.Read(selection.spawns.slots);
  cursor.Read(selection.sceneries.slots);
  cursor.Read(selection.colliders.slots);
  cursor.Read(selection.waypoints.slots);
  std::int16_t total = 0;
  cursor.Read(total);  // it follows from the lists
  VisitLists(document, selection,
             [&](const auto& /*table*/, auto& list) { cursor.Read(list.last); });
  cursor.Read(selection.box);
  VisitTables(document, [&](auto& table) {
    cursor.Read(table.last);
    table.last = std::clamp<std::int16_t>(table.last, -1, table.kCapacity - 1);
  });
  VisitLists(document, selection, [](const auto& table, auto& list) { KeepValid(table, list); });
}

}  // namespace vesmora
