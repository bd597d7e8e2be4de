// What the person at the map is in the middle of.
#pragma once

#include <cstdint>
#include <memory>

#include "document/edited_map.h"

namespace vesmora {

enum class ActivityKind {
  kNone,
  // In Edit, while the left button is held.
  kBand,
  kMove,
  kRotate,
  kResize,
  // In Edit: the selection follows the pointer until a press drops it.
  kPlacement,
  // In the Add tools: a triangle without its third corner, a liana without a direction, a
  // connection without a target.
  kTriangle,
  kDirection,
  kConnection,
};

/// Tools begin it and see it through. Whatever comes in between (a command, another tool)
/// ends it by Finish, Escape by Cancel, and a new map by Forget.
class Activity {
 public:
  ActivityKind Kind() const { return kind_; }
  bool Is(ActivityKind kind) const { return kind_ == kind; }
  bool HoldsButton() const {
    return kind_ >= ActivityKind::kBand && kind_ <= ActivityKind::kResize;
  }

  /// `map` as it is now is what Cancel goes back to. What was in progress is forgotten.
  /// `slot`: the liana, or the waypoint that is connected.
  void Begin(ActivityKind kind, const EditedMap& map, int slot = kNoIndex);

  /// Ends it where it is: an unfinished triangle goes, a liana without direction hangs down.
  void Finish(EditedMap& map);

  /// Puts map and selection back and drops the undo steps taken since.
  void Cancel(EditedMap& map);

  /// Ends it and touches nothing.
  void Forget();

  /// What another control has changed meanwhile stays when this is cancelled, with the undo step
  /// that was taken for it, if any. Of a move, rotation or resize what was done so far stays, too.
  void KeepChanges(const EditedMap& map, bool stepTaken);

  /// Of a triangle: 1 or 2 once it has begun; 0 for anything else.
  int PlacedCorners() const { return placedCorners_; }
  void SetPlacedCorners(int count) { placedCorners_ = count; }
  /// The liana's slot, -1 unless its direction is awaited.
  int Liana() const { return Is(ActivityKind::kDirection) ? slot_ : kNoIndex; }
  /// The waypoint that a connection is drawn from, -1 for none.
  int Anchor() const { return Is(ActivityKind::kConnection) ? slot_ : kNoIndex; }

 private:
  struct Kept {
    MapDocument document;
    Selection selection;
    std::int16_t undoSlot = 0;
  };

  ActivityKind kind_ = ActivityKind::kNone;
  int slot_ = kNoIndex;
  int placedCorners_ = 0;
  std::unique_ptr<Kept> kept_;  // made once, when first needed
};

}  // namespace vesmora
