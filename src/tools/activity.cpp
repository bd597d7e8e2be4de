#include "tools/activity.h"

#include "document/scenery_types.h"

namespace vesmora {

void Activity::Begin(ActivityKind kind, const EditedMap& map, int slot) {
  if (!kept_) kept_ = std::make_unique<Kept>();
  kept_->document = map.document;
  kept_->selection = map.selection;
  kept_->undoSlot = map.journal.undoSlot;
  kind_ = kind;
  slot_ = slot;
  placedCorners_ = 0;
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
  if (Is(ActivityKind::kNone)) return;
  map.document = kept_->document;
  map.selection = kept_->selection;
  while (map.journal.undoSlot != kept_->undoSlot && map.journal.undoAvailable >= 0) {
    ConsumeUndoStep(map.journal);
  }
  Forget();
}

void Activity::Forget() {
  kind_ = ActivityKind::kNone;
  slot_ = kNoIndex;
  placedCorners_ = 0;
}

void Activity::KeepChanges(const EditedMap& map, bool stepTaken) {
  if (Is(ActivityKind::kNone)) return;
  // What the activity itself has added goes all the same.
  const auto polygons = kept_->document.polygons;
  const auto sceneries = kept_->document.sceneries;
  kept_->document = map.document;
  if (Is(ActivityKind::kTriangle)) kept_->document.polygons = polygons;
  if (Is(ActivityKind::kDirection)) kept_->document.sceneries = sceneries;
  kept_->selection = map.selection;
  if (stepTaken) kept_->undoSlot = map.journal.undoSlot;
}

}  // namespace vesmora
