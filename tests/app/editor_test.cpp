// Start and end, what the settings keep between runs, keys and the table of commands.
#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <set>

#include "app/commands.h"
#include "app/keys.h"
#include "app/start_up.h"
#include "app/undo_commands.h"
#include "app/view_commands.h"
#include "app/window_placement.h"
#include "panel/panel_handlers.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace vesmora {
namespace {

using testing::ElementsAre, testing::IsEmpty;

using Slots = std::array<std::string, kRecentSlots>;

class StartUpTest : public testing::Test, protected EditorBench {
 protected:
  /// The messages of a start with these arguments.
  std::vector<Message> Start(const std::string& arguments) {
    editor.redrawSuppressed = true;
    events.clear();
    FirstActivation(editor, arguments);
    return TakeMessages();
  }

  const std::string game_ = folder / "game/Soldat.exe";
  Slots& recent_ = editor.recent.slots;
};

TEST_F(StartUpTest, TheFirstActivationTellsWhatIsMissing) {
  int drawn = 0;
  window.onRedraw = [&] { drawn += editor.redrawSuppressed ? 0 : 1; };
  EXPECT_THAT(Start("/no such.pmp"),
              ElementsAre(FileError("File '" + AbsolutePath("/no such.pmp") + "' not found."),
                          Message{game_ + " not found.\nExtract Vesmora in Soldat directory for "
                                          "full effect.",
                                  "Warning", MessageIcon::kExclamation}));
  EXPECT_EQ(drawn, 1) << "nothing is drawn before the end";
  EXPECT_LT(std::ranges::find(events, "LayOut"), std::ranges::find(events, "Show File error"));
  EXPECT_EQ(WindowTitle("1.2", "BETA") + WindowTitle("1.2", "Beta"),
            "Vesmora  1.2 BETAVesmora  1.2");
}

TEST_F(StartUpTest, OneArgumentNamesAFile) {
  PutFile(game_, {});
  const std::string named = PutMap("my map.PmP");
  const Message unknown{"Unknow filetype", "Argument file open", MessageIcon::kCritical};
  const std::string absolute = AbsolutePath("a.pmp");
  using Row = std::tuple<std::string, std::string, std::vector<Message>>;
  for (const auto& [arguments, opened, messages] :
       {Row("  .pmp  ", "", {}), Row("\"   \"", "", {unknown}), Row("map.pmp.txt", "", {unknown}),
        Row("a.pmp", "", {FileError("File '" + absolute + "' not found.")}),
        Row("  " + named + " ", named, {}), Row(" \"" + named + "\" ", named, {})}) {
    EXPECT_EQ(Start(arguments), messages) << arguments;
    EXPECT_EQ(map.fileName, opened.empty() ? "" : AbsolutePath(opened)) << arguments;
  }
  settings.values = {{"Recent/0", "/maps/a.pmp"}};
  Start(named);
  EXPECT_THAT(recent_, ElementsAre("/maps/a.pmp", "", "", "", "")) << "no recent one";
  EXPECT_THAT(Start(PutMap("a.Pre", "bunker.pre")), IsEmpty());
  EXPECT_GE(map.polygons.last, 0);
  EXPECT_FALSE(selection.Empty() || journal.caption == "&Undo Import");
}

TEST_F(StartUpTest, RecentFilesOpenOrLeaveTheirSlot) {
  const std::string a = PutMap("a.pmp");
  const std::string c = PutMap("c.pmp");
  // Emptied is the chosen slot, also when its neighbour names the same lost file.
  recent_ = {a, "/gone.pmp", c, "/gone.pmp", "A"};
  MenuRekentti(editor, 3);
  EXPECT_THAT(recent_, ElementsAre(a, "/gone.pmp", c, "", "A"));
  EXPECT_EQ(events.back(), "RefreshInfoPanel") << "the menus are shown anew";
  MenuRekentti(editor, 2);
  EXPECT_EQ(map.fileName, c);
  EXPECT_THAT(recent_, ElementsAre(c, a, "/gone.pmp", "", ""));
  EXPECT_THAT(settings.values, IsEmpty()) << "kept at the end only";
  files.FailAll("Read", EIO);
  MenuRekentti(editor, 1);
  EXPECT_EQ(recent_[1], a) << "there, but cannot be read now";
  for (const char* path : {"d", "d", "D"}) AddRecent(editor.recent, path);
  EXPECT_THAT(recent_, ElementsAre("D", "d", c, a, "/gone.pmp")) << "letters' case counts";
}

TEST_F(StartUpTest, TheEndKeepsSettingsAndThenDeletesTheSnapshots) {
  Snapshot("Move");
  const std::string snapshot = journal.NewestFile();
  recent_ = {"  /maps/a b.pmp ", "a.pm", "/maps/c.pmp", "", ""};
  window.placement = {.state = 2, .top = -7, .left = 8, .width = {}, .height = 700};
  settings.onWrite = [&] { EXPECT_TRUE(std::filesystem::exists(snapshot)); };
  EXPECT_TRUE(CleanUp(editor));
  EXPECT_FALSE(std::filesystem::exists(snapshot));
  LoadRecent(editor.recent, settings);
  EXPECT_EQ(recent_, (Slots{"/maps/a b.pmp", "a.pm", "/maps/c.pmp", "", ""}));
  EXPECT_FALSE(RecentMenuItemOf(editor.recent, 1).visible);
  EXPECT_EQ(RecentMenuItemOf(editor.recent, 2).caption, "&3 /maps/c.pmp");
  const WindowPlacement again = LoadPlacement(settings);
  EXPECT_THAT((std::array{again.state, again.top, again.left, again.width, again.height}),
              ElementsAre(2, -7, 8, std::nullopt, 700));
  for (const auto& [text, width] : {std::pair("nan", -1), {" -12 ", -12}, {"32768", 32767}}) {
    settings.values["Windows/Width"] = text;
    EXPECT_EQ(LoadPlacement(settings).width.value_or(-1), width) << text;
  }
}

TEST_F(StartUpTest, AWindowCanAlwaysBeReached) {
  using Rect = ScreenRect;
  using Row = std::tuple<Rect, int, Rect>;  // where it stood, the screens, where it comes up
  const std::vector<Rect> screens = {{0, 0, 1920, 1080}, {-1280, 100, 1280, 1024}};
  for (const auto& [place, count, expected] :
       {Row({-780, 50, 900, 700}, 1, {-780, 50, 900, 700}),  // 120 pixels to drag by
        Row({-790, 50, 900, 700}, 1, {0, 50, 900, 700}),
        Row({100, -650, 900, 700}, 1, {100, 28, 900, 700}),    // the title bar is above
        Row({100, 1080, 900, 700}, 1, {100, 1080, 900, 700}),  // its bar can be seen
        Row({-1250, 200, 1900, 1060}, 2, {-1250, 200, 1280, 1024}),
        Row({10, 1100, 1900, 700}, 1, {10, 380, 1900, 700})}) {  // eight rows are no handle
    const Rect fitted =
        FitToScreens(place, std::span(screens).first(static_cast<std::size_t>(count)));
    EXPECT_EQ(fitted, expected) << place.left << "," << place.top;
  }
}

class KeysTest : public testing::Test, protected EditorBench {
 protected:
  const PolygonVertex& AddSelectedTriangle() {
    AddTriangle(map, {{{0, 0}, {50, 0}, {0, 50}}});
    SelectEverything(selection, map);
    events.clear();
    return map.polygons[0].vertices[1];
  }
};

TEST_F(KeysTest, CommandsKnowTheirToolAndNoShortcutOrMnemonicMeansTwoThings) {
  const std::set<std::string_view> needEdit = {"MenuCopy",  "MenuPaste", "MenuMirror",   "MenuFlip",
                                               "MenuFront", "MenuBack",  "MenuSelectAll"};
  const std::set<std::string_view> needMore = {"MenuPaste", "MenuRedo", "MenuRecover"};
  std::set<std::pair<std::string_view, char>> shortcuts;
  for (const Command& command : Commands()) {
    const std::string name(command.name);
    const std::string_view menu = MenuCaptions()[static_cast<std::size_t>(command.menu)];
    EXPECT_TRUE(shortcuts.insert({menu, command.caption.at(command.caption.find('&') + 1)}).second);
    EXPECT_TRUE(command.shortcut.empty() || shortcuts.insert({command.shortcut, 0}).second) << name;
    map.toolIndex = ToolMode::kEdit;
    EXPECT_EQ(command.isEnabled(editor), !needMore.contains(command.name)) << name;
    map.toolIndex = ToolMode::kAddPolygon;
    const bool isNeedy = needEdit.contains(command.name) || needMore.contains(command.name);
    EXPECT_EQ(command.isEnabled(editor), !isNeedy) << name;
  }
}

TEST_F(KeysTest, ArrowsMoveTheSelectionInStepsOrArePassedOn) {
  using Row = std::tuple<bool, bool, Key, float, float>;
  for (const auto& [shift, ctrl, key, x, y] :
       {Row(false, false, Key::kLeft, -1, 0), Row(true, false, Key::kUp, 0, -0.1f),
        Row(false, true, Key::kRight, 10, 0), Row(true, true, Key::kDown, 0, 50)}) {
    MenuNew(editor);
    editor.view.zoom = 4;
    editor.view.gridSize = 25;  // neither counts
    const PolygonVertex& corner = AddSelectedTriangle();
    // What the window followed does not count: a key may have been let go elsewhere.
    editor.shiftDown = !shift;
    editor.ctrlDown = !ctrl;
    EXPECT_TRUE(Press(key, {.shift = shift, .ctrl = ctrl}));
    EXPECT_THAT(events, ElementsAre("RedrawMap"));
    EXPECT_FLOAT_EQ(corner.x, 50 + x);
    EXPECT_FLOAT_EQ(corner.y, y);
    Press(key);
    EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Move") << "one step a selection";
    for (const Key modifier : {Key::kShift, Key::kCtrl}) {
      EXPECT_FALSE(Press(modifier)) << "controls see it";
    }
    EXPECT_TRUE(editor.shiftDown && editor.ctrlDown);
    KeyUp(editor, Key::kShift);
    KeyUp(editor, Key::kCtrl);
    EXPECT_FALSE(editor.shiftDown || editor.ctrlDown);
    MenuUndo(editor);
    Press(key);
    EXPECT_EQ(journal.undoAvailable, 0) << "a move after Undo is a step of its own";
  }
  Choose(ToolMode::kAddPolygon);
  selection.vertices.Append({0, 1});  // the one under the pointer
  EXPECT_FALSE(Press(Key::kLeft));
  Choose(ToolMode::kEdit);
  ClearLists(selection);
  EXPECT_FALSE(Press(Key::kLeft));
}

TEST_F(KeysTest, AZoomHidesWhatComesNextUntilThePointerMoves) {
  Choose(ToolMode::kAddSpawn);
  const auto turn = [&](int delta) { TurnWheel(editor, delta); };
  for (const auto& [zoom, changed] :
       {std::pair<std::function<void()>, float>([&] { turn(120); }, 2),
        {[&] { ChooseZoom(editor, 2); }, 1},
        {[&] { Press(Key::kKeypadPlus); }, 2}}) {
    PointAt(editor, {MouseButton::kNone, 300, 300});
    EXPECT_TRUE(ToolDrawingOf(editor).showsNext);
    EXPECT_FALSE(editor.pointerText.empty());
    zoom();
    EXPECT_EQ(editor.view.zoom, changed);
    EXPECT_FALSE(ToolDrawingOf(editor).showsNext);
    EXPECT_TRUE(editor.pointerText.empty());
    PressMouse(editor, {MouseButton::kRight, 300, 300});
    PointAt(editor, {MouseButton::kNone, 310, 300});
    EXPECT_FALSE(ToolDrawingOf(editor).showsNext) << "panning brings it along from nowhere";
    ReleaseMouse(editor, {MouseButton::kRight, 310, 300});
  }
  for (const int delta : {-90, -90, -60})
    turn(delta);  // what a zoom leaves of a notch still counts
  EXPECT_EQ(editor.view.zoom, 0.5f);
  turn(60);
  LeaveMap(editor);  // but not once the pointer has left
  turn(60);
  EXPECT_EQ(editor.view.zoom, 0.5f);
  Choose(ToolMode::kAddWaypoint);
  Click(300, 300);
  MoveMouse(editor, {MouseButton::kNone, 300, 300});
  Click(300, 300);
  EXPECT_EQ(ToolDrawingOf(editor).connectionFrom, 0);
  turn(120);
  EXPECT_EQ(ToolDrawingOf(editor).connectionFrom, -1) << "it would end where the pointer was";
  PointAt(editor, {MouseButton::kNone, 310, 300});
  EXPECT_EQ(ToolDrawingOf(editor).connectionFrom, 0);
}

TEST_F(KeysTest, EscapeTakesBackWhatIsInProgressAndNoMore) {
  EXPECT_FALSE(Press(Key::kEscape));
  EXPECT_THAT(events, IsEmpty()) << "nothing in progress";
  Choose(ToolMode::kAddPolygon);
  Click(300, 300);
  Choose(ToolMode::kAddSpawn);  // the triangle given up takes nothing of what follows with it
  Click(300, 300);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "2: 0 1 0 0 0, 2 &Undo Spwan");
  Choose(ToolMode::kAddPolygon);
  editor.tool.next.vertexColor = {1, 2, 3};
  Click(300, 300);
  dialogs.chosenColors = {0x030201};
  RunHandler(editor, CBtausta1_Click);
  Press(Key::kEscape);
  EXPECT_EQ(map.backgroundColor1.blue, 3) << "chosen elsewhere in between";
  EXPECT_EQ(editor.tool.next.vertexColor, (Rgb{1, 2, 3})) << "as chosen for the next one";
  EXPECT_EQ(Status(), "1: 0 1 0 0 0, 4 &Undo Background");
  // Finished after such a step, the triangle is a step of its own.
  for (const float x : {300.f, 400.f, 350.f}) {
    Click(x, x == 350 ? 400.f : 300.f);
    if (x == 300) Snapshot("Background");
  }
  EXPECT_EQ(Status(), "1: 1 1 0 0 0, 7 &Undo Polygon");

