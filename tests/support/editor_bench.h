// The editor as it is once its window is open: a new map, the game's folder around it.
#pragma once

#include <filesystem>
#include <string>

#include "app/file_commands.h"
#include "app/keys.h"
#include "support/bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {

struct EditorBench : Bench {
  /// With nothing logged.
  EditorBench() {
    std::filesystem::create_directories(editor.ports.tempFolder);
    std::filesystem::create_directories(editor.ports.programFolder);
    journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
    editor.view.area = {1200, 800, 332, 40, 40};
    StartNewMap(editor);
    events.clear();
  }

  /// "<tool>: <objects of each kind>, <undo steps> <caption>", such as
  /// "0: 1 0 0 0 0, 1 &Undo Move".
  std::string Status() const {
    std::string text = std::to_string(static_cast<int>(map.toolIndex)) + ":";
    const auto lasts = std::get<1>(StateOf(map));
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

  void Snapshot(const std::string& action) { TakeUndoSnapshot(editor, action); }
  void Choose(ToolMode tool) { ChooseTool(editor, tool); }
  bool Press(Key key, KeyModifiers held = {}) { return KeyDown(editor, key, held); }
  /// A left press on the map, the pointer having come there before.
  void Click(float x, float y) {
    MoveMouse(editor, {MouseButton::kNone, x, y});
    PressMouse(editor, {MouseButton::kLeft, x, y});
    ReleaseMouse(editor, {MouseButton::kLeft, x, y});
  }
};

}  // namespace vesmora
