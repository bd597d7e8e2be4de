#include "app/commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "support/editor_bench.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

const Command& Named(std::string_view name) {
  return *std::ranges::find(Commands(), name, &Command::name);
}

TEST(CommandsTest, EveryMenuHasItsCommandsInOrder) {
  std::array<std::string, 4> names;
  for (const Command& command : Commands()) {
    names.at(static_cast<std::size_t>(command.menu)) += " " + std::string(command.name.substr(4));
  }
  EXPECT_THAT(MenuCaptions(), ElementsAre("&File", "&Edit", "&Run", "&Help"));
  EXPECT_THAT(names, ElementsAre(" New Open Save SaveAs Import Export Exit",
                                 " Undo Copy Paste Delete Mirror Flip Front Back",
                                 " RunMaker RunCompile RunSoldat RunAll", " Help About"));
}

TEST(CommandsTest, NoShortcutOrMnemonicMeansTwoThings) {
  std::set<std::string_view> shortcuts;
  std::set<std::pair<CommandMenu, char>> mnemonics;
  for (const Command& command : Commands()) {
    const std::size_t mark = command.caption.find('&');
    ASSERT_LT(mark, command.caption.size() - 1) << command.name;
    const char letter = command.caption[mark + 1];
    EXPECT_TRUE(mnemonics.insert({command.menu, letter}).second) << command.name;
    if (command.shortcut.empty()) continue;
    EXPECT_TRUE(shortcuts.insert(command.shortcut).second) << command.name;
  }
}

TEST(CommandsTest, AddToolsDisableWhatWorksOnASelection) {
  EditorBench bench;
  const std::set<std::string_view> needEdit = {"MenuCopy", "MenuPaste", "MenuMirror",
                                               "MenuFlip", "MenuFront", "MenuBack"};
  bench.state.clipboard.spawns.last = 0;  // something to paste
  for (const Command& command : Commands()) {
    bench.document.toolIndex = ToolMode::kEdit;
    const bool inEdit = IsEnabled(command, bench.state);
    for (int tool = 1; tool < kToolCount; ++tool) {
      bench.document.toolIndex = static_cast<ToolMode>(tool);
      EXPECT_EQ(IsEnabled(command, bench.state), inEdit && !needEdit.contains(command.name))
          << command.name << " in tool " << tool;
    }
  }
  EXPECT_TRUE(IsEnabled(Named("MenuSave"), bench.state));
}

TEST(CommandsTest, OnlyUndoChangesItsCaption) {
  EditorBench bench;
  bench.journal.caption = "&Undo Spwan";
  for (const Command& command : Commands()) {
    EXPECT_EQ(CaptionOf(command, bench.state),
              command.name == "MenuUndo" ? "&Undo Spwan" : command.caption);
  }
  Named("MenuExit").action(bench.editor);
  Named("MenuAbout").action(bench.editor);
  EXPECT_THAT(bench.events, ElementsAre("Unload", "ShowAbout"));
}

}  // namespace
}  // namespace vesmora
