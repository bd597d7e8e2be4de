#include "app/commands.h"

#include <array>

#include "app/file_commands.h"
#include "app/prefab_commands.h"
#include "app/run_commands.h"
#include "app/undo_commands.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"

namespace vesmora {
namespace {

void MenuExit(Editor& editor) { editor.ports.window.Unload(); }

void MenuAbout(Editor& editor) { editor.ports.window.ShowAbout(); }

/// A command of the tools, which know the map but not the application.
template <void (*kCommand)(const Editing& editing)>
void OnMap(Editor& editor) {
  kCommand(editor.AsEditing());
}

/// A command that also tells whether it succeeded, for others that build on it.
template <bool (*kCommand)(Editor& editor)>
void Do(Editor& editor) {
  kCommand(editor);
}

constexpr CommandMenu kFile = CommandMenu::kFile;
constexpr CommandMenu kEdit = CommandMenu::kEdit;
constexpr CommandMenu kRun = CommandMenu::kRun;
constexpr CommandMenu kHelp = CommandMenu::kHelp;

constexpr bool kAnyTool = false;
constexpr bool kEditTool = true;

constexpr auto kCommands = std::to_array<Command>({
    {"MenuNew", kFile, "&New", "Ctrl+N", kAnyTool, false, MenuNew},
    {"MenuOpen", kFile, "&Open...", "Ctrl+O", kAnyTool, false, MenuOpen},
    {"MenuSave", kFile, "&Save", "Ctrl+S", kAnyTool, false, Do<MenuSave>},
    {"MenuSaveAs", kFile, "Save &As...", "Ctrl+Shift+S", kAnyTool, false, Do<MenuSaveAs>},
    {"MenuImport", kFile, "&Import...", "Ctrl+I", kAnyTool, true, MenuImport},
    {"MenuExport", kFile, "&Export...", "Ctrl+E", kAnyTool, false, MenuExport},
    {"MenuExit", kFile, "E&xit", "Ctrl+Q", kAnyTool, true, MenuExit},
    {"MenuUndo", kEdit, "&Undo", "Ctrl+Z", kAnyTool, false, MenuUndo},
    {"MenuCopy", kEdit, "&Copy", "Ctrl+C", kEditTool, true, OnMap<MenuCopy>},
    {"MenuPaste", kEdit, "&Paste", "Ctrl+V", kEditTool, false, OnMap<MenuPaste>},
    {"MenuDelete", kEdit, "&Delete", "Del", kAnyTool, false, OnMap<MenuDelete>},
    {"MenuMirror", kEdit, "&Mirror", "Ctrl+M", kEditTool, true, OnMap<MenuMirror>},
    {"MenuFlip", kEdit, "&Flip", "Ctrl+F", kEditTool, false, OnMap<MenuFlip>},
    {"MenuFront", kEdit, "&Bring to front", "Ctrl+PgUp", kEditTool, false, OnMap<MenuFront>},
    {"MenuBack", kEdit, "&Send to back", "Ctrl+PgDown", kEditTool, false, OnMap<MenuBack>},
    {"MenuRunMaker", kRun, "&Map maker", "F6", kAnyTool, false, MenuRunMaker},
    {"MenuRunCompile", kRun, "&Compile", "F7", kAnyTool, false, Do<MenuRunCompile>},
    {"MenuRunSoldat", kRun, "&Soldat", "F8", kAnyTool, false, MenuRunSoldat},
    {"MenuRunAll", kRun, "&All", "F9", kAnyTool, false, MenuRunAll},
    {"MenuHelp", kHelp, "&Help", "F1", kAnyTool, false, MenuHelp},
    {"MenuAbout", kHelp, "&About", "", kAnyTool, false, MenuAbout},
});

constexpr std::array<std::string_view, 4> kMenuCaptions = {"&File", "&Edit", "&Run", "&Help"};

}  // namespace

std::span<const std::string_view> MenuCaptions() { return kMenuCaptions; }

std::span<const Command> Commands() { return kCommands; }

std::string CaptionOf(const Command& command, const EditorState& state) {
  return command.action == MenuUndo ? state.journal.caption : std::string(command.caption);
}

bool IsEnabled(const Command& command, const EditorState& state) {
  if (command.action == nullptr) return false;
  if (command.name == "MenuPaste" && state.clipboard.Empty()) return false;
  return !command.inEditToolOnly || state.document.toolIndex == ToolMode::kEdit;
}

}  // namespace vesmora
