// Random edits of random documents against a model of the journal: a stack of states.
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>

#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

/// What a snapshot itself does to the map, and no more.
DocumentState Normalised(MapDocument document, std::int32_t randomId) {
  document.randomId = randomId;
  if (document.lastScenery == 254) document.lastScenery = 253;
  const auto whole = [](std::int32_t value) {
    return static_cast<std::int32_t>(std::min(std::nearbyint(value / 256.0) * 256, 2147483647.0));
  };
  for (int i = 0; i <= document.lastWaypoint; ++i) {
    Waypoint& waypoint = document.waypoints[static_cast<std::size_t>(i)];
    waypoint.x = whole(waypoint.x);
    waypoint.y = whole(waypoint.y);
  }
  if (document.author.find_first_not_of(' ') == std::string::npos) document.author = "Unknow";
  const std::string stored = document.author + '\0';
  for (std::size_t i = 0; i < stored.size(); ++i) {
    document.colliders[i].authorChar = static_cast<std::uint8_t>(stored[i]);
  }
  return StateOf(document);
}

class RandomEditing {
 public:
  explicit RandomEditing(unsigned seed) : random_(seed) {
    for (int edits = Below(30); edits > 0; --edits) Edit();
  }

  void Run(int steps) {
    for (int i = 0; i < steps; ++i) {
      if (Below(4) == 0) Undo();
      Snapshot();
      for (int edits = Below(4); edits >= 0; --edits) Edit();
    }
    for (int i = 0; i <= kUndoSteps; ++i) Undo();
    EXPECT_TRUE(model_.empty());
    EXPECT_THAT(bench_.dialogs.messages, testing::IsEmpty());
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  template <typename Record>
  void Scramble(Record& record) {
    std::array<std::uint8_t, sizeof(Record)> bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    std::memcpy(&record, bytes.data(), sizeof(Record));  // files hold anything
    if constexpr (requires { record.active; }) record.active = 1;
    if constexpr (requires { record.authorChar; }) record.authorChar = 0;
  }

  /// Adds, removes or changes records, or leaves some behind the last one.
  template <typename Table>
  void EditTable(Table& table, std::int16_t& last) {
    const int capacity = static_cast<int>(table.size());
    const int end = std::min(last + 1 + (Below(12) == 0 ? capacity : Below(4)), capacity);
    const int change = Below(4);
    if (change == 0 && last >= 0) {
      const auto first = table.begin();
      std::shift_left(first + Below(last + 1), first + last + 1, 1);
      --last;
      ClearLists(bench_.selection);
    } else if (change == 1 && last >= 0) {
      Scramble(table[static_cast<std::size_t>(Below(last + 1))]);
    } else {
      for (int slot = last + 1; slot < end; ++slot) Scramble(table[static_cast<std::size_t>(slot)]);
      if (change == 2) last = static_cast<std::int16_t>(end - 1);
    }
  }

  void Edit() {
    MapDocument& document = bench_.document;
    switch (Below(10)) {
      case 0:
        return EditTable(document.polygons, document.lastPolygon);
      case 1:
        return EditTable(document.spawns, document.lastSpawn);
      case 2:
        return EditTable(document.sceneries, document.lastScenery);
      case 3:
        return EditTable(document.colliders, document.lastCollider);
      case 4:
        return EditTable(document.waypoints, document.lastWaypoint);
      case 5:
        return ChangeTool(bench_.editor.AsEditing(), static_cast<ToolMode>(Below(kToolCount)));
      case 6:  // previews and hovered corners
        return MoveMouse(
            bench_.editor.AsEditing(),
            {MouseButton::kNone, static_cast<float>(Below(900)), static_cast<float>(Below(700))});
      case 7:
        return Select();
      case 8:
        document.author =
            std::string(static_cast<std::size_t>(Below(22)), Below(2) == 0 ? ' ' : 'a');
        document.texture = MakeTextureName(std::to_string(random_()));
        document.looseByte3 = static_cast<std::uint8_t>(random_());
        return;
      default:
        Scramble(document.sectors[static_cast<std::size_t>(Below(961))]);
        Scramble(document.backgroundColor1);
    }
  }

  void Select() {
    Selection& selection = bench_.selection;
    SelectEverything(selection, bench_.document);
    const auto cut = [&](auto& list) {
      list.last = static_cast<std::int16_t>(Below(list.last + 2) - 1);
    };
    cut(selection.vertices);
    cut(selection.spawns);
    cut(selection.colliders);
    cut(selection.waypoints);
    selection.box = {1, static_cast<float>(Below(99)), kUnsetCoordinate, 4};
  }

  void Snapshot() {
    const auto before = std::make_unique<MapDocument>(bench_.document);
    bench_.nextRandom = Below(1000) / 1000.0;
    bench_.Snapshot("Editing");
    const DocumentState now = StateOf(bench_.document);
    EXPECT_TRUE(now == Normalised(*before, bench_.document.randomId));
    model_.emplace_back(now, PackSelection(bench_.selection, bench_.document));
    if (model_.size() > kUndoSteps) model_.erase(model_.begin());
  }

  void Undo() {
    MenuUndo(bench_.editor);
    bench_.events.clear();
    if (model_.empty()) return;
    const auto& [document, selection] = model_.back();
    EXPECT_TRUE(StateOf(bench_.document) == document);
    if (bench_.document.toolIndex == ToolMode::kEdit) {
      EXPECT_TRUE(PackSelection(bench_.selection, bench_.document) == selection);
    } else {
      EXPECT_TRUE(bench_.selection.Empty()) << "an Add tool starts with nothing selected";
    }
    model_.pop_back();
  }

  EditorBench bench_;
  std::mt19937 random_;
  std::vector<std::pair<DocumentState, SelectionBlock>> model_;
};

TEST(UndoPropertyTest, EveryStepBringsBackExactlyWhatWasThere) {
  for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::make_unique<RandomEditing>(seed)->Run(static_cast<int>(3 + seed % 12));
  }
}

}  // namespace
}  // namespace vesmora
