#include "app/prefab_commands.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>

#include "app/undo_commands.h"
#include "document/prefab_file.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct PrefabBench : EditorBench {
  const std::string prefabs = editor.ports.programFolder + "Prefab/";

  PrefabBench() {
    for (const char* name : {"Prefab", "Alphabet"}) {
      std::filesystem::create_directory(editor.ports.programFolder + name);
    }
    const auto letter = std::make_unique<MapDocument>();
    AddTriangle(*letter, {{{0, 0}, {10, 0}, {0, 10}}});
    letter->author = "Maker";
    PutFile(editor.ports.programFolder + "Alphabet/97.pre", WritePrefab(*letter));
    PutFile(prefabs + "one.pre", WritePrefab(*letter));
  }

  std::vector<std::string> Steps() const {
    std::vector<std::string> names;
    for (int slot = 0; slot <= journal.undoAvailable; ++slot) {
      names.push_back(journal.undoActions[static_cast<std::size_t>(slot)]);
    }
    return names;
  }
};

class PrefabCommandsTest : public testing::Test, protected PrefabBench {};

TEST_F(PrefabCommandsTest, ExportWritesTheWholeMapAndChangesNothing) {
  AddTriangle(document, {{{0, 0}, {0, 9}, {9, 0}}});  // the wrong way round
  AddSpawn(document, 1, 1, 0);
  AddCollider(document, 3, 3, 3);
  selection.colliders.Add(0);
  document.fileName = "/maps/open.pmp";
  document.author = "A name of 21 letters.";
  const DocumentState before = StateOf(document);
  const std::string path = folder / "out.pre";
  PutFile(path, Bytes(2000));
  dialogs.chosenFiles.push_back(path);
  MenuExport(editor);
  ASSERT_EQ(dialogs.requests.size(), 1u);
  const FileRequest& request = dialogs.requests.front();
  EXPECT_EQ(request.directory, prefabs);
  EXPECT_EQ(request.fileName, "");
  EXPECT_EQ(request.filter.description, "Vesmora Prefab (*.pre)");
  EXPECT_EQ(request.filter.pattern, "*.pre");
  EXPECT_EQ(FileBytes(path), WritePrefab(document)) << "and nothing of the longer file";
  EXPECT_EQ(FileBytes(path).size(), 29u + 120 + 16);
  EXPECT_EQ(StateOf(document), before);
  EXPECT_THAT(Steps(), IsEmpty());
  EXPECT_EQ(settings.Read("Recent", "Path", "none"), "none");
  EXPECT_THAT(dialogs.messages, IsEmpty());

  const Bytes whole = FileBytes(path);
  AddCollider(document, 4, 4, 4);
  files.LimitFileSize(100);
  dialogs.chosenFiles.push_back(path);
  MenuExport(editor);
  ASSERT_EQ(dialogs.messages.size(), 1u);
  EXPECT_EQ(dialogs.messages[0].title, "File error");
  EXPECT_THAT(dialogs.messages[0].text, testing::HasSubstr(path));
  EXPECT_EQ(FileBytes(path), whole) << "a failed export leaves the old file";
  dialogs.chosenFiles.emplace_back();
  MenuExport(editor);
  EXPECT_EQ(FileBytes(path), whole);
  EXPECT_EQ(dialogs.messages.size(), 1u);
}

TEST_F(PrefabCommandsTest, ImportTakesItsStepAfterTheDialog) {
  MenuImport(editor);
  EXPECT_THAT(events, ElementsAre("ShowImport")) << "cancelled";
  EXPECT_THAT(Steps(), IsEmpty());
  window.chosenPrefab = prefabs + "one.pre";
  MenuImport(editor);
  EXPECT_THAT(Steps(), ElementsAre("Import", "Move"));
  EXPECT_EQ(journal.caption, "&Undo Move");
  EXPECT_EQ(document.lastPolygon, 0);
  EXPECT_TRUE(selection.placing);
  EXPECT_EQ(events[events.size() - 2], "RefreshInfoPanel");
  EXPECT_EQ(events.back(), "RedrawMap");
  MenuUndo(editor);
  EXPECT_FALSE(selection.placing);
  EXPECT_EQ(document.lastPolygon, 0);
  EXPECT_EQ(document.polygons[0].vertices[1].x, 10) << "where the prefab has it";
  MenuUndo(editor);
  EXPECT_EQ(document.lastPolygon, -1);
  window.chosenPrefab = prefabs + "none.pre";
  MenuImport(editor);
  EXPECT_THAT(TakeMessages(), ElementsAre(FileError("File '" + prefabs + "none.pre' not found.")));
  EXPECT_THAT(Steps(), ElementsAre("Import"));
}

