#include "app/file_commands.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "app/undo_commands.h"
#include "document/map_image.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::IsEmpty;

class FileCommandsTest : public testing::Test {
 protected:
  /// All that a cancelled or failed command must leave as it was.
  auto Everything() {
    const EditorState& state = bench_.state;
    return std::tuple(StateOf(document_), state.recent.slots, journal_.undoAvailable,
                      journal_.caption, state.selection.TotalCounter(), state.view.zoom,
                      state.tool.value, bench_.settings.values);
  }
  /// A view, a tool, a history and a selection far from those of a fresh map.
  void Disturb() {
    ChangeTool(bench_.editor.AsEditing(), ToolMode::kAddPolygon);
    bench_.Click(300, 300);
    EditorState& state = bench_.state;
    state.view.centerX = 70;
    state.view.centerY = -30;
    state.view.zoom = 4;
    state.view.gridSize = 25;
    state.show.showFlags = {0, 0, 1, 0, 0, 1, 0};
    SelectEverything(state.selection, document_);
  }
  void ExpectFreshView() {
    const EditorState& state = bench_.state;
    const ViewTransform& view = state.view;
    EXPECT_THAT((std::array{view.centerX, view.centerY, view.zoom}), ElementsAre(0, 0, 1));
    EXPECT_EQ(view.gridSize, 0);
    EXPECT_THAT(state.show.showFlags, ElementsAre(1, 1, 1, 1, 1, 0, 0));
    EXPECT_EQ(document_.toolIndex, ToolMode::kEdit);
    EXPECT_EQ(state.tool.value, 0);
    EXPECT_TRUE(state.selection.Empty() && !state.selection.box.Complete());
    EXPECT_FALSE(state.gesture.InProgress());
    EXPECT_EQ(journal_.undoAvailable, -1);
    EXPECT_EQ(journal_.caption, "&Undo");
    EXPECT_EQ(bench_.window.Pointer(), PointerShape::kDefault);
    EXPECT_THAT(bench_.events, testing::Contains("RedrawMap"));
  }

  EditorBench bench_;
  Editor& editor_ = bench_.editor;
  MapDocument& document_ = bench_.document;
  UndoJournal& journal_ = bench_.journal;
};

TEST_F(FileCommandsTest, NewStartsAllOver) {
  Disturb();
  document_.fileName = "/maps/open.pmp";
  const std::int16_t slot = journal_.undoSlot;
  bench_.events.clear();
  MenuNew(editor_);
  ExpectFreshView();
  EXPECT_EQ(document_.lastPolygon, -1);
  EXPECT_EQ(document_.fileName, "");
  EXPECT_EQ(document_.author, "New");
  EXPECT_EQ(journal_.undoSlot, slot) << "no snapshot was taken, no slot given back";
}

TEST_F(FileCommandsTest, OpenTakesTheMapOrLeavesANewOne) {
  const std::string small = bench_.PutMap("a b.Pmp");
  const std::string odd = bench_.PutMap("terrain.map", "terrain.pmp");
  const std::string cut = bench_.folder / "cut.pmp";
  PutFile(cut, Bytes(kMapFileSize - 1));
  const std::string missing = bench_.folder / "missing.pmp";
  struct Row {
    std::string path;
    std::string fileName;
    int lastPolygon;
    std::vector<Message> messages;
    std::string newest;
  };
  for (const auto& [path, fileName, lastPolygon, messages, newest] :
       {Row{small, small, 39, {}, small}, Row{odd, odd, 219, {}, ""},
        Row{cut, "", -1, {FileError("File '" + cut + "' is not Soldat 1.0.5b mapfile.")}, ""},
        Row{missing, "", -1, {FileError("File '" + missing + "' not found.")}, ""}}) {
    Disturb();
    bench_.events.clear();
    bench_.state.recent = {};
    bench_.settings.values["Recent/Path"] = "/last/";
    bench_.dialogs.chosenFiles = {path};
    bench_.dialogs.requests.clear();
    MenuOpen(editor_);
    ExpectFreshView();
    EXPECT_EQ(document_.fileName, fileName);
    EXPECT_EQ(document_.lastPolygon, lastPolygon) << path;
    EXPECT_EQ(bench_.TakeMessages(), messages);
    EXPECT_EQ(bench_.state.recent.slots[0], newest) << path;
    EXPECT_EQ(bench_.settings.values["Recent/Path"], bench_.folder.Path()) << path;
    ASSERT_EQ(bench_.dialogs.requests.size(), 1U);
    const FileRequest& request = bench_.dialogs.requests[0];
    EXPECT_EQ(request.directory, "/last/");
    EXPECT_EQ(request.fileName, "");
    EXPECT_EQ(request.filter.description + "|" + request.filter.pattern,
              "Soldat Map (*.pmp)|*.PMP");
  }
  bench_.state.shiftDown = true;
  OpenMap(editor_, cut);
  EXPECT_EQ(document_.fileName, cut) << "Shift lets a map of the wrong size in";
}

