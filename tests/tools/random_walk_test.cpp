// Long walks of random input through the whole editor, on sound and on damaged maps.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <random>

#include "app/commands.h"
#include "app/file_commands.h"
#include "app/keys.h"
#include "app/undo_commands.h"
#include "app/view_commands.h"
#include "document/numbers.h"
#include "document/scenery_types.h"
#include "support/editor_bench.h"
#include "support/recording_canvas.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"
#include "view/redraw_map.h"

namespace vesmora {
namespace {

constexpr int kEvents = 100'000;

/// Keeps the snapshots, half a megabyte each, off the disk where that is possible.
class MemoryTempFolder {
 public:
  MemoryTempFolder() {
    if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
  }
  MemoryTempFolder(const MemoryTempFolder&) = delete;
  MemoryTempFolder& operator=(const MemoryTempFolder&) = delete;
  ~MemoryTempFolder() {
    before_.empty() ? ::unsetenv("TMPDIR") : ::setenv("TMPDIR", before_.c_str(), 1);
  }

 private:
  const std::string before_ = ::getenv("TMPDIR") != nullptr ? ::getenv("TMPDIR") : "";
};

template <typename Table>
bool SameSlots(const Table& a, const Table& b, int last) {
  return std::memcmp(&a, &b, sizeof(a[0]) * static_cast<std::size_t>(last + 1)) == 0;
}

/// Whether `now` is the map that `before` was, but for what every snapshot does, which
/// keeps 254 sceneries and waypoints on whole units, and what drawing does, which cuts
/// damaged connection counts.
bool IsRestored(const MapDocument& now, const MapDocument& before) {
  const auto lastsOf = [](const MapDocument& map) {
    return std::array<int, 5>{map.lastPolygon, map.lastSpawn, std::min<int>(map.lastScenery, 253),
                              map.lastCollider, map.lastWaypoint};
  };
  const auto settled = [](Waypoint waypoint) {
    waypoint.x = ToFixedPoint(RoundToInt32(waypoint.x / 256.0));
    waypoint.y = ToFixedPoint(RoundToInt32(waypoint.y / 256.0));
    if (waypoint.connectionCount > kConnectionCapacity + 1) {
      waypoint.connectionCount = kConnectionCapacity;
    }
    return waypoint;
  };
  const auto lasts = lastsOf(now);
  if (lasts != lastsOf(before)) return false;
  const auto [polygon, spawn, scenery, collider, waypoint] = lasts;
  return SameSlots(now.polygons, before.polygons, polygon) &&
         SameSlots(now.normals, before.normals, polygon) &&
         SameSlots(now.spawns, before.spawns, spawn) &&
         SameSlots(now.sceneries, before.sceneries, scenery) &&
         SameSlots(now.colliders, before.colliders, collider) && now.texture == before.texture &&
         std::equal(now.waypoints.begin(), now.waypoints.begin() + waypoint + 1,
                    before.waypoints.begin(), [&](const Waypoint& one, const Waypoint& other) {
                      return settled(one) == settled(other);
                    });
}

class Walk {
 public:
  Walk(std::vector<std::string> maps, unsigned seed) : maps_(std::move(maps)), random_(seed) {
    bench_.PutMap("map.pmp", maps_[seed % maps_.size()]);
    OpenMap(bench_.editor, bench_.folder / "map.pmp");
  }

  /// Ends with the first thing found wrong.
  void Run(int events) {
    for (int i = 0; i < events && !testing::Test::HasFailure(); ++i) {
      SCOPED_TRACE("event " + std::to_string(i));
      // A document that has no undo steps is what undoing the next ones must give back.
      if (bench_.journal.undoAvailable < 0) *origin_ = bench_.document;
      Step();
      CheckState();
      // A command may take two steps, and none must have fallen off the ring's end.
      if (bench_.journal.undoAvailable >= kUndoSteps - 2) UndoAll();
      if (i % 64 == 0) Draw();
      bench_.events.clear();
      bench_.dialogs.messages.clear();
    }
  }

  int UndoneSteps() const { return undone_; }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool OneIn(int chances) { return Number(chances) == 0; }

