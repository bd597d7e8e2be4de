// The one table of menu commands: it feeds the menus, the keys and the manual's
// list of shortcuts.
#pragma once

#include <span>
#include <string_view>

#include "app/editor.h"

namespace vesmora {

enum class CommandMenu { kFile, kEdit, kRun, kHelp };

/// The captions of the menus, in the order of CommandMenu.
std::span<const std::string_view> MenuCaptions();

using CommandAction = void (*)(Editor& editor);

struct Command {
  std::string_view name;  // of the menu item
  CommandMenu menu;
  std::string_view caption;   // with its mnemonic
  std::string_view shortcut;  // in Qt's portable notation, several with "; ", empty for none
  bool (*isEnabled)(const Editor& editor);
  bool startsGroup;  // a separator stands before it
  CommandAction action;
};

/// In menu order.
std::span<const Command> Commands();

/// As the menu and the shortcut do it.
void RunCommand(Editor& editor, const Command& command);

/// The caption as it is now: Undo and Redo name their step.
std::string_view CaptionOf(const Command& command, const Editor& editor);

}  // namespace vesmora
