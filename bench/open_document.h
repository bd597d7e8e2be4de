// A document with what loading and saving it needs, and nobody to talk to.
#pragma once

#include <string>

#include "document/map_file.h"
#include "document/undo_journal.h"

namespace vesmora::bench {

class SilentDialogs final : public Dialogs {
 public:
  void Show(const Message&) override {}
  bool Ask(const Message&) override { return true; }
  std::string ChooseFileToOpen(const FileRequest&) override { return {}; }
  std::string ChooseFileToSave(const FileRequest&) override { return {}; }
  std::string AskText(const TextRequest&) override { return {}; }
  std::optional<std::int32_t> ChooseColor(std::int32_t) override { return {}; }
};

class IdleDisplay final : public Display {
 public:
  void RedrawMap() override {}
  void RefreshInfoPanel() override {}
  void SetPointer(PointerShape) override {}
};

inline std::string MapPath(const std::string& name) { return VESMORA_TEST_DATA "/" + name; }

/// Heavy: keep it off the stack.
struct OpenDocument {
  bool Load(const std::string& path, bool isUndo = false) {
    return LoadMap(Context(), path, isUndo, true) == LoadOutcome::kLoaded;
  }
  bool Write(const std::string& path, bool isUndo) {
    return WriteMap(Context(), path, isUndo).Ok();
  }

  void Snapshot(UndoJournal& journal) { TakeUndoSnapshot(journal, Context(), "Move"); }

  MapDocument document;
  Selection selection;

 private:
  MapFileContext Context() {
    return {document, selection, SystemFileCalls(), dialogs_, display_, random_};
  }

  SilentDialogs dialogs_;
  IdleDisplay display_;
  RandomSource random_ = [] { return 0.5; };
};

}  // namespace vesmora::bench
