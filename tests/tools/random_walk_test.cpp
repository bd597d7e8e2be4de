// Long walks of random input through the whole editor, on sound and on damaged maps, with
// undo steps now and then that must bring back exactly what was there.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <random>

#include "app/commands.h"
#include "app/file_commands.h"
#include "app/keys.h"
#include "app/undo_commands.h"
#include "app/view_commands.h"
#include "support/editor_bench.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

class Walk : EditorBench {
 public:
  Walk(const std::string& name, unsigned seed) : random_(seed) {
    OpenMap(editor, PutMap("map.pmp", name));
  }

  /// Ends with the first thing found wrong.
  void Run(int steps) {
    for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
      SCOPED_TRACE("event " + std::to_string(i));
      Step(Number(1000));
      CheckState();
      if (i % 100 == 99) CheckUndo();
      events.clear();
      dialogs.messages.clear();
    }
  }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool OneIn(int chances) { return Number(chances) == 0; }

  /// Near the last place, on some corner, or anywhere, beyond the window's edges included.
  MouseInput Somewhere(MouseButton button) {
    const ViewTransform& view = editor.view;
    ScreenPoint place{static_cast<float>(Number(1400) - 100), static_cast<float>(Number(900) - 50)};
    if (OneIn(4)) {
      const PolygonVertex& vertex = map.polygons[Number(kPolygonCapacity)].vertices[0];
      place = {view.LaskeRuutuX(vertex.x), view.LaskeRuutuY(vertex.y)};
    } else if (!OneIn(4)) {
      place = {view.lastMouseX + static_cast<float>(Number(21) - 10), view.lastMouseY + 3};
    }
    const bool isPlace = std::isfinite(place.x + place.y);
    return {button, isPlace ? place.x : 0, isPlace ? place.y : 0};
  }

  void Step(int choice) {
    if (choice < 480) {
      PointAt(editor, Somewhere(MouseButton::kNone));
    } else if (choice < 640) {
      PressMouse(editor, Somewhere(OneIn(8) ? MouseButton::kRight : MouseButton::kLeft));
    } else if (choice < 800) {
      ReleaseMouse(editor, Somewhere(OneIn(4) ? MouseButton::kRight : MouseButton::kLeft));
    } else if (choice < 900) {
      const auto key = static_cast<Key>(Number(static_cast<int>(Key::kEscape) + 1));
      OneIn(3) ? KeyUp(editor, key) : static_cast<void>(KeyDown(editor, key));
    } else if (choice < 940) {
      ChooseZoom(editor, Number(5));
      ChooseGrid(editor, Number(6));
      editor.show.showFlags[static_cast<std::size_t>(Number(6))] = OneIn(4) ? 0 : 1;
    } else if (choice < 965) {
      ChangeTool(editor, static_cast<ToolMode>(Number(kToolCount)));
      // As the panel's controls do for the next object.
      const bool hasType = map.toolIndex > ToolMode::kAddPolygon;
      if (hasType && OneIn(2)) editor.tool.value = static_cast<std::int16_t>(Number(7));
    } else {
      const auto commands = Commands();
      const Command& command = commands[static_cast<std::size_t>(Number(1000)) % commands.size()];
      const bool isEdit = command.menu == CommandMenu::kEdit;
      if (isEdit && command.isEnabled(editor)) command.action(editor);
    }
  }

  void CheckState() {
    CheckRanges(map, selection);
    const Activity& activity = editor.activity;
    ASSERT_LE(activity.Anchor(), map.waypoints.last);
    ASSERT_TRUE(activity.PlacedCorners() <= 2 && map.polygons.last >= -1);
    ASSERT_EQ(activity.PlacedCorners() > 0, activity.Is(ActivityKind::kTriangle));
    const bool isEdits = activity.HoldsButton() || activity.Is(ActivityKind::kPlacement);
    ASSERT_TRUE(activity.Is(ActivityKind::kNone) || isEdits == editor.IsTool(ToolMode::kEdit));
  }

  /// Any bytes, as files hold them.
  template <typename Table>
  void Scramble(Table& table) {
    auto& record = table[static_cast<std::size_t>(Number(static_cast<int>(table.size())))];
    std::array<std::uint8_t, sizeof(record)> bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    std::memcpy(&record, bytes.data(), sizeof(record));
  }
  void ScrambleEverything() {
    VisitTables(map, [this](auto& table) { Scramble(table.slots); });
    Scramble(map.sectors);
    map.sectorDivision = Number(99);
    map.texture = MakeTextureName(std::to_string(Number(99)));
    VisitTables(map,
                [this](auto& table) { table.SetCount(std::max(table.Count() - Number(2), 0)); });
  }

  void CheckUndo() {
    Choose(map.toolIndex);  // ends what is in progress
    ScrambleEverything();
    DropMissing(selection, map);
    Snapshot("Color");  // rounds places to whole units, and writes author and number
    const DocumentState before = StateOf(map);
    const SelectionBlock selected = PackSelection(selection, map);
    Snapshot("Color");
    ASSERT_TRUE(StateOf(map) == before);
    for (int i = Number(3); i >= 0; --i) ScrambleEverything();
    ClearLists(selection);
    Choose(static_cast<ToolMode>(Number(kToolCount)));
    MenuUndo(editor);
    ASSERT_TRUE(StateOf(map) == before);
    ASSERT_EQ(PackSelection(selection, map), selected);
  }

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
    Walk(maps[seed], seed).Run(50'000 / static_cast<int>(maps.size()));
  }
}

}  // namespace
}  // namespace vesmora
