#include "document/undo_journal.h"

#include <algorithm>

namespace vesmora {
namespace {

constexpr std::string_view kFilePrefix = "VesmoraUndo";

/// Writes beside the slot's file and then takes its place, so that a failure
/// leaves the step that the slot held before.
FileStatus WriteSnapshot(const MapFileContext& context, const std::string& path) {
  const std::string fresh = path + ".new";
  FileStatus status = WriteMap(context, fresh, true);
  if (status.Ok()) status = MoveFileOver(context.files, fresh, path);
  if (!status.Ok()) DeleteFile(context.files, fresh);
  return status;
}

}  // namespace

void TakeUndoSnapshot(UndoJournal& journal, const MapFileContext& context,
                      const std::string& actionName) {
  const int slot = (journal.undoSlot + 1) % kUndoSteps;
  const std::string path =
      journal.folder + std::string(kFilePrefix) + std::to_string(slot) + ".tmp";
  const FileStatus status = journal.folder.empty()
                                ? FileStatus{FileFailure::kError, "There is no temporary folder."}
                                : WriteSnapshot(context, path);
  if (!status.Ok()) {
    if (!journal.failureTold) {
      context.dialogs.Show({.text = "File '" + path + "' could not be written: " + status.reason +
                                    "\nThe edit goes on, but it cannot be undone.",
                            .title = "File error",
                            .icon = MessageIcon::kExclamation});
    }
    journal.failureTold = true;
    return;
  }
  journal.failureTold = false;
  journal.undoAvailable =
      static_cast<std::int16_t>(std::min(journal.undoAvailable + 1, kUndoSteps - 1));
  journal.undoSlot = static_cast<std::int16_t>(slot);
  journal.undoFiles[static_cast<std::size_t>(slot)] = path;
  journal.undoActions[static_cast<std::size_t>(slot)] = actionName;
  RefreshUndoCaption(journal);
}

void ConsumeUndoStep(UndoJournal& journal) {
  --journal.undoAvailable;
  journal.undoSlot = static_cast<std::int16_t>((journal.undoSlot + kUndoSteps - 1) % kUndoSteps);
  RefreshUndoCaption(journal);
}

void RefreshUndoCaption(UndoJournal& journal) {
  journal.caption = journal.undoAvailable < 0 ? "&Undo" : "&Undo " + journal.NewestAction();
}

void ClearHistory(UndoJournal& journal) {
  journal.undoAvailable = -1;
  RefreshUndoCaption(journal);
}

void DeleteSnapshotFiles(const UndoJournal& journal, FileCalls& files) {
  for (const std::string& name : ListFiles(files, journal.folder).names) {
    const bool isSnapshot =
        name.starts_with(kFilePrefix) && name.find('.', kFilePrefix.size()) != std::string::npos;
    if (isSnapshot) DeleteFile(files, journal.folder + name);
  }
}

}  // namespace vesmora
