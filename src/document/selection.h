// The selection: one list of slots per kind of object, kept beside the map and never inside
// its records, and the box that belongs to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "document/map_document.h"
#include "document/world_point.h"

namespace vesmora {

inline constexpr float kUnsetCoordinate = -9999.0f;
inline constexpr std::int16_t kNoIndex = -1;

struct VertexReference {
  std::int16_t polygon;
  std::uint8_t corner;  // 0..2

  bool operator==(const VertexReference&) const = default;
};

/// World units. All unset: no box. Left and top set alone: a press beside a
/// selection that may yet become a deselection. All set: a rubber band, or the
/// box of the selection, inside which a press starts a move.
struct SelectionBox {
  float left = kUnsetCoordinate;
  float right = kUnsetCoordinate;
  float top = kUnsetCoordinate;
  float bottom = kUnsetCoordinate;

  bool Complete() const {
    return left != kUnsetCoordinate && right != kUnsetCoordinate && top != kUnsetCoordinate &&
           bottom != kUnsetCoordinate;
  }
  /// Edges included.
  bool Contains(WorldPoint point) const {
    return point.x >= left && point.x <= right && point.y >= top && point.y <= bottom;
  }
  WorldPoint Center() const { return {(left + right) / 2, (top + bottom) / 2}; }
  bool operator==(const SelectionBox&) const = default;
};

/// Lists are in search order, each entry once.
struct Selection {
  Table<VertexReference, 3 * kPolygonCapacity> vertices;
  Table<std::uint8_t, kSpawnCapacity> spawns;
  Table<std::uint8_t, kSceneryCapacity> sceneries;
  Table<std::uint8_t, kColliderCapacity> colliders;
  Table<std::int16_t, kWaypointCapacity> waypoints;
  SelectionBox box;
  bool moveSnapshotTaken = false;  // one "Move" undo step a selection

  /// Entries of all kinds minus one: -1 when nothing is selected.
  std::int16_t TotalCounter() const;
  bool Empty() const { return TotalCounter() < 0; }
};

/// Calls `visit` with each table of the document and the selection's list of its slots.
template <typename Document, typename SelectionType, typename Visit>
void VisitLists(Document& document, SelectionType& selection, Visit visit) {
  visit(document.polygons, selection.vertices);
  visit(document.spawns, selection.spawns);
  visit(document.sceneries, selection.sceneries);
  visit(document.colliders, selection.colliders);
  visit(document.waypoints, selection.waypoints);
}

/// What an entry of a list names: a corner of a polygon or a whole record.
template <typename TableType>
auto& RecordOf(TableType& table, VertexReference vertex) {
  return table[vertex.polygon].vertices[vertex.corner];
}
template <typename TableType>
auto& RecordOf(TableType& table, int slot) {
  return table[slot];
}

inline int SlotOf(VertexReference vertex) { return vertex.polygon; }
inline int SlotOf(int slot) { return slot; }

/// Calls `visit` with each record that is listed; of polygons, with each listed corner.
template <typename Document, typename Visit>
void VisitSelected(Document& document, const Selection& selection, Visit visit) {
  VisitLists(document, selection, [&](auto& table, const auto& list) {
    for (const auto entry : list.Used()) visit(RecordOf(table, entry));
  });
}

/// Calls `take` with each entry that a list of the table's slots can have, from slot `first`
/// on, and the record it names, until `take` returns false.
template <typename Record, int kSlots, typename Take>
void VisitEntries(const Table<Record, kSlots>& table, int first, Take take) {
  for (int slot = first; slot <= table.last; ++slot) {
    if (!take(slot, table[slot])) return;
  }
}
template <typename Take>
void VisitEntries(const Table<Polygon, kPolygonCapacity>& polygons, int first, Take take) {
  for (std::int16_t slot = static_cast<std::int16_t>(first); slot <= polygons.last; ++slot) {
    for (std::uint8_t corner = 0; corner < 3; ++corner) {
      const VertexReference vertex{slot, corner};
      if (!take(vertex, RecordOf(polygons, vertex))) return;
    }
  }
}

/// Lists everything that a table holds from slot `first` on.
template <typename TableType, typename Entry, int kEntries>
void ListFrom(int first, const TableType& table, Table<Entry, kEntries>& list) {
  VisitEntries(table, first, [&list](auto entry, const auto& /*record*/) {
    return list.Append(static_cast<Entry>(entry));
  });
}

using PolygonSlots = Table<std::int16_t, kPolygonCapacity>;

/// The polygons with a listed corner, in list order; a run of entries of one counts once.
PolygonSlots SelectedPolygons(const Selection& selection);

/// Empties the five lists; what is listed next is moved as a step anew. The box stays.
void ClearLists(Selection& selection);

/// Nothing listed and no box.
void Deselect(Selection& selection);

/// Unlists what lies behind the tables' last ones; with the last entry goes the box.
void DropMissing(Selection& selection, const MapDocument& document);

/// The exact bounds of what is listed, as far as it lies anywhere; all unset when that is nothing.
SelectionBox BoundsOf(const Selection& selection, const MapDocument& document);

/// Sets the box to the bounds of what is listed, an extent under 4 units being
/// widened about its centre so that a lone object can be grabbed.
void UpdateSelectionBox(Selection& selection, const MapDocument& document);

/// Left to right and top to bottom. An edge that changes sides is rounded to a
/// whole unit on its way; deliberately only that one.
SelectionBox Normalised(SelectionBox box);

/// A whole selection and the tables' last indexes as one block of undo files, the bytes behind
/// them zero.
inline constexpr std::size_t kSelectionBlockSize = 5058;
inline constexpr std::size_t kSelectionBytes = 5051;
using SelectionBlock = std::array<std::byte, kSelectionBlockSize>;

SelectionBlock PackSelection(const Selection& selection, const MapDocument& document);

/// Takes the tables' last indexes and the selection from a block. Whatever it
/// holds, indexes beyond the tables are brought back in, and entries that name
/// nothing or are out of order are dropped.
void UnpackSelection(const SelectionBlock& block, Selection& selection, MapDocument& document);

}  // namespace vesmora
