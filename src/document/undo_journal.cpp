#include "document/undo_journal.h"

#include <algorithm>

#include "platform/temp_folder.h"

namespace vesmora {
namespace {

constexpr std::string_view kFilePrefix = "VesmoraUndo";

std::string FileNamed(const UndoJournal& journal, const std::string& ending) {
  return journal.folder + std::string(kFilePrefix) + ending + ".tmp";
}

/// Writes a spare file and lets it and the slot's file change places, so that a
/// failure leaves the step that the slot held before. No name is ever moved over an
/// existing file: file systems write such a file out at once, which takes ten times
/// as long as all the rest.
FileStatus WriteSnapshot(UndoJournal& journal, const MapFileContext& context, int slot) {
  const std::string path = FileNamed(journal, std::to_string(slot));
  const std::string spare = FileNamed(journal, "Spare");
  const std::string old = FileNamed(journal, "Old");
  FileStatus status = WriteMap(context, spare, true);
  if (!status.Ok()) {
    DeleteFile(context.files, spare);
    return status;
  }
  const bool hadOld = MoveFileOver(context.files, path, old).Ok();
  status = MoveFileOver(context.files, spare, path);
  if (!hadOld) return status;
  const FileStatus back = MoveFileOver(context.files, old, status.Ok() ? spare : path);
  // The older step is where it is; that is where an undo finds it.
  if (!status.Ok() && !back.Ok()) journal.undoFiles[static_cast<std::size_t>(slot)] = old;
  return status;
}

}  // namespace

bool TakeUndoSnapshot(UndoJournal& journal, const MapFileContext& context,
                      const std::string& actionName) {
  const int slot = (journal.undoSlot + 1) % kUndoSteps;
  const std::string path = FileNamed(journal, std::to_string(slot));
  FileStatus status{FileFailure::kError, "There is no temporary folder."};
  if (!journal.folder.empty()) {
    // It may have been swept away while the program ran.
    if (IsGone(context.files, journal.folder)) {
      CreatePrivateFolder(context.files, journal.folder);  // if not, the write says why
      HoldFolder(journal.folder);
    }
    status = WriteSnapshot(journal, context, slot);
  }
  if (!status.Ok()) {
    if (!journal.failureTold) {
      context.dialogs.Show({.text = "File '" + path + "' could not be written: " + status.reason +
                                    "\nThe edit goes on, but it cannot be undone.",
                            .title = "File error",
                            .icon = MessageIcon::kExclamation});
    }
    journal.failureTold = true;
    return false;
  }
  journal.failureTold = false;
  journal.undoAvailable =
      static_cast<std::int16_t>(std::min(journal.undoAvailable + 1, kUndoSteps - 1));
  journal.undoSlot = static_cast<std::int16_t>(slot);
  journal.undoFiles[static_cast<std::size_t>(slot)] = path;
  journal.undoActions[static_cast<std::size_t>(slot)] = actionName;
  RefreshUndoCaption(journal);
  return true;
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
  journal.failureTold = false;
  journal.undoAvailable = -1;
  RefreshUndoCaption(journal);
}

void DeleteSnapshotFiles(const UndoJournal& journal, FileCalls& files) {
  // Not ListFiles: it looks at every file, and on Windows the folder holds everybody's.
  std::vector<std::string> names;
  files.ListFolder(journal.folder, names);
  for (const std::string& name : names) {
    const bool isSnapshot =
        name.starts_with(kFilePrefix) && name.find('.', kFilePrefix.size()) != std::string::npos;
    if (isSnapshot) DeleteFile(files, journal.folder + name);
  }
}

}  // namespace vesmora
