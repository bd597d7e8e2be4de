#include "app/run_commands.h"

#include "app/file_commands.h"
#include "app/window_placement.h"
#include "launch/game_files.h"
#include "launch/sector_compiler.h"
#include "platform/files.h"
#include "platform/text.h"

namespace vesmora {
namespace {

GameFolder GameFolderOf(const Ports& ports) {
  return {.files = ports.files, .path = ports.gameFolder};
}

/// With the system's own slashes only.
std::string ProgramPath(const Editor& editor, std::string_view parts) {
  return AbsolutePath(GamePath(GameFolderOf(editor.ports), parts));
}

void TellRunError(Editor& editor, const std::string& text) {
  editor.ports.dialogs.Show({.text = text, .title = "Run error", .icon = MessageIcon::kCritical});
}

/// False, with the user told, when there is no such program.
bool RequireProgram(Editor& editor, const std::string& path) {
  if (FileExists(editor.ports.files, path)) return true;
  TellRunError(editor, path + " not found");
  return false;
}

/// Empty on success, else words for the user.
std::string StartProgram(Editor& editor, const std::string& path) {
  const std::string reason = editor.ports.programs.Start(path, std::string(FolderPart(path)));
  return reason.empty() ? "" : path + " could not be started: " + reason;
}

}  // namespace

void MenuRunMaker(Editor& editor) {
  if (editor.ports.programs.ActivateWindow("Soldat Map Maker")) return;
  const std::string path = ProgramPath(editor, "MapMaker/MapMaker.exe");
  if (!RequireProgram(editor, path)) return;
  const std::string problem = StartProgram(editor, path);
  if (!problem.empty()) TellRunError(editor, problem);
}

bool MenuRunCompile(Editor& editor) {
  if (!CompileSectors(editor)) return false;
  editor.note = "Compiled: sectors of " + std::to_string(editor.document.sectorDivision);
  return true;
}

void MenuRunSoldat(Editor& editor) {
  const Ports& ports = editor.ports;
  if (ports.programs.ActivateWindow("Soldat")) return;
  const std::string path = ProgramPath(editor, "Soldat.exe");
  if (!RequireProgram(editor, path)) return;
  StorePlacement(ports.window.Placement(), ports.settings);
  ports.window.Minimize();
  std::string problem = PointGameAt(GameFolderOf(ports), editor.document.fileName);
  if (problem.empty()) problem = StartProgram(editor, path);
  if (problem.empty()) {
    ports.window.RunPendingEvents();
    return;
  }
  ports.window.Unminimize();
  TellRunError(editor, problem);
}

void MenuRunAll(Editor& editor) {
  if (MenuRunCompile(editor) && MenuSave(editor)) MenuRunSoldat(editor);
}

}  // namespace vesmora
