#include "tools/activity.h"

#include "document/scenery_types.h"

namespace vesmora {

void Activity::Begin(ActivityKind kind, const EditedMap& map, int slot) {
  kind_ = kind;
  slot_ = slot;
  placedCorners_ = 0;
  if (Is(ActivityKind::kConnection)) return;  // it has changed nothing yet
  if (!kept_) kept_ = std::make_unique<Kept>();
  kept_->document = map.document;
  kept_->selection = map.selection;
  kept_->undoSlot = map.journal.undoSlot;
}

void Activity::Finish(EditedMap& map) {
  MapDocument& document = map.document;
  if (placedCorners_ > 0) {
    document.polygons.DropLast();
    DropMissing(map.selection, document);
  }
  if (document.sceneries.Has(Liana())) document.sceneries[Liana()].rotation = kLianaRotation;
  Forget();
}

void Activity::Cancel(EditedMap& map) {
  if (!Is(ActivityKind::kNone) && !Is(ActivityKind::kConnection)) {
    map.document = kept_->document;
    map.selection = kept_->selection;
    while (map.journal.undoSlot != kept_->undoSlot && map.journal.undoAvailable >= 0) {
      ConsumeUndoStep(map.journal);
    }
  }
  Forget();
}

void Activity::Forget() {
  kind_ = ActivityKind::kNone;
  slot_ = kNoIndex;
  placedCorners_ = 0;
}

void Activity::KeepChanges(const EditedMap& map, bool stepTaken) {
  if (Is(ActivityKind::kNone) || Is(ActivityKind::kConnection)) return;
  // What goes all the same: a triangle, which no step holds, and a liana while none does.
  const bool isTriangle = Is(ActivityKind::kTriangle);
  const bool isLiana = Is(ActivityKind::kDirection) && !stepTaken;
  const auto polygons = kept_->document.polygons;
  const auto sceneries = kept_->document.sceneries;
  kept_->document = map.document;
  if (isTriangle) kept_->document.polygons = polygons;
  if (isLiana) kept_->document.sceneries = sceneries;
  if (stepTaken || !(isTriangle || isLiana)) kept_->undoSlot = map.journal.undoSlot;
  // A band leaves nothing behind but what was selected before.
  if (!Is(ActivityKind::kBand)) kept_->selection = map.selection;
  DropMissing(kept_->selection, map.document);
}

}  // namespace vesmora