  /// Near the last place, on some object, or anywhere, beyond the window's edges included.
  MouseInput Somewhere(MouseButton button) {
    const ViewTransform& view = bench_.state.view;
    MouseInput input{button, static_cast<float>(Number(1400) - 100),
                     static_cast<float>(Number(1000) - 100)};
    const int kind = Number(8);
    if (kind < 5) {
      input.x = view.lastMouseX + static_cast<float>(Number(21) - 10);
      input.y = view.lastMouseY + static_cast<float>(Number(21) - 10) / 2;
    } else if (kind < 7) {
      const auto [x, y] = SomeObject();
      if (std::isfinite(view.LaskeRuutuX(x) + view.LaskeRuutuY(y))) {
        input.x = view.LaskeRuutuX(x);
        input.y = view.LaskeRuutuY(y);
      }
    }
    return input;
  }

  ScreenPoint SomeObject() {
    const MapDocument& map = bench_.document;
    const auto slot = [this](std::int16_t last) {
      return static_cast<std::size_t>(Number(std::max<int>(last, 0) + 1));
    };
    const SceneryObject& scenery = map.sceneries[slot(map.lastScenery)];
    const Waypoint& waypoint = map.waypoints[slot(map.lastWaypoint)];
    const PolygonVertex& vertex = map.polygons[slot(map.lastPolygon)].vertices[0];
    const SelectionBox& box = bench_.selection.box;
    const std::array<ScreenPoint, 4> places = {
        {{scenery.x, scenery.y},
         {FromFixedPoint(waypoint.x), FromFixedPoint(waypoint.y)},
         {vertex.x, vertex.y},
         {box.right - 1, box.bottom - 1}}};
    return places[static_cast<std::size_t>(Number(4))];
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
      ChangeView(Number(6));
    } else if (choice < 965) {
      ChangeTool(editing, static_cast<ToolMode>(Number(kToolCount)));
    } else if (choice < 975) {
      UseCommand();
    } else if (choice < 985) {
      ChooseProperties();
    } else if (choice < 997) {
      MenuUndo(bench_.editor);
    } else {
      UseFile(Number(5));
    }
  }

  void ChangeView(int choice) {
    ShowOptions& show = bench_.state.show;
    switch (choice) {
      case 0:
        return ChooseZoom(bench_.editor, Number(5));
      case 1:
        return TurnWheel(bench_.editor, OneIn(2) ? 120 : -120);
      case 2:
        return ChooseGrid(bench_.editor, Number(6));
      case 3:
        return SetFixedGrid(bench_.editor, OneIn(2));
      case 4:
        return LeaveMap(bench_.editor);
      default:
        show.showFlags[static_cast<std::size_t>(Number(6))] = OneIn(4) ? 0 : 1;
        show.pathFilter = static_cast<std::int16_t>(OneIn(2) ? 0 : Number(3));
    }
  }

  /// As the panel's controls do for the next object.
  void ChooseProperties() {
    ToolState& tool = bench_.state.tool;
    tool.next.noTextureCorrection = OneIn(2);
    const ToolMode mode = bench_.document.toolIndex;
    if (tool.value == kNoToolValue || mode < ToolMode::kAddSpawn) return;
    const std::array<int, 6> highest = {0, 0, 2, 21, 32767, 2};
    tool.value = static_cast<std::int16_t>(1 + Number(highest[static_cast<std::size_t>(mode)]));
    if (mode == ToolMode::kAddScenery && OneIn(2)) tool.value = kLianaType;
  }

  void UseCommand() {
    const auto commands = Commands();
    const Command& command = commands[static_cast<std::size_t>(Number(1000)) % commands.size()];
    const bool usesFiles = command.menu == CommandMenu::kFile;
    if (!usesFiles && IsEnabled(command, bench_.state)) command.action(bench_.editor);
  }

