// New, Open, Save and Undo: what becomes of map, view, history and files.
#include "app/file_commands.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "app/safety_net.h"
#include "app/undo_commands.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::AllOf, testing::ElementsAre, testing::Field, testing::HasSubstr;

class FileCommandsTest : public testing::Test, protected Bench {
 protected:
  /// All that a cancelled or failed command must leave as it was.
  auto Everything() {
    return std::tuple(StateOf(map), Status(), editor.recent.slots, selection.TotalCounter(),
                      editor.view.zoom, editor.tool.value, settings.values);
  }
  /// A view, a tool, a history and a selection far from those of a fresh map.
  void Disturb() {
    Choose(ToolMode::kAddPolygon);
    Click(300, 300);
    SelectEverything(selection, map);
    editor.view.centerX = editor.view.centerY = editor.view.zoom = 4;
    editor.view.gridSize = 25;
    editor.show.showFlags = {0, 0, 1, 0, 0, 1, 0};
    settings.values["Recent/Path"] = "/last/";
    editor.recent = {};
    events.clear();
  }
  Bytes Backup() { return FileBytes(Temp("backup.pmp")); }
  void UndoAs(const std::string& status) {
    MenuUndo(editor);
    EXPECT_EQ(Status(), status);
  }
};

TEST_F(FileCommandsTest, SaveKeepsTheHistoryAndOneBackup) {
  const std::string path = PutMap("ctf_a.pmp");
  OpenMap(editor, path);
  const Bytes old = FileBytes(path);
  Disturb();
  MenuSave(editor);
  EXPECT_THAT(events, ElementsAre("RefreshInfoPanel", "RedrawMap", "RefreshInfoPanel"));
  EXPECT_TRUE(Backup() == old);
  const Bytes first = FileBytes(path);
  EXPECT_EQ(journal.caption, "&Undo Polygon");
  OpenMap(editor, path);
  EXPECT_EQ(map.polygons.last, 39) << "the half-built triangle is not in the file";
  MenuSave(editor);
  EXPECT_TRUE(Backup() == first);
  std::filesystem::remove(path);
  MenuSave(editor);
  EXPECT_TRUE(Backup() == first) << "nothing to back up";
  EXPECT_TRUE(std::filesystem::exists(path) && TakeMessages().empty());
}

TEST_F(FileCommandsTest, AFailedSaveLosesNothing) {
  const Bytes old = FileBytes(DataPath("small.pmp"));
  const std::string other = PutMap("ctf_b.pmp");
  const auto fails = [&](bool saveAs, const auto& breakFiles) {
    const std::string path = PutMap("ctf_a.pmp", "full.pmp");
    OpenMap(editor, path);
    Snapshot("Move");
    EXPECT_TRUE(map.sceneries.Full());  // no file keeps the last one
    map.author = " ";
    SelectEverything(selection, map);
    const std::string target = saveAs ? other : path;
    PutFile(target, old);
    std::filesystem::remove(Temp("backup.pmp"));
    const auto before = Everything();
    dialogs.chosenFiles = {other};
    breakFiles();
    saveAs ? MenuSaveAs(editor) : MenuSave(editor);
    files.FailCall(0, 0);
    files.LimitFileSize(~std::uint64_t{0});
    const std::vector<Message> messages = TakeMessages();
    if (FileBytes(target) != old) {
      EXPECT_TRUE(Backup() == old);
      return false;
    }
    EXPECT_THAT(messages, ElementsAre(AllOf(Field(&Message::title, "File error"),
                                            Field(&Message::icon, MessageIcon::kCritical),
                                            Field(&Message::text, HasSubstr(target)))));
    EXPECT_TRUE(Everything() == before);
    EXPECT_EQ(events.back(), "RefreshInfoPanel");
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
      failures += fails(saveAs, [&, how = lasting] {
        start = files.Count();
        files.FailCall(start + call, EIO, how);
      });
      isReached = files.Count() - start >= call;
    }
    EXPECT_GE(failures, 15);
    EXPECT_TRUE(fails(saveAs, [&] { files.LimitFileSize(502111); }));
  }
  files.FailAll("MayWrite", EACCES);
  EXPECT_TRUE(fails(false, [] {}));
  EXPECT_FALSE(std::filesystem::exists(Temp("backup.pmp")))
      << "it would be write-protected as well, and no later one could replace it";
  files.FailAll("MayWrite", 0);
  editor.ports.tempFolder = "";
  EXPECT_TRUE(fails(false, [] {})) << "nowhere to put the backup";
}

TEST_F(FileCommandsTest, AVanishedUndoFileGivesANewMapAndAnUnreadableOneChangesNothing) {
  AddSpawn(map, 1, 2, 0);
  Snapshot("Move");
  Snapshot("Color");
  const DocumentState before = StateOf(map);
  files.FailAll("OpenToRead", EACCES);
  UndoAs("0: 0 1 0 0 0, 1 &Undo Move");
  EXPECT_TRUE(StateOf(map) == before);
  files.FailAll("OpenToRead", 0);
  std::filesystem::remove(journal.NewestFile());
  UndoAs("0: 0 0 0 0 0, 0 &Undo");
  const Message lost = FileError("File '" + Temp("VesmoraUndo0.tmp") +
                                 "' not found.\nThe map that was open is in File > Recover.");
  EXPECT_THAT(TakeMessages(), ElementsAre(Field(&Message::title, "File error"), lost));
}

}  // namespace
}  // namespace vesmora
