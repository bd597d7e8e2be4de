#include "app/prefab_commands.h"

#include <gmock/gmock.h>

#include "app/undo_commands.h"
#include "document/prefab_file.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

class PrefabCommandsTest : public testing::Test, protected EditorBench {
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

TEST_F(PrefabCommandsTest, ExportWritesTheWholeMapAndChangesNothing) {
  AddTriangle(map, {{{0, 0}, {0, 9}, {9, 0}}});  // the wrong way round
  selection.vertices.Append({0, 0});
  const DocumentState before = StateOf(map);
  const Bytes whole = WritePrefab(map);
  const std::string path = folder / "out.pre";
  PutFile(path, Bytes(2000));
  dialogs.chosenFiles = {path, path};
  MenuExport(editor);
  EXPECT_EQ(FileBytes(path), whole) << "and nothing of the longer file";
  files.LimitFileSize(100);
  MenuExport(editor);
  EXPECT_EQ(FileBytes(path), whole) << "a failed export leaves the old file";
  EXPECT_THAT(events, ElementsAre("ChooseFileToSave", "ChooseFileToSave", "Show File error"));
  EXPECT_THAT(dialogs.messages[0].text, testing::HasSubstr(path));
  EXPECT_EQ(StateOf(map), before);
  const FileRequest& request = dialogs.requests[0];
  EXPECT_EQ(request.title + request.directory + request.fileName + request.filter.description +
                "|" + request.filter.pattern,
            "Export" + prefabs_ + "Vesmora Prefab (*.pre)|*.pre");
  // Half a triangle is no piece of a map, but it goes on being built.
  Choose(ToolMode::kAddPolygon);
  Click(300, 300);
  files.LimitFileSize(~std::uint64_t{0});
  dialogs.chosenFiles = {folder / "half.pre"};
  MenuExport(editor);
  EXPECT_EQ(FileBytes(folder / "half.pre"), whole);
  Click(400, 300);
  Click(350, 400);
  EXPECT_EQ(Status(), "1: 2 0 0 0 0, 1 &Undo Polygon");
}

TEST_F(PrefabCommandsTest, ImportTakesItsStepAfterTheDialog) {
  MenuImport(editor);
  EXPECT_THAT(events, ElementsAre("ShowImport")) << "cancelled";
  window.chosenPrefab = prefabs_ + "one.pre";
  MenuImport(editor);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 2 &Undo Move");
  EXPECT_TRUE(editor.activity.Is(ActivityKind::kPlacement) && events.back() == "RedrawMap");
  MenuUndo(editor);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Import");
  EXPECT_FALSE(editor.activity.Is(ActivityKind::kPlacement));
  EXPECT_EQ(map.polygons[0].vertices[1].x, 10) << "where the prefab has it";
  MenuUndo(editor);
  EXPECT_EQ(Status(), "0: 0 0 0 0 0, 0 &Undo");
}

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