TEST_F(PrefabCommandsTest, TheImportDialogCountsWhatIsFreeAndWhatIsChosen) {
  for (const char* name : {"prefab-version_0.pre", "prefab-truncated_1.pre"}) {
    PutFile(prefabs + name, FileBytes(DataPath(std::string("hostile/") + name)));
  }
  PutFile(prefabs + "LARGE.PRE", FileBytes(DataPath("large.pre")));
  PutFile(prefabs + "readme.txt", {});
  std::filesystem::create_directory(prefabs + "folder.pre");
  EXPECT_THAT(
      ListPrefabs(editor.ports),
      ElementsAre("LARGE.PRE", "one.pre", "prefab-truncated_1.pre", "prefab-version_0.pre"));
  struct Row {
    const char* file;
    const char* name;
    const char* author;
    const char* counts;
    bool canImport;
  };
  for (const Row& row :
       {Row{"", "", "", "0\n0\n0", false}, Row{"one.pre", "one", "Maker", "1\n0\n0", true},
        Row{"LARGE.PRE", "LARGE", "Tester", "60\n80\n70", true},
        Row{"prefab-version_0.pre", "prefab-version_0", "", "Err\nErr\nErr", false},
        Row{"prefab-truncated_1.pre", "prefab-truncated_1", "", "Err\nErr\nErr", false},
        Row{"gone.pre", "gone", "", "Err\nErr\nErr", false}}) {
    const ImportContents contents = ShowPrefab(editor, row.file);
    EXPECT_EQ(contents.lName, row.name);
    EXPECT_EQ(contents.lAuthor, row.author) << row.file;
    EXPECT_EQ(contents.lMaara2, row.counts) << row.file;
    EXPECT_EQ(contents.canImport, row.canImport) << row.file;
    EXPECT_EQ(contents.lMaara, "400\n255\n128");
  }
  document.lastPolygon = 399;
  document.lastScenery = 10;
  document.lastCollider = 0;
  EXPECT_EQ(ShowPrefab(editor, "").lMaara, "0\n244\n127");
  std::filesystem::remove_all(prefabs);
  EXPECT_THAT(ListPrefabs(editor.ports), IsEmpty());
  EXPECT_THAT(dialogs.messages, IsEmpty());
}

TEST_F(PrefabCommandsTest, TheAuthorIsAskedForAndWritten) {
  struct Row {
    const char* before;
    const char* answer;
    const char* author;
    bool isPlaced;
  };
  for (const Row& row :
       {Row{"New", "aa", "aa", true}, Row{"New", "  a a ", "a a", true}, Row{"aa", "", "aa", true},
        Row{"aa", " b ", "aa", true}, Row{"", "", "Unknow", false}, Row{"", "b", "Unknow", false},
        Row{"New", "", "New", false}, Row{"Unknow", "x", "Unknow", false},
        Row{"aa", "New", "New", false}, Row{"", "new", "new", false}, Row{"", "bb", "bb", false},
        Row{"New", "123456789a123456789b", "123456789a123456789", true},
        Row{"a", "\xC3\x84\xC3\xA4", "\xC4\xE4", false}}) {
    PrefabBench bench;
    bench.document.author = row.before;
    bench.dialogs.texts.emplace_back(row.answer);
    CBauthor_Click(bench.editor);
    EXPECT_EQ(bench.document.author, row.author) << row.answer;
    EXPECT_EQ(bench.document.lastPolygon >= 0, row.isPlaced) << row.answer;
    EXPECT_EQ(bench.selection.placing, row.isPlaced);
    EXPECT_EQ(bench.events.front(), "AskText");
    EXPECT_EQ(bench.events[bench.events.size() - 2], "RefreshInfoPanel");
    EXPECT_EQ(bench.events.back(), "RedrawMap");
    EXPECT_THAT(bench.Steps(), ElementsAre("Author"));
    MenuUndo(bench.editor);
    EXPECT_EQ(bench.document.lastPolygon, -1) << "one step takes it all back";
  }
}

TEST_F(PrefabCommandsTest, EscapeDoesNotTakeTheAuthorBack) {
  document.author = "aa";
  ChangeTool(editor.AsEditing(), ToolMode::kAddPolygon);
  Click(300, 300);
  dialogs.texts.emplace_back("New");
  CBauthor_Click(editor);
  CancelGesture(editor.AsEditing());
  EXPECT_EQ(document.author, "New");
  EXPECT_THAT(Steps(), ElementsAre("Polygon", "Author"));
  EXPECT_EQ(document.lastPolygon, -1) << "the half-built triangle is gone";
}

TEST_F(PrefabCommandsTest, TheAuthorsStepIsTakenBeforeTheQuestion) {
  document.author = "Caf\xE9";
  files.FailCall(1, EIO, FaultyFileCalls::Lasting::kForGood);
  dialogs.texts.emplace_back("");
  CBauthor_Click(editor);
  EXPECT_EQ(events.front(), "Show File error") << "the failed step";
  EXPECT_EQ(events[1], "AskText");
  const TextRequest& request = dialogs.textRequests.front();
  EXPECT_EQ(request.title, "Map properties");
  EXPECT_EQ(request.prompt,
            "Author's name\n\nYou are also allowed place this text to the map after you press OK "
            "button.");
  EXPECT_EQ(request.answer, "Caf\xC3\xA9");
}

}  // namespace
}  // namespace vesmora
