// Long walks of random input through the whole editor, on sound and on damaged maps.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <random>

#include "app/commands.h"
#include "app/file_commands.h"
#include "app/keys.h"
#include "app/view_commands.h"
#include "support/editor_bench.h"
#include "support/recording_canvas.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"
#include "view/redraw_map.h"

namespace vesmora {
namespace {

constexpr int kEvents = 50'000;

class Walk {
 public:
  Walk(const std::string& map, unsigned seed) : random_(seed) {
    OpenMap(bench_.editor, bench_.PutMap("map.pmp", map));
  }

  /// Ends with the first thing found wrong.
  void Run(int events) {
    for (int i = 0; i < events && !testing::Test::HasFailure(); ++i) {
      SCOPED_TRACE("event " + std::to_string(i));
      Step();
      CheckState();
      if (i % 64 == 0) Draw();
      bench_.events.clear();
      bench_.dialogs.messages.clear();
    }
  }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool OneIn(int chances) { return Number(chances) == 0; }

  /// Near the last place, on some corner, or anywhere, beyond the window's edges included.
  MouseInput Somewhere(MouseButton button) {
    const ViewTransform& view = bench_.state.view;
    ScreenPoint place{static_cast<float>(Number(1400) - 100), static_cast<float>(Number(900) - 50)};
    if (OneIn(4)) {
      const auto polygon = static_cast<std::size_t>(Number(kPolygonCapacity));
      const PolygonVertex& vertex = bench_.document.polygons[polygon].vertices[0];
      place = {view.LaskeRuutuX(vertex.x), view.LaskeRuutuY(vertex.y)};
    } else if (!OneIn(4)) {
      place = {view.lastMouseX + static_cast<float>(Number(21) - 10), view.lastMouseY + 3};
    }
    return std::isfinite(place.x + place.y) ? MouseInput{button, place.x, place.y}
                                            : MouseInput{button, 0, 0};
  }

  void Step() {
    const Editing editing = bench_.editor.AsEditing();
    const int choice = Number(1000);
    if (choice < 480) {
      PointAt(bench_.editor, Somewhere(MouseButton::kNone));
    } else if (choice < 640) {
      PressMouse(editing, Somewhere(OneIn(8) ? MouseButton::kRight : MouseButton::kLeft));
    } else if (choice < 800) {
      ReleaseMouse(editing, Somewhere(OneIn(4) ? MouseButton::kRight : MouseButton::kLeft));
    } else if (choice < 900) {
      const auto key = static_cast<Key>(Number(static_cast<int>(Key::kEscape) + 1));
      OneIn(3) ? KeyUp(bench_.editor, key) : static_cast<void>(KeyDown(bench_.editor, key));
    } else if (choice < 940) {
      ChangeView();
    } else if (choice < 965) {
      ChangeTool(editing, static_cast<ToolMode>(Number(kToolCount)));
      // As the panel's controls do for the next object.
      const bool hasType = bench_.document.toolIndex > ToolMode::kAddPolygon;
      if (hasType && OneIn(2)) bench_.state.tool.value = static_cast<std::int16_t>(Number(7));
    } else {
      const auto commands = Commands();
      const Command& command = commands[static_cast<std::size_t>(Number(1000)) % commands.size()];
      const bool isEdit = command.menu == CommandMenu::kEdit;
      if (isEdit && IsEnabled(command, bench_.state)) command.action(bench_.editor);
    }
  }

  void ChangeView() {
    ShowOptions& show = bench_.state.show;
    ChooseZoom(bench_.editor, Number(5));
    ChooseGrid(bench_.editor, Number(6));
    if (OneIn(2)) LeaveMap(bench_.editor);
    show.showFlags[static_cast<std::size_t>(Number(6))] = OneIn(4) ? 0 : 1;
    show.pathFilter = static_cast<std::int16_t>(OneIn(2) ? 0 : Number(3));
  }

  void CheckState() {
    const MapDocument& map = bench_.document;
    const Selection& selection = bench_.selection;
    // Reading an undo step's block drops what is out of range.
    Selection valid;
    UnpackSelection(PackSelection(selection, map), valid, *lasts_);
    ASSERT_EQ(valid.TotalCounter(), selection.TotalCounter());
    const auto lastsOf = [](const MapDocument& of) { return std::get<1>(StateOf(of)); };
    ASSERT_EQ(lastsOf(*lasts_), lastsOf(map));
    ASSERT_LE(selection.connectionAnchor, map.lastWaypoint);
    ASSERT_LE(selection.moving + selection.rotating + selection.sizing, 1);
    const std::int16_t corners = bench_.state.tool.value;
    ASSERT_TRUE(map.toolIndex != ToolMode::kAddPolygon || corners == 0 ||
                (corners > 0 && corners <= 2 && map.lastPolygon >= 0));
  }

  void Draw() {
    RecordingCanvas canvas;
    EditorState& state = bench_.state;
    RedrawMap({state.document, state.selection, state.view, state.show, ToolDrawingOf(state)},
              canvas);
  }

  EditorBench bench_;
  const std::unique_ptr<MapDocument> lasts_ = std::make_unique<MapDocument>();
  std::mt19937 random_;
};

TEST(RandomWalkTest, KeepsEveryTableInOrder) {
  std::vector<std::string> maps = {"small.pmp", "terrain.pmp", "full.pmp", "settled.pmp"};
  for (const auto& file : std::filesystem::directory_iterator(DataPath("hostile"))) {
    maps.push_back("hostile/" + file.path().filename().string());
  }
  std::ranges::sort(maps);
  for (unsigned seed = 0; seed < maps.size() && !HasFailure(); ++seed) {
    SCOPED_TRACE(maps[seed]);
    Walk(maps[seed], seed).Run(kEvents / static_cast<int>(maps.size()));
  }
}

}  // namespace
}  // namespace vesmora
