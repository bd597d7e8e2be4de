// The selection: one index list per kind of object, kept beside the map and
// never inside its records, and the box that belongs to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "document/map_document.h"
#include "platform/display.h"

namespace vesmora {

inline constexpr float kUnsetCoordinate = -9999.0f;
inline constexpr std::int16_t kNoIndex = -1;

struct VertexReference {
  std::int16_t polygon;
  std::uint8_t corner;  // 0..2

  bool operator==(const VertexReference&) const = default;
};

/// A list in search order. `last` is -1 when it is empty.
template <typename Entry, int kCapacity>
struct IndexList {
  std::array<Entry, static_cast<std::size_t>(kCapacity)> entries{};
  std::int16_t last = -1;

  int Count() const { return last + 1; }
  bool Empty() const { return last < 0; }
  bool Full() const { return Count() == kCapacity; }
  void Clear() { last = -1; }
  /// False, with nothing changed, when the list is full.
  bool Add(Entry entry) {
    if (Full()) return false;
    entries[static_cast<std::size_t>(++last)] = entry;
    return true;
  }
  std::span<const Entry> Items() const {
    return std::span(entries).first(static_cast<std::size_t>(Count()));
  }
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
  bool operator==(const SelectionBox&) const = default;
};

struct Selection {
  IndexList<VertexReference, 3 * kPolygonCapacity> vertices;
  IndexList<std::uint8_t, kSpawnCapacity> spawns;
  IndexList<std::uint8_t, kSceneryCapacity> sceneries;
  IndexList<std::uint8_t, kColliderCapacity> colliders;
  IndexList<std::int16_t, kWaypointCapacity> waypoints;
  SelectionBox box;

  // Markers of what the mouse is doing.
  bool buttonHeld = false;
  bool moving = false;
  bool rotating = false;
  bool sizing = false;
  bool placing = false;                      // follows the pointer until it is dropped
  bool moveSnapshotTaken = false;            // one "Move" undo step a selection
  std::int16_t connectionAnchor = kNoIndex;  // waypoint a connection is drawn from

  /// Entries of all kinds minus one: -1 when nothing is selected.
  std::int16_t TotalCounter() const;
  bool Empty() const { return TotalCounter() < 0; }
};

/// Empties the five lists only.
void ClearLists(Selection& selection);

/// Nothing selected, no box, no markers, default pointer. Callers redraw.
void ClearSelection(Selection& selection, Display& display);

/// Ends a drag or a placement and nothing else.
void EndDrag(Selection& selection);

/// Ends whatever the mouse was in the middle of; lists and box stay.
void ResetDragState(Selection& selection);

/// Unlists what lies behind the tables' last ones; with the last entry goes the box.
void DropMissing(Selection& selection, const MapDocument& document);

/// The exact bounds of what is listed, as far as it lies anywhere; all unset when that is nothing.
SelectionBox BoundsOf(const Selection& selection, const MapDocument& document);

/// Sets the box to the bounds of what is listed, an extent under 4 units being
/// widened about its centre so that a lone object can be grabbed.
void UpdateSelectionBox(Selection& selection, const MapDocument& document);

/// For commands that work about the box: a hover lists objects without one, and a press
/// that is still held has set only its first corner.
void CompleteSelectionBox(Selection& selection, const MapDocument& document);

/// A whole selection and the tables' last indexes as one block of undo files.
inline constexpr std::size_t kSelectionBlockSize = 5058;
using SelectionBlock = std::array<std::byte, kSelectionBlockSize>;

SelectionBlock PackSelection(const Selection& selection, const MapDocument& document);

/// Takes the tables' last indexes and the selection from a block. Whatever it
/// holds, indexes beyond the tables are brought back in, and entries that name
/// nothing or are out of order are dropped.
void UnpackSelection(const SelectionBlock& block, Selection& selection, MapDocument& document);

}  // namespace vesmora
