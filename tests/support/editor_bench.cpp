#include "support/editor_bench.h"

#include <filesystem>
#include <utility>

#include "app/file_commands.h"
#include "tools/mouse_dispatch.h"
#include "view/layout.h"

namespace vesmora {

EditorBench::EditorBench()
    : editor{{},
             {{.files = files,
               .dialogs = dialogs,
               .display = window,
               .random = [this] { return nextRandom; }},
              window,
              settings,
              shell,
              programs,
              *profiles,
              folder / "temp/",
              folder / "game/Vesmora/",
              folder / "game/"}} {
  for (const std::string& path : {editor.ports.tempFolder, editor.ports.programFolder}) {
    std::filesystem::create_directories(path);
  }
  journal.folder = editor.ports.tempFolder;
  state.view.area = ComputeDrawingArea(1200, 800);
  state.redrawSuppressed = false;
  MenuNew(editor);
  events.clear();
}

std::string EditorBench::PutMap(const std::string& name, const std::string& source) {
  PutFile(folder / name, FileBytes(DataPath(source)));
  return folder / name;
}

void EditorBench::Click(float x, float y) {
  MoveMouse(editor.AsEditing(), {MouseButton::kNone, x, y});
  PressMouse(editor.AsEditing(), {MouseButton::kLeft, x, y});
  ReleaseMouse(editor.AsEditing(), {MouseButton::kLeft, x, y});
}

std::vector<Message> EditorBench::TakeMessages() { return std::exchange(dialogs.messages, {}); }

}  // namespace vesmora
