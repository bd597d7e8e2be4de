// Random edits of random documents against a model of the journal: a stack of states.
#include <gmock/gmock.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>

#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/mouse_dispatch.h"

namespace vesmora {
namespace {

class RandomEditing : EditorBench {
 public:
  explicit RandomEditing(unsigned seed) : random_(seed) {
    for (int edits = Below(30); edits >= 0; --edits) Edit();
    for (unsigned i = 0; i < 3 + seed % 12; ++i) {
      if (Below(4) == 0) Undo();
      TakeStep();
      for (int edits = Below(4); edits >= 0; --edits) Edit();
    }
    for (int i = 0; i <= kUndoSteps; ++i) Undo();
    EXPECT_TRUE(model_.empty());
    EXPECT_THAT(dialogs.messages, testing::IsEmpty());
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  template <typename Record>
  void Scramble(Record& record) {
    std::array<std::uint8_t, sizeof(Record)> bytes;
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random_());
    std::memcpy(&record, bytes.data(), sizeof(Record));  // files hold anything
    if constexpr (requires { record.active; }) record.active = 1;
    // What a snapshot itself would change: the author's letters, and parts of a unit.
    if constexpr (requires { record.authorChar; }) record.authorChar = 0;
    if constexpr (requires { record.connections; }) record.x = record.y = 256 * Below(9999);
  }

  /// Adds, removes or changes records, or leaves some behind the last one.
  template <typename Table>
  void EditTable(Table& table, std::int16_t& last) {
    const int capacity = static_cast<int>(table.size()) - (table.size() == 255 ? 1 : 0);
    const int end = std::min(last + 1 + (Below(12) == 0 ? capacity : Below(4)), capacity);
    const int change = Below(4);
    if (change == 0 && last >= 0) {
      const auto first = table.begin();
      std::shift_left(first + Below(last + 1), first + last + 1, 1);
      --last;
      ClearLists(selection);
    } else if (change == 1 && last >= 0) {
      Scramble(table[static_cast<std::size_t>(Below(last + 1))]);
    } else {
      for (int slot = last + 1; slot < end; ++slot) Scramble(table[static_cast<std::size_t>(slot)]);
      if (change == 2) last = static_cast<std::int16_t>(end - 1);
    }
  }

  void Edit() {
    const auto x = static_cast<float>(Below(900));
    const int kind = Below(10);
    if (kind == 0) EditTable(document.polygons, document.lastPolygon);
    if (kind == 1) EditTable(document.spawns, document.lastSpawn);
    if (kind == 2) EditTable(document.sceneries, document.lastScenery);
    if (kind == 3) EditTable(document.colliders, document.lastCollider);
    if (kind == 4) EditTable(document.waypoints, document.lastWaypoint);
    if (kind == 5) Choose(static_cast<ToolMode>(Below(kToolCount)));
    if (kind == 6) MoveMouse(editor.AsEditing(), {MouseButton::kNone, x, 300});  // a preview
    if (kind == 7) {
      SelectEverything(selection, document);
      selection.vertices.last = static_cast<std::int16_t>(Below(selection.vertices.last + 2) - 1);
      selection.waypoints.last = static_cast<std::int16_t>(Below(selection.waypoints.last + 2) - 1);
      selection.box = {1, x, 2, 4};
    }
    if (kind > 7) {
      document.author = std::string(1 + static_cast<std::size_t>(Below(20)), 'a');
      document.texture = MakeTextureName(std::to_string(random_()));
      Scramble(document.sectors[static_cast<std::size_t>(Below(961))]);
      Scramble(document.backgroundColor1);
    }
    StoreAuthor(document);
    document.randomId = 501;
  }

  void TakeStep() {
    const DocumentState before = StateOf(document);
    Snapshot("Editing");
    EXPECT_TRUE(StateOf(document) == before);
    model_.emplace_back(before, PackSelection(selection, document));
    if (model_.size() > kUndoSteps) model_.erase(model_.begin());
  }

  void Undo() {
    MenuUndo(editor);
    if (model_.empty()) return;
    EXPECT_TRUE(StateOf(document) == model_.back().first);
    const bool isEdit = document.toolIndex == ToolMode::kEdit;
    EXPECT_TRUE(isEdit ? PackSelection(selection, document) == model_.back().second
                       : selection.Empty());
    model_.pop_back();
  }

  std::mt19937 random_;
  std::vector<std::pair<DocumentState, SelectionBlock>> model_;
};

TEST(UndoPropertyTest, EveryStepBringsBackExactlyWhatWasThere) {
  for (unsigned seed = 1; seed <= 200 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::make_unique<RandomEditing>(seed);
  }
}

}  // namespace
}  // namespace vesmora