  MenuNew(editor);
  const PolygonVertex& corner = AddSelectedTriangle();
  const auto drag = [&] {
    const float x = editor.view.LaskeRuutuX(20);
    const float y = editor.view.LaskeRuutuY(20);
    PressMouse(editor, {MouseButton::kLeft, x, y});
    MoveMouse(editor, {MouseButton::kLeft, x + 40, y});
    EXPECT_EQ(corner.x, 90);
  };
  drag();
  Press(Key::kEscape);
  EXPECT_EQ(corner.x, 50);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 0 &Undo");
  drag();
  const auto hideSpawns = [](PanelEditing& editing) { CBnayta_Click(editing, 2, false); };
  RunHandler(editor, hideSpawns);  // by keyboard, the button being held
  Press(Key::kEscape);
  EXPECT_EQ(corner.x, 90) << "moved before that, and its step is there";
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Move");
  MenuUndo(editor);
  PressMouse(editor, {MouseButton::kLeft, 5, 5});
  MoveMouse(editor, {MouseButton::kLeft, 9, 9});
  RunHandler(editor, hideSpawns);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 0 &Undo");
  EXPECT_EQ(selection.vertices.Count(), 3) << "a band leaves what was selected";
  drag();
  MenuUndo(editor);  // ends a drag as well, and then there is nothing left to take back
  Press(Key::kRight);
  Press(Key::kEscape);
  EXPECT_EQ(corner.x, 51);
  // An undo file that cannot be read must not leave Escape looking for its step.
  Snapshot("Color");
  PressMouse(editor, {MouseButton::kLeft, editor.view.LaskeRuutuX(20), 400});
  files.FailAll("OpenToRead", EIO);
  MenuUndo(editor);
  Press(Key::kEscape);
  EXPECT_EQ(Status(), "0: 1 0 0 0 0, 1 &Undo Move");
}

}  // namespace
}  // namespace vesmora
