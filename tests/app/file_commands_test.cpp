// New, Open, Save and Undo: what becomes of map, view, history and files.
#include "app/file_commands.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "app/safety_net.h"
#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::AllOf, testing::ElementsAre, testing::Field, testing::HasSubstr, testing::IsEmpty;

class FileCommandsTest : public testing::Test, protected EditorBench {
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

TEST_F(FileCommandsTest, NewAndOpenStartAllOver) {
  const std::string small = PutMap("a b.Pmp");
  const std::string odd = PutMap("terrain.map", "terrain.pmp");
  const std::string cut = folder / "cut.pmp";
  PutFile(cut, Bytes(kMapFileSize - 1));
  using Row = std::tuple<std::string, int, std::string>;
  for (const auto& [path, polygons, message] :
       {Row("", 0, ""), Row(small, 40, ""), Row(odd, 220, ""),
        Row(cut, 0, "File '" + cut + "' is not Soldat 1.0.5b mapfile."),
        Row("/no.pmp", 0, "File '/no.pmp' not found.")}) {
    Disturb();
    dialogs.chosenFiles = {path};
    const std::int16_t slot = journal.undoSlot;
    path.empty() ? MenuNew(editor) : MenuOpen(editor);
    const ViewTransform& view = editor.view;
    EXPECT_THAT((std::array{view.centerX, view.centerY, view.zoom}), ElementsAre(0, 0, 1));
    EXPECT_EQ(view.gridSize + editor.tool.value, 0);
    EXPECT_THAT(editor.show.showFlags, ElementsAre(1, 1, 1, 1, 1, 0, 0));
    EXPECT_TRUE(selection.Empty() && !selection.box.Complete() &&
                editor.activity.Is(ActivityKind::kNone));
    EXPECT_TRUE(Status().starts_with("0: " + std::to_string(polygons)) &&
                Status().ends_with(", 0 &Undo"));
    EXPECT_EQ(journal.undoSlot, slot) << "no snapshot was taken, no slot given back";
    EXPECT_EQ(map.fileName, polygons > 0 ? path : "");
    EXPECT_EQ(TakeMessages(), std::vector(message.empty() ? 0U : 1U, FileError(message)));
    EXPECT_EQ(editor.recent.slots[0], path == small ? small : "") << path;
    if (path.empty()) continue;
    EXPECT_EQ(settings.values["Recent/Path"], path == "/no.pmp" ? "/" : folder.Path()) << path;
    const auto& [title, directory, fileName, filter] = dialogs.requests.back();
    EXPECT_EQ(title + directory + fileName + "|" + filter.description + "|" + filter.pattern,
              "Open/last/|Soldat Map (*.pmp)|*.PMP");
  }
  editor.shiftDown = true;
  OpenMap(editor, cut);
  EXPECT_EQ(map.fileName, cut) << "Shift lets a map of the wrong size in";
}

TEST_F(FileCommandsTest, CancelledOrUnreadableChangesNothing) {
  const std::string unreadable = PutMap("a.pmp");
  Disturb();
  NoteSaved(editor);  // nothing is to be kept, which would fail first
  const auto before = Everything();
  dialogs.chosenFiles = {"", ""};
  MenuOpen(editor);
  MenuSaveAs(editor);
  EXPECT_TRUE(TakeMessages().empty());
  files.FailAll("Read", EIO);
  OpenMap(editor, unreadable);
  EXPECT_TRUE(Everything() == before);
  EXPECT_THAT(TakeMessages(), ElementsAre(Field(&Message::text, HasSubstr(unreadable))));
}

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

TEST_F(FileCommandsTest, SaveAsEmptiesTheHistoryAndKeepsTheCaption) {
  map.spawns[0].team = 1;  // a preview counts for nothing
  const std::string maps = AbsolutePath(folder / "game/MAPS") + "/";
  for (const auto& [preset, start] : {std::pair{"", std::string()}, {"ctf_", maps}}) {
    dialogs.chosenFiles = {""};
    MenuSave(editor);
    EXPECT_EQ(dialogs.requests.back().title, "Save As");
    EXPECT_EQ(dialogs.requests.back().fileName, preset);
    EXPECT_EQ(dialogs.requests.back().directory, start) << "the game's maps, if there are any";
    std::filesystem::create_directory(folder / "game/MAPS");
    AddSpawn(map, 1, 2, 1);
  }
  AddTriangle(map, {{{0, 0}, {0, 0}, {0, 50}}});
  Snapshot("Move");
  const std::string path = PutMap("a.pmp");
  const Bytes old = FileBytes(path);
  dialogs.chosenFiles = {path};
  // The warnings come when the file is whole.
  dialogs.onShow = [&](const Message&) {
    EXPECT_FALSE(FileBytes(path) == old || IsChanged(editor)) << "the program may end now";
  };
  events.clear();
  MenuSaveAs(editor);
  EXPECT_THAT(std::span(events).last(6),
              ElementsAre("Write Recent/Path", "RefreshInfoPanel", "RedrawMap",
                          "Show Polygon warning", "Show Spawn warning", "RefreshInfoPanel"));
  events.clear();
  EXPECT_EQ(map.fileName, path);
  EXPECT_EQ(settings.values["Recent/Path"], folder.Path());
  EXPECT_EQ(editor.recent.slots[0], "");
  UndoAs("0: 1 2 0 0 0, 0 &Undo Move");
  EXPECT_THAT(events, IsEmpty());
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

TEST_F(FileCommandsTest, UndoBringsBackToolAndSelectionAndNothingHalfBuilt) {
  map.fileName = "/maps/open.pmp";
  Choose(ToolMode::kAddCollider);
  Click(300, 300);
  Click(500, 400);  // on its way there it had a preview behind the first
  AddSpawn(map, 1, 2, 0);
  editor.clipboard.spawns.Append(map.spawns[0]);
  UndoAs("4: 0 0 0 0 1, 1 &Undo Collider");
  EXPECT_EQ(Pointer(), PointerShape::kCross);
  EXPECT_FALSE(editor.clipboard.Empty()) << "nobody chose an Add tool";
  Choose(ToolMode::kAddCollider);
  EXPECT_TRUE(editor.clipboard.Empty());
  Choose(ToolMode::kEdit);
  SelectEverything(selection, map);
  Press(Key::kLeft);
  ClearSelection(editor);
  UndoAs("0: 0 0 0 0 1, 1 &Undo Collider");
  EXPECT_EQ(selection.colliders.Count(), 1) << "as it was selected then";
  EXPECT_EQ(events.back(), "RedrawMap");
  EXPECT_EQ(map.fileName, "/maps/open.pmp");
  for (const char* action : {"Polygon", "Background", "Help"}) {  // of the step taken back
    MenuNew(editor);
    Choose(ToolMode::kAddPolygon);
    for (const float y : {300.0f, 390.0f}) Click(300, y);
    if (action != std::string("Polygon")) Snapshot(action);
    MenuUndo(editor);
    EXPECT_EQ(editor.activity.PlacedCorners(), 0);
    AddTriangle(map, {{{0, 0}, {50, 0}, {0, 50}}});
    Press(Key::kEscape);
    Choose(ToolMode::kEdit);
    EXPECT_EQ(map.polygons.last, 0) << action << ": nothing is dropped twice";
  }
}

TEST_F(FileCommandsTest, OnlineHelpCannotBeUndone) {
  const std::string manual = AbsolutePath(editor.ports.programFolder + "Help/index.html");
  std::filesystem::create_directory(editor.ports.programFolder + "Help");
  MenuHelp(editor);
  PutFile(manual, {});
  MenuHelp(editor);
  EXPECT_EQ(events.back(), "OpenFile " + manual);
  AddSpawn(map, 1, 2, 0);  // behind the journal's back: nothing may be loaded
  UndoAs("0: 0 1 0 0 0, 1 &Undo Help");
  EXPECT_THAT(TakeMessages(),
              ElementsAre(Message{manual + " not found", "Run error", MessageIcon::kCritical},
                          Message{"Are you crazy?\nYou can't undo Online Help.. duh.",
                                  "User problem", MessageIcon::kExclamation}));
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