TEST_F(FileCommandsTest, CancelledOrUnreadableChangesNothing) {
  const std::string unreadable = bench_.PutMap("a.pmp");
  Disturb();
  document_.fileName = "/maps/open.pmp";
  const auto before = Everything();
  bench_.events.clear();
  bench_.dialogs.chosenFiles = {"", ""};
  MenuOpen(editor_);
  MenuSaveAs(editor_);
  EXPECT_THAT(bench_.events, ElementsAre("Read Recent/Path", "ChooseFileToOpen", "Read Recent/Path",
                                         "ChooseFileToSave"));
  EXPECT_TRUE(Everything() == before);
  bench_.files.FailAll("Read", EIO);
  OpenMap(editor_, unreadable);
  EXPECT_TRUE(Everything() == before);
  EXPECT_EQ(bench_.TakeMessages().size(), 1U);
}

TEST_F(FileCommandsTest, SaveKeepsTheHistoryAndOneBackup) {
  const std::string path = bench_.PutMap("ctf_a.pmp");
  OpenMap(editor_, path);
  const Bytes old = FileBytes(path);
  AddSpawn(document_, 5, 5, 0);
  Disturb();
  bench_.events.clear();
  MenuSave(editor_);
  EXPECT_THAT(bench_.events,
              ElementsAre("SetPointer 0", "RefreshInfoPanel", "RedrawMap", "RefreshInfoPanel"));
  EXPECT_TRUE(FileBytes(bench_.Temp("backup.pmp")) == old);
  const Bytes first = FileBytes(path);
  EXPECT_EQ(journal_.caption, "&Undo Polygon");
  const std::int16_t polygons = document_.lastPolygon;
  OpenMap(editor_, path);
  EXPECT_EQ(document_.lastPolygon, polygons) << "the half-built triangle is not in the file";

  MenuSave(editor_);
  EXPECT_TRUE(FileBytes(bench_.Temp("backup.pmp")) == first);
  std::filesystem::remove(path);
  MenuSave(editor_);
  EXPECT_TRUE(FileBytes(bench_.Temp("backup.pmp")) == first) << "nothing to back up";
  EXPECT_TRUE(std::filesystem::exists(path));
  EXPECT_THAT(bench_.TakeMessages(), IsEmpty());

  OpenMap(editor_, bench_.Temp("backup.pmp"));
  bench_.nextRandom = 0.9;
  MenuSave(editor_);
  EXPECT_EQ(FileBytes(bench_.Temp("backup.pmp")).size(), kMapFileSize);
  EXPECT_FALSE(FileBytes(bench_.Temp("backup.pmp")) == first) << "the backup itself was saved";
}

TEST_F(FileCommandsTest, SaveAsPresetsTheNameOfACtfMap) {
  using Row = std::pair<std::vector<std::uint8_t>, std::string>;
  for (const auto& [teams, preset] :
       {Row({}, ""), Row({0}, ""), Row({1}, "ctf_"), Row({2, 1}, ""), Row({1, 0}, "ctf_")}) {
    MenuNew(editor_);
    document_.spawns[0].team = 1;  // a preview counts for nothing
    for (const std::uint8_t team : teams) AddSpawn(document_, 0, 0, team);
    bench_.settings.values["Recent/Path"] = "/last/";
    bench_.dialogs.chosenFiles = {""};
    MenuSave(editor_);
    EXPECT_EQ(bench_.dialogs.requests.back().fileName, preset);
    EXPECT_EQ(bench_.dialogs.requests.back().directory, "/last/");
  }
}

