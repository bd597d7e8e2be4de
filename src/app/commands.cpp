#include "app/commands.h"

#include <array>

#include "app/file_commands.h"
#include "app/prefab_commands.h"
#include "app/run_commands.h"
#include "app/safety_net.h"
#include "app/undo_commands.h"
#include "tools/edit_commands.h"

namespace vesmora {
namespace {

void MenuExit(Editor& editor) { editor.ports.window.Unload(); }

void MenuAbout(Editor& editor) { editor.ports.window.ShowAbout(); }

/// A command of the tools, which know the map but not the application.
template <void (*kCommand)(Editing& editing)>
void OnMap(Editor& editor) {
  kCommand(editor);
}

/// A command that also tells whether it succeeded, for others that build on it.
template <bool (*kCommand)(Editor& editor)>
void Do(Editor& editor) {
  kCommand(editor);
}

bool InAnyTool(const Editor& /*editor*/) { return true; }
bool InEdit(const Editor& editor) { return editor.IsTool(ToolMode::kEdit); }
bool CanRedo(const Editor& editor) { return editor.journal.redoAvailable >= 0; }
bool CanPaste(const Editor& editor) { return InEdit(editor) && !editor.clipboard.Empty(); }

constexpr CommandMenu kFile = CommandMenu::kFile;
constexpr CommandMenu kEdit = CommandMenu::kEdit;
constexpr CommandMenu kRun = CommandMenu::kRun;
constexpr CommandMenu kHelp = CommandMenu::kHelp;

constexpr auto kCommands = std::to_array<Command>({
    {"MenuNew", kFile, "&New", "Ctrl+N", InAnyTool, false, MenuNew},
    {"MenuOpen", kFile, "&Open...", "Ctrl+O", InAnyTool, false, MenuOpen},
    {"MenuRecover", kFile, "&Recover...", "", CanRecover, false, MenuRecover},
    {"MenuSave", kFile, "&Save", "Ctrl+S", InAnyTool, false, Do<MenuSave>},
    {"MenuSaveAs", kFile, "Save &As...", "Ctrl+Shift+S", InAnyTool, false, Do<MenuSaveAs>},
    {"MenuImport", kFile, "&Import...", "Ctrl+I", InAnyTool, true, MenuImport},
    {"MenuExport", kFile, "&Export...", "Ctrl+E", InAnyTool, false, MenuExport},
    {"MenuExit", kFile, "E&xit", "Ctrl+Q", InAnyTool, true, MenuExit},
    {"MenuUndo", kEdit, "&Undo", "Ctrl+Z", InAnyTool, false, MenuUndo},
    {"MenuRedo", kEdit, "&Redo", "Ctrl+Shift+Z; Ctrl+Y", CanRedo, false, MenuRedo},
    {"MenuCopy", kEdit, "&Copy", "Ctrl+C", InEdit, true, OnMap<MenuCopy>},
    {"MenuPaste", kEdit, "&Paste", "Ctrl+V", CanPaste, false, OnMap<MenuPaste>},
    {"MenuDelete", kEdit, "&Delete", "Del", InAnyTool, false, OnMap<MenuDelete>},
    {"MenuSelectAll", kEdit, "Select &all", "Ctrl+A", InEdit, false, OnMap<MenuSelectAll>},
    {"MenuMirror", kEdit, "&Mirror", "Ctrl+M", InEdit, true, OnMap<MenuMirror>},
    {"MenuFlip", kEdit, "&Flip", "Ctrl+F", InEdit, false, OnMap<MenuFlip>},
    {"MenuFront", kEdit, "&Bring to front", "Ctrl+PgUp", InEdit, false, OnMap<MenuFront>},
    {"MenuBack", kEdit, "&Send to back", "Ctrl+PgDown", InEdit, false, OnMap<MenuBack>},
    {"MenuRunMaker", kRun, "&Map maker", "F6", InAnyTool, false, MenuRunMaker},
    {"MenuRunCompile", kRun, "&Compile", "F7", InAnyTool, false, Do<MenuRunCompile>},
    {"MenuRunSoldat", kRun, "&Soldat", "F8", InAnyTool, false, MenuRunSoldat},
    {"MenuRunAll", kRun, "&All", "F9", InAnyTool, false, MenuRunAll},
    {"MenuHelp", kHelp, "&Help", "F1", InAnyTool, false, MenuHelp},
    {"MenuAbout", kHelp, "&About", "", InAnyTool, false, MenuAbout},
});

constexpr std::array<std::string_view, 4> kMenuCaptions = {"&File", "&Edit", "&Run", "&Help"};

}  // namespace

std::span<const std::string_view> MenuCaptions() { return kMenuCaptions; }

std::span<const Command> Commands() { return kCommands; }

void RunCommand(Editor& editor, const Command& command) {
  editor.note.clear();
  command.action(editor);
}

std::string_view CaptionOf(const Command& command, const Editor& editor) {
  if (command.action == MenuUndo) return editor.journal.caption;
  return command.action == MenuRedo ? editor.journal.redoCaption : command.caption;
}

}  // namespace vesmora
