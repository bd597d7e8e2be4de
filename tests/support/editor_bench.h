// A whole editor without a window: real files in a scratch folder, everything else
// scripted, and one log of all that was asked for.
#pragma once

#include <memory>
#include <string>

#include "app/editor.h"
#include "support/fake_programs.h"
#include "support/fake_shell.h"
#include "support/fake_window.h"
#include "support/faulty_file_calls.h"
#include "support/map_workbench.h"
#include "support/memory_settings.h"

namespace vesmora {

struct EditorBench {
  EventLog events;
  ScratchFolder folder;
  ScriptedDialogs dialogs{events};
  MemorySettings settings{events};
  FakeShell shell{events};
  FakePrograms programs{events};
  FaultyFileCalls files;
  std::unique_ptr<ProfileFiles> profiles = SystemProfileFiles(files);
  double nextRandom = 0.5;
  Editor editor;
  FakeWindow window{events, editor.state.redrawSuppressed};

  EditorState& state = editor.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  UndoJournal& journal = state.journal;

  /// An open editor with a new map, the game's folder around it and nothing logged.
  EditorBench();
  EditorBench(const EditorBench&) = delete;
  EditorBench& operator=(const EditorBench&) = delete;

  /// A file of the temporary folder.
  std::string Temp(const std::string& name) const { return editor.ports.tempFolder + name; }
  /// Copies a map of tests/data to the scratch folder and returns its path.
  std::string PutMap(const std::string& name, const std::string& source = "small.pmp");

  void Snapshot(const std::string& action) { TakeUndoSnapshot(editor.AsEditing(), action); }
  /// A left press on the map, the pointer having come there before.
  void Click(float x, float y);
  /// The boxes shown since the last call.
  std::vector<Message> TakeMessages();
};

/// What a failed read or write of a file is called.
inline Message FileError(const std::string& text) {
  return {text, "File error", MessageIcon::kNone};
}

}  // namespace vesmora