TEST_F(FileCommandsTest, SaveAsEmptiesTheHistoryAndKeepsTheCaption) {
  AddSpawn(document_, 1, 2, 1);
  AddTriangle(document_, {{{0, 0}, {0, 0}, {0, 50}}});
  bench_.Snapshot("Move");
  const std::string path = bench_.PutMap("a.pmp");
  const Bytes old = FileBytes(path);
  bench_.dialogs.chosenFiles = {path};
  // The warnings come when the file is whole.
  bench_.dialogs.onShow = [&](const Message&) { EXPECT_FALSE(FileBytes(path) == old); };
  bench_.events.clear();
  MenuSaveAs(editor_);
  EXPECT_THAT(bench_.events,
              ElementsAre("Read Recent/Path", "ChooseFileToSave", "SetPointer 0",
                          "RefreshInfoPanel", "RedrawMap", "SetPointer 0", "RedrawMap",
                          "RefreshInfoPanel", "Show Polygon warning", "Show Spawn warning",
                          "Write Recent/Path", "RefreshInfoPanel"));
  EXPECT_TRUE(FileBytes(bench_.Temp("backup.pmp")) == old);
  EXPECT_EQ(document_.fileName, path);
  EXPECT_EQ(bench_.settings.values["Recent/Path"], bench_.folder.Path());
  EXPECT_EQ(bench_.state.recent.slots[0], "");
  EXPECT_EQ(journal_.caption, "&Undo Move");
  const DocumentState before = StateOf(document_);
  bench_.events.clear();
  MenuUndo(editor_);
  EXPECT_THAT(bench_.events, IsEmpty());
  EXPECT_TRUE(StateOf(document_) == before);
  bench_.Snapshot("Color");
  EXPECT_EQ(journal_.caption, "&Undo Color");
  EXPECT_EQ(journal_.undoAvailable, 0);
}

TEST_F(FileCommandsTest, AFailedSaveLosesNothing) {
  const Bytes old = FileBytes(DataPath("small.pmp"));
  const std::string path = bench_.PutMap("ctf_a.pmp");
  const std::string other = bench_.PutMap("ctf_b.pmp");
  const auto fails = [&](bool saveAs, const auto& breakFiles) {
    OpenMap(editor_, path);
    AddSpawn(document_, 5, 5, 0);
    bench_.Snapshot("Move");
    const std::string target = saveAs ? other : path;
    PutFile(target, old);
    std::filesystem::remove(bench_.folder / "temp/backup.pmp");
    const auto before = Everything();
    bench_.dialogs.chosenFiles = {other};
    breakFiles(bench_.files);
    saveAs ? MenuSaveAs(editor_) : MenuSave(editor_);
    bench_.files.FailCall(0, 0);
    bench_.files.LimitFileSize(~std::uint64_t{0});
    const std::vector<Message> messages = bench_.TakeMessages();
    if (messages.empty()) {
      EXPECT_FALSE(FileBytes(target) == old);
      EXPECT_TRUE(FileBytes(bench_.Temp("backup.pmp")) == old);
      return false;
    }
    EXPECT_THAT(messages, ElementsAre(AllOf(Field(&Message::title, "File error"),
                                            Field(&Message::icon, MessageIcon::kCritical),
                                            Field(&Message::text, HasSubstr(target)))));
    EXPECT_TRUE(FileBytes(target) == old);
    EXPECT_TRUE(Everything() == before);
    EXPECT_EQ(bench_.events.back(), "RefreshInfoPanel");
    return true;
  };
  using Lasting = FaultyFileCalls::Lasting;
  for (const auto& [saveAs, lasting] :
       {std::pair{false, Lasting::kOnce}, {true, Lasting::kForGood}}) {
    int failures = 0;
    bool isReached = true;
    for (int call = 1; isReached; ++call) {
      SCOPED_TRACE(testing::Message() << "call " << call << (saveAs ? " of Save As" : ""));
      int start = 0;
      failures += fails(saveAs, [&start, call, how = lasting](FaultyFileCalls& files) {
        start = files.Count();
        files.FailCall(start + call, EIO, how);
      });
      isReached = bench_.files.Count() - start >= call;
    }
    EXPECT_GE(failures, 15);
    for (const std::uint64_t room : {0U, 1U, 502111U}) {
      EXPECT_TRUE(fails(saveAs, [&](FaultyFileCalls& files) { files.LimitFileSize(room); }));
    }
  }
  editor_.ports.tempFolder = "";
  EXPECT_TRUE(fails(false, [](FaultyFileCalls&) {})) << "nowhere to put the backup";

  editor_.ports.tempFolder = bench_.folder / "temp/";
  bench_.files.FailAll("MayWrite", EACCES);
  EXPECT_TRUE(fails(false, [](FaultyFileCalls&) {}));
  EXPECT_FALSE(std::filesystem::exists(bench_.Temp("backup.pmp")))
      << "it would be write-protected as well, and no later one could replace it";
}

}  // namespace
}  // namespace vesmora
