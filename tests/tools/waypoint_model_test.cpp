// Random command sequences against a model that knows waypoints, not slots: each has a
// number of its own, and connections lead from number to number.
#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

#include "app/file_commands.h"
#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/numbered_objects.h"

namespace vesmora {
namespace {

struct Piece {
  int number;  // its own, never used again
  int look;    // what it shares with its copies
  bool isSelected = false;
  std::vector<int> links = {};  // numbers
};
using Pieces = std::vector<Piece>;

struct Model {
  Pieces pieces;
  bool hasMoved = false;  // since the selection was last cleared

  bool AnySelected() const { return std::ranges::any_of(pieces, &Piece::isSelected); }
  void Deselect() {
    for (Piece& piece : pieces) piece.isSelected = false;
  }
};

class Comparison {
 public:
  void Run(int sequences, int commands) {
    for (int i = 0; i < sequences && !testing::Test::HasFailure(); ++i) {
      Begin();
      std::string trace = "sequence " + std::to_string(i) + ":";
      for (int k = 0; k < commands && !testing::Test::HasFailure(); ++k) {
        trace += " " + DoSomething();
        SCOPED_TRACE(trace);
        Check();
      }
    }
    EXPECT_GT(connectionsSeen_, 10'000);
  }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }

  /// A few waypoints; sometimes the table is nearly full.
  void Begin() {
    MenuNew(bench_.editor);
    bench_.state.waypointKeys = {};  // as in a fresh editor
    model_ = {};
    clipboard_.clear();
    steps_.clear();
    const int count = Number(20) == 0 ? 480 + Number(20) : 1 + Number(12);
    for (int look = 1; look <= count; ++look) {
      AddWaypoint(map_, 0, 0, look);
      model_.pieces.push_back({++lastNumber_, look});
    }
    for (std::size_t from = 0; from < model_.pieces.size(); ++from) {
      Waypoint& waypoint = map_.waypoints[from];
      std::vector<int>& links = model_.pieces[from].links;
      for (int k = Number(4); k > 0; --k) {
        const int to = Number(count);
        const int number = model_.pieces[static_cast<std::size_t>(to)].number;
        // Twice the same: how those are unlinked is another story.
        if (std::ranges::count(links, number) > 0) continue;
        links.push_back(number);
        waypoint.connections[static_cast<std::size_t>(waypoint.connectionCount++)] = to + 1;
      }
    }
  }

  std::string DoSomething() {
    const Editing on = bench_.editor.AsEditing();
    switch (Number(8)) {
      case 0:
        Copy();
        return MenuCopy(on), "copy";
      case 1:
      case 2:
        Paste();
        return MenuPaste(on), "paste";
      case 3:
        Delete();
        return MenuDelete(on), "delete";
      case 4:
        Undo();
        return MenuUndo(bench_.editor), "undo";
      case 5:
        return ZeroTables(map_, ZeroSlots::kUnused), "wipe";  // as a save does
      default:
        return Select(), "select";
    }
  }

  void Select() {
    ClearSelection(selection_, bench_.window);
    model_.hasMoved = false;
    const int chances = 1 + Number(5);
    for (std::size_t slot = 0; slot < model_.pieces.size(); ++slot) {
      model_.pieces[slot].isSelected = Number(chances) == 0;
      if (model_.pieces[slot].isSelected) selection_.waypoints.Add(static_cast<std::int16_t>(slot));
    }
    UpdateSelectionBox(selection_, map_);
  }

  void TakeStep() {
    steps_.push_back(model_);
    if (steps_.size() > kUndoSteps) steps_.erase(steps_.begin());
  }

  void Undo() {
    if (steps_.empty()) return;
    model_ = steps_.back();
    model_.hasMoved = false;
    steps_.pop_back();
  }

  void Copy() {
    overflow_ = false;
    clipboard_.clear();
    for (Piece& piece : model_.pieces) {
      if (!piece.isSelected) continue;
      piece.isSelected = model_.pieces.size() + clipboard_.size() < 499;
      piece.isSelected ? clipboard_.push_back(piece) : void(overflow_ = true);
    }
  }

  void Paste() {
    if (clipboard_.empty()) return;
    TakeStep();
    model_.Deselect();
    std::map<int, int> numbers;  // of the copied and the pasted ones
    for (const Piece& piece : clipboard_) {
      overflow_ = overflow_ || model_.pieces.size() >= 499;
      if (model_.pieces.size() >= 499) break;
      model_.pieces.push_back({++lastNumber_, piece.look, true, piece.links});
      numbers[piece.number] = lastNumber_;
    }
    for (Piece& piece : model_.pieces) {
      for (int& link : piece.links) {
        if (piece.isSelected && numbers.contains(link)) link = numbers[link];
      }
    }
    if (std::exchange(overflow_, false)) ++messages_;
    if (!model_.AnySelected()) return;
    if (!std::exchange(model_.hasMoved, true)) TakeStep();
    Copy();
  }

  void Delete() {
    TakeStep();
    if (!model_.AnySelected()) {
      ++messages_;
      return;
    }
    std::erase_if(model_.pieces, [](const Piece& piece) { return piece.isSelected; });
    model_.hasMoved = false;
  }

  void Check() {
    Pieces& pieces = model_.pieces;
    ASSERT_EQ(static_cast<std::size_t>(map_.lastWaypoint + 1), pieces.size());
    std::set<int> present;
    for (const Piece& piece : pieces) present.insert(piece.number);
    for (std::size_t i = 0; i < pieces.size(); ++i) {
      EXPECT_EQ(map_.waypoints[i].path, pieces[i].look) << i;
      EXPECT_EQ(map_.waypoints[i].id, static_cast<int>(i) + 1);
      const auto listed = std::ranges::count(selection_.waypoints.Items(), static_cast<int>(i));
      EXPECT_EQ(listed, pieces[i].isSelected ? 1 : 0) << i;
      std::erase_if(pieces[i].links, [&](int link) { return !present.contains(link); });
      std::vector<int> links = LinksOf(map_, static_cast<int>(i));
      for (int& id : links) id = pieces.at(static_cast<std::size_t>(id - 1)).number;
      EXPECT_EQ(links, pieces[i].links) << "of waypoint " << i;
      connectionsSeen_ += static_cast<int>(links.size());
    }
    EXPECT_EQ(bench_.journal.undoAvailable + 1, static_cast<int>(steps_.size()));
    EXPECT_EQ(bench_.TakeMessages().size(), std::exchange(messages_, 0U));
  }

  EditorBench bench_;
  MapDocument& map_ = bench_.document;
  Selection& selection_ = bench_.selection;
  std::mt19937 random_{20};
  Model model_;
  Pieces clipboard_;
  bool overflow_ = false;
  std::vector<Model> steps_;
  std::size_t messages_ = 0;
  int lastNumber_ = 0;
  int connectionsSeen_ = 0;
};

TEST(WaypointModelTest, ConnectionsAlwaysLeadWhereTheyLed) {
  std::make_unique<Comparison>()->Run(1000, 10);
}

}  // namespace
}  // namespace vesmora