  void UseFile(int choice) {
    switch (choice) {
      case 0:
        return MenuNew(bench_.editor);
      case 1:
        if (!bench_.document.fileName.empty()) MenuSave(bench_.editor);
        return;
      case 2:
        bench_.dialogs.chosenFiles.push_back(bench_.folder / "map.pmp");
        return MenuSaveAs(bench_.editor);
      default:
        bench_.PutMap("map.pmp", maps_[static_cast<std::size_t>(Number(1000)) % maps_.size()]);
        OpenMap(bench_.editor, bench_.folder / (OneIn(9) ? "none.pmp" : "map.pmp"));
    }
  }

  void CheckState() const {
    const MapDocument& map = bench_.document;
    const Selection& selection = bench_.selection;
    const auto inTable = [](int index, int end) { return index >= -1 && index < end; };
    ASSERT_TRUE(inTable(map.lastPolygon, kPolygonCapacity) &&
                inTable(map.lastSpawn, kSpawnCapacity) &&
                inTable(map.lastScenery, kSceneryCapacity) &&
                inTable(map.lastCollider, kColliderCapacity) &&
                inTable(map.lastWaypoint, kWaypointCapacity));
    for (const VertexReference vertex : selection.vertices.Items()) {
      ASSERT_TRUE(vertex.polygon >= 0 && vertex.polygon <= map.lastPolygon && vertex.corner < 3);
    }
    const auto allUpTo = [](const auto& list, int last) {
      return std::ranges::all_of(list.Items(),
                                 [last](int index) { return index >= 0 && index <= last; });
    };
    ASSERT_TRUE(allUpTo(selection.spawns, map.lastSpawn));
    ASSERT_TRUE(allUpTo(selection.sceneries, map.lastScenery));
    ASSERT_TRUE(allUpTo(selection.colliders, map.lastCollider));
    ASSERT_TRUE(allUpTo(selection.waypoints, map.lastWaypoint));
    ASSERT_TRUE(inTable(selection.connectionAnchor, map.lastWaypoint + 1));
    ASSERT_LE(selection.moving + selection.rotating + selection.sizing, 1);

    const UndoJournal& journal = bench_.journal;
    ASSERT_TRUE(inTable(journal.undoAvailable, kUndoSteps)) << journal.undoAvailable;
    ASSERT_TRUE(journal.undoSlot >= 0 && journal.undoSlot < kUndoSteps) << journal.undoSlot;
    if (map.toolIndex == ToolMode::kAddPolygon) {
      ASSERT_TRUE(bench_.state.tool.value >= 0 && bench_.state.tool.value <= 2);
      ASSERT_TRUE(bench_.state.tool.value == 0 || map.lastPolygon >= 0);
    }
  }

  void UndoAll() {
    for (; bench_.journal.undoAvailable >= 0; ++undone_) MenuUndo(bench_.editor);
    EXPECT_TRUE(IsRestored(bench_.document, *origin_)) << "undoing every step";
    CheckState();
  }

  void Draw() {
    RecordingCanvas canvas;
    EditorState& state = bench_.state;
    RedrawMap({state.document, state.selection, state.view, state.show, ToolDrawingOf(state)},
              canvas);
  }

  const MemoryTempFolder inMemory_;
  EditorBench bench_;
  const std::vector<std::string> maps_;
  std::mt19937 random_;
  const std::unique_ptr<MapDocument> origin_ = std::make_unique<MapDocument>();
  int undone_ = 0;
};

TEST(RandomWalkTest, KeepsEveryTableInOrderAndUndoRestores) {
  std::vector<std::string> maps = {"small.pmp", "terrain.pmp", "full.pmp", "settled.pmp"};
  for (const auto& file : std::filesystem::directory_iterator(DataPath("hostile"))) {
    maps.push_back("hostile/" + file.path().filename().string());
  }
  std::ranges::sort(maps);
  int undone = 0;
  const auto walks = static_cast<unsigned>(maps.size());
  for (unsigned seed = 0; seed < walks && !HasFailure(); ++seed) {
    SCOPED_TRACE("walk " + std::to_string(seed) + " from " + maps[seed]);
    Walk walk(maps, seed);
    walk.Run(kEvents / static_cast<int>(walks) + 1);
    undone += walk.UndoneSteps();
  }
  EXPECT_GT(undone, 1000) << "the walks hardly edit";
}

}  // namespace
}  // namespace vesmora
