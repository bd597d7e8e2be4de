#include "app/prefab_commands.h"

#include <gmock/gmock.h>

#include "app/undo_commands.h"
#include "document/prefab_file.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

class PrefabCommandsTest : public testing::Test, protected Bench {
 protected:
  PrefabCommandsTest() {
    MapDocument letter;
    AddTriangle(letter, {{{0, 0}, {10, 0}, {0, 10}}});
    letter.author = "Maker";
    for (const char* name : {"Prefab", "Alphabet"}) {
      std::filesystem::create_directory(editor.ports.programFolder + name);
    }
    PutFile(editor.ports.programFolder + "Alphabet/97.pre", WritePrefab(letter));
    PutFile(prefabs_ + "one.pre", WritePrefab(letter));
  }

  const std::string prefabs_ = AbsolutePath(editor.ports.programFolder + "Prefab/");
};

TEST_F(PrefabCommandsTest, TheAuthorIsAskedForAndWritten) {
  using Row = std::tuple<const char*, const char*, const char*, bool>;  // is it placed?
  for (const auto& [before, answer, author, isPlaced] :
       {Row("New", " a a ", "a a", true), Row("aa", " b ", "aa", true),
        Row("", "b", "Unknow", false), Row("aa", "New", "New", false),
        Row("a", "\xC3\x84\xC3\xA4", "\xC4\xE4", false),
        Row("New", "123456789a123456789b", "123456789a123456789", true)}) {
    map.author = before;
    dialogs.texts.emplace_back(answer);
    events.clear();
    CBauthor_Click(editor);
    EXPECT_EQ(map.author, author) << answer;
    EXPECT_TRUE((map.polygons.last >= 0) == isPlaced &&
                editor.activity.Is(ActivityKind::kPlacement) == isPlaced)
        << answer;
    EXPECT_EQ(events.front() + " " + events.back(), "AskText RedrawMap");
    MenuUndo(editor);
    EXPECT_EQ(Status(), "0: 0 0 0 0 0, 0 &Undo") << "one step takes it all back";
  }
  // Escape does not take the author back; a half-built triangle is gone.
  map.author = "aa";
  Choose(ToolMode::kAddPolygon);
  Click(300, 300);
  dialogs.texts.emplace_back("New");
  CBauthor_Click(editor);
  Press(Key::kEscape);
  EXPECT_EQ(map.author + " " + Status(), "New 1: 0 0 0 0 0, 2 &Undo Author");
  map.author = "Caf\xE9";
  dialogs.texts.emplace_back("");
  dialogs.before = [this] { EXPECT_EQ(journal.undoAvailable, 2) << "the step comes first"; };
  CBauthor_Click(editor);
  const TextRequest& request = dialogs.textRequests.back();
  EXPECT_EQ(request.title + "|" + request.prompt + "|" + request.answer,
            "Map properties|Author's name\n\nYou are also allowed place this text to the map after "
            "you press OK button.|Caf\xC3\xA9");
}

}  // namespace
}  // namespace vesmora
