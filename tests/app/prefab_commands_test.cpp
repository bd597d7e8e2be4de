#include "app/prefab_commands.h"

#include <gmock/gmock.h>

#include <cerrno>

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

  const std::string prefabs_ = editor.ports.programFolder + "Prefab/";
};

TEST_F(PrefabCommandsTest, ExportWritesTheWholeMapAndChangesNothing) {
  AddTriangle(document, {{{0, 0}, {0, 9}, {9, 0}}});  // the wrong way round
  selection.vertices.Add({0, 0});
  const DocumentState before = StateOf(document);
  const Bytes whole = WritePrefab(document);
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
  EXPECT_EQ(StateOf(document), before);
  const FileRequest& request = dialogs.requests[0];
  EXPECT_EQ(request.directory + request.fileName + request.filter.description + "|" +
                request.filter.pattern,
            prefabs_ + "Vesmora Prefab (*.pre)|*.pre");
}

TEST_F(PrefabCommandsTest, ImportTakesItsStepAfterTheDialog) {
  MenuImport(editor);
  EXPECT_THAT(events, ElementsAre("ShowImport")) << "cancelled";
  window.chosenPrefab = prefabs_ + "one.pre";
  MenuImport(editor);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 2 &Undo Move");
  EXPECT_TRUE(selection.placing && events.back() == "RedrawMap");
  MenuUndo(editor);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Import");
  EXPECT_FALSE(selection.placing);
  EXPECT_EQ(document.polygons[0].vertices[1].x, 10) << "where the prefab has it";
  MenuUndo(editor);
  EXPECT_EQ(Status(), "0: 0 0 0 0 0, 0 &Undo");
}

TEST_F(PrefabCommandsTest, TheImportDialogCountsWhatIsFreeAndWhatIsChosen) {
  PutFile(prefabs_ + "other.pre", FileBytes(DataPath("hostile/prefab-version_0.pre")));
  PutFile(prefabs_ + "LARGE.PRE", FileBytes(DataPath("large.pre")));
  PutFile(prefabs_ + "readme.txt", {});
  EXPECT_THAT(ListPrefabs(editor.ports), ElementsAre("LARGE.PRE", "one.pre", "other.pre"));
  document.lastScenery = 10;
  document.lastCollider = 0;
  using Row = std::array<std::string, 2>;
  for (const auto& [file, shown] :
       {Row{"", "  0\n0\n0"}, Row{"one.pre", "one Maker 1\n0\n0"},
        Row{"LARGE.PRE", "LARGE Tester 60\n80\n70"}, Row{"other.pre", "other  Err\nErr\nErr"},
        Row{"no.pre", "no  Err\nErr\nErr"}}) {
    const ImportContents contents = ShowPrefab(editor, file);
    EXPECT_EQ(contents.lName + " " + contents.lAuthor + " " + contents.lMaara2, shown);
    EXPECT_EQ(contents.canImport, !contents.lAuthor.empty()) << file;
    EXPECT_EQ(contents.lMaara, "400\n244\n127");
  }
}

TEST_F(PrefabCommandsTest, TheAuthorIsAskedForAndWritten) {
  using Row = std::tuple<const char*, const char*, const char*, bool>;  // is it placed?
  for (const auto& [before, answer, author, isPlaced] :
       {Row("New", " a a ", "a a", true), Row("aa", " b ", "aa", true),
        Row("New", "", "New", false), Row("", "b", "Unknow", false), Row("aa", "New", "New", false),
        Row("", "bb", "bb", false), Row("New", "123456789a123456789b", "123456789a123456789", true),
        Row("a", "\xC3\x84\xC3\xA4", "\xC4\xE4", false)}) {
    document.author = before;
    dialogs.texts.emplace_back(answer);
    events.clear();
    CBauthor_Click(editor);
    EXPECT_EQ(document.author, author) << answer;
    EXPECT_TRUE((document.lastPolygon >= 0) == isPlaced && selection.placing == isPlaced) << answer;
    EXPECT_EQ(events.front() + " " + events.back(), "AskText RedrawMap");
    MenuUndo(editor);
    EXPECT_EQ(Status(), "0: 0 0 0 0 0, 0 &Undo") << "one step takes it all back";
  }
  // Escape does not take the author back; a half-built triangle is gone.
  document.author = "aa";
  Choose(ToolMode::kAddPolygon);
  Click(300, 300);
  dialogs.texts.emplace_back("New");
  CBauthor_Click(editor);
  Press(Key::kEscape);
  EXPECT_EQ(document.author + " " + Status(), "New 1: 0 0 0 0 0, 2 &Undo Author");
  document.author = "Caf\xE9";
  files.FailCall(files.Count() + 1, EIO, FaultyFileCalls::Lasting::kForGood);
  dialogs.texts.emplace_back("");
  events.clear();
  CBauthor_Click(editor);
  EXPECT_EQ(events[0] + ", " + events[1], "Show File error, AskText") << "the step comes first";
  const TextRequest& request = dialogs.textRequests.back();
  EXPECT_EQ(request.title + "|" + request.prompt + "|" + request.answer,
            "Map properties|Author's name\n\nYou are also allowed place this text to the map after "
            "you press OK button.|Caf\xC3\xA9");
}

}  // namespace
}  // namespace vesmora
