// A whole editor without a window: real files in a scratch folder, everything else
// scripted, and one log of all that was asked for.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <utility>

#include "app/editor.h"
#include "app/file_commands.h"
#include "app/keys.h"
#include "support/fakes.h"
#include "support/faulty_file_calls.h"
#include "support/map_workbench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"
#include "view/layout.h"

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
  Editor editor{{},
                {{files, dialogs, window, [this] { return nextRandom; }},
                 window,
                 settings,
                 shell,
                 programs,
                 *profiles,
                 folder / "temp/",
                 folder / "game/Vesmora/",
                 folder / "game/"}};
  FakeWindow window{events, &editor.state.redrawSuppressed};

  EditorState& state = editor.state;
  MapDocument& document = state.document;
  Selection& selection = state.selection;
  UndoJournal& journal = state.journal;

  /// An open editor with a new map, the game's folder around it and nothing logged.
  EditorBench() {
    std::filesystem::create_directories(editor.ports.tempFolder);
    std::filesystem::create_directories(editor.ports.programFolder);
    journal.folder = editor.ports.tempFolder;
    state.view.area = ComputeDrawingArea(1200, 800);
    state.redrawSuppressed = false;
    MenuNew(editor);
    events.clear();
  }
  EditorBench(const EditorBench&) = delete;
  EditorBench& operator=(const EditorBench&) = delete;

  /// "<tool>: <objects of each kind>, <undo steps> <caption>", such as
  /// "0: 1 0 0 0 0, 1 &Undo Move".
  std::string Status() const {
    std::string text = std::to_string(static_cast<int>(document.toolIndex)) + ":";
    const auto lasts = std::get<1>(StateOf(document));
    for (const std::int16_t last : lasts) text += " " + std::to_string(last + 1);
    return text + ", " + std::to_string(journal.undoAvailable + 1) + " " + journal.caption;
  }
  /// A file of the temporary folder.
  std::string Temp(const std::string& name) const { return editor.ports.tempFolder + name; }
  /// Copies a map of tests/data to the scratch folder and returns its path.
  std::string PutMap(const std::string& name, const std::string& source = "small.pmp") {
    PutFile(folder / name, FileBytes(DataPath(source)));
    return folder / name;
  }

  void Snapshot(const std::string& action) { TakeUndoSnapshot(editor.AsEditing(), action); }
  void Choose(ToolMode tool) { ChangeTool(editor.AsEditing(), tool); }
  bool Press(Key key) { return KeyDown(editor, key); }
  /// A left press on the map, the pointer having come there before.
  void Click(float x, float y) {
    MoveMouse(editor.AsEditing(), {MouseButton::kNone, x, y});
    PressMouse(editor.AsEditing(), {MouseButton::kLeft, x, y});
    ReleaseMouse(editor.AsEditing(), {MouseButton::kLeft, x, y});
  }
  /// The boxes shown, or all that was asked for, since the last call.
  std::vector<Message> TakeMessages() { return std::exchange(dialogs.messages, {}); }
  EventLog TakeEvents() { return std::exchange(events, {}); }
};

}  // namespace vesmora
