#include <algorithm>
#include <memory>

#include "document/finding_list.h"
#include "document/geometry.h"
#include "document/number_text.h"
#include "document/record_changes.h"
#include "document/same_bytes.h"
#include "document/save_preparation.h"
#include "document/selection.h"
#include "platform/text.h"

namespace vesmora {
namespace {

bool IsMarked(const Polygon& /*polygon*/) { return false; }
bool IsMarked(const SpawnPoint& spawn) { return spawn.active != 0; }
template <typename Record>
bool IsMarked(const Record& record) {
  return record.active == 1;
}

/// A change that has a name of its own; false when it is not that one.
bool TellTurned(const Polygon& polygon, int slot, FindingList& findings) {
  if (!RunsTheWrongWay(polygon)) return false;
  findings.Hint("corner-order", {ObjectKind::kPolygon, slot}, PlaceOf(polygon),
                "its corners run the wrong way round; a save turns them");
  return true;
}
template <typename Record>
bool TellTurned(const Record& /*record*/, int /*slot*/, FindingList& /*findings*/) {
  return false;
}

template <typename TableType>
void CompareUsed(ObjectKind kind, const TableType& before, const TableType& after,
                 FindingList& findings) {
  for (int slot = 0; slot <= after.last; ++slot) {
    if (HaveSameBytes(before[slot], after[slot])) continue;
    if (TellTurned(before[slot], slot, findings)) continue;
    const auto changes = ChangesIn(before[slot], after[slot]);
    if (changes.empty()) continue;
    findings.Hint("save-changes", {kind, slot}, PlaceOf(before[slot]),
                  "a save changes it: " + Joined(changes));
  }
}

/// What lies behind a table's end, where no program looks.
template <typename TableType>
void CompareFree(ObjectKind kind, const TableType& before, const TableType& after,
                 FindingList& findings) {
  std::size_t marked = 0;
  bool differ = false;
  for (int slot = before.Count(); slot < TableType::kCapacity; ++slot) {
    if (HaveSameBytes(before[slot], after[slot])) continue;
    differ = true;
    if (IsMarked(before[slot])) ++marked;
  }
  const std::string one(NameOf(kind));
  const std::string several = kind == ObjectKind::kScenery ? "sceneries" : one + "s";
  if (marked > 0) {
    findings.Hint("table-gap", {}, std::nullopt,
                  "the " + several + " have a gap; a save clears " + Counted(marked, one, several) +
                      " behind it, which no program finds");
  } else if (differ) {
    findings.Hint("free-slots", {}, std::nullopt,
                  "a save clears what is left in free slots of the " + several);
  }
}

/// The free slots are zeroed by what a save prepares.
template <typename TableType>
void CopyUsed(const TableType& from, TableType& to) {
  to.SetCount(from.Count());
  std::ranges::copy(from.Used(), to.slots.begin());
}

template <typename TableType>
void CompareTable(ObjectKind kind, const TableType& before, const TableType& after,
                  FindingList& findings) {
  CompareUsed(kind, before, after, findings);
  CompareFree(kind, before, after, findings);
}

/// The author's name runs through the colliders' table, used or not, and is judged by itself.
void CompareAuthor(const MapDocument& before, const MapDocument& after, FindingList& findings) {
  if (TrimBlanks(before.author).empty()) {
    findings.Hint("no-author", {}, std::nullopt, "has no author; a save writes \"Unknow\"");
    return;
  }
  if (std::ranges::equal(before.colliders.slots, after.colliders.slots, {}, &Collider::authorChar,
                         &Collider::authorChar)) {
    return;
  }
  if (before.author.size() == kReadAuthorLength &&
      before.colliders[kReadAuthorLength].authorChar != 0) {
    findings.Hint("author-cut", {}, std::nullopt,
                  "has more of an author's name than is read; a save cuts it");
  } else {
    findings.Hint("free-slots", {}, std::nullopt,
                  "a save clears what is left behind the author's name");
  }
}

/// So that the comparison of the colliders leaves the author's name out.
void CopyAuthorCharacters(const MapDocument& from, MapDocument& to) {
  for (int slot = 0; slot < kColliderCapacity; ++slot) {
    to.colliders[slot].authorChar = from.colliders[slot].authorChar;
  }
}

}  // namespace

void CheckWhatSaveChanges(const MapDocument& document, MapDocument& scratch,
                          bool isPolygonCountSure, FindingList& findings) {
  CopyUsed(document.polygons, scratch.polygons);
  CopyUsed(document.spawns, scratch.spawns);
  CopyUsed(document.sceneries, scratch.sceneries);
  CopyUsed(document.colliders, scratch.colliders);
  CopyUsed(document.waypoints, scratch.waypoints);
  scratch.author = document.author;
  if (scratch.sceneries.Full()) {
    scratch.sceneries.DropLast();
    findings.Hint("scenery-dropped", {ObjectKind::kScenery, document.sceneries.last},
                  PlaceOf(document.sceneries.Last()), "a save leaves it out: the table is full");
  }
  Selection nothing;
  PrepareForSave(scratch, nothing);
  StoreAuthor(scratch);
  CompareAuthor(document, scratch, findings);
  CopyAuthorCharacters(document, scratch);
  CompareUsed(ObjectKind::kPolygon, document.polygons, scratch.polygons, findings);
  if (isPolygonCountSure) {
    CompareFree(ObjectKind::kPolygon, document.polygons, scratch.polygons, findings);
  }
  CompareTable(ObjectKind::kSpawn, document.spawns, scratch.spawns, findings);
  CompareTable(ObjectKind::kScenery, document.sceneries, scratch.sceneries, findings);
  CompareTable(ObjectKind::kCollider, document.colliders, scratch.colliders, findings);
  CompareTable(ObjectKind::kWaypoint, document.waypoints, scratch.waypoints, findings);
}

}  // namespace vesmora
