// Random commands against a model that knows waypoints, not slots: each has a number of its
// own, and connections lead from number to number.
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>

#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/edit_commands.h"

namespace vesmora {
namespace {

struct Item {
  int number = 0;  // its own, never used again
  int look = 0;    // shared with its copies: the waypoint's path
  bool isSelected = false;
  std::vector<int> links;  // numbers; what is not positive leads nowhere
};

using Items = std::vector<Item>;

class Comparison : EditorBench {
 public:
  void Run(int sequences, int commands) {
    for (int i = 0; i < sequences && !testing::Test::HasFailure(); ++i) {
      Begin(Number(12));
      std::string trace = "sequence " + std::to_string(i) + ":";
      for (int k = 0; k < commands && !testing::Test::HasFailure(); ++k) {
        const int choice = Number(20);
        trace += " " + std::to_string(choice);
        SCOPED_TRACE(trace);
        Step(choice);
        Check();
      }
    }
    EXPECT_GT(connectionsSeen_, 10'000);
  }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  int Count() const { return static_cast<int>(items_.size()); }

  void Begin(int count) {
    MenuNew(editor);
    items_.clear();
    copies_.clear();
    steps_.clear();
    for (int look = 1; look <= count; ++look) items_.push_back({++lastNumber_, look, {}, {}});
    for (Item& item : items_) {
      std::vector<std::int32_t> ids;
      for (int k = Number(5); k > 0; --k) {
        const int id = Number(count + 2) - 1;
        const int number = id > 0 ? items_[static_cast<std::size_t>(id - 1)].number : id;
        // Twice the same: how those are unlinked is another story.
        if (std::ranges::count(item.links, number) > 0) continue;
        item.links.push_back(number);
        ids.push_back(id);
      }
      AddWaypoint(map, 0, 0, item.look, ids);
    }
  }

  void Step(int choice) {
    if (choice < 3) {
      Copy();
      MenuCopy(editor);
    } else if (choice < 9) {
      Paste();
      MenuPaste(editor);
    } else if (choice < 12) {
      Delete();
      MenuDelete(editor);
    } else if (choice < 15) {
      Undo();
      MenuUndo(editor);
    } else if (choice < 19) {
      Select(1 + Number(4));
    } else {
      copies_.clear();
      ChooseTool(editor, ToolMode::kAddSpawn);
      ChangeTool(editor, ToolMode::kEdit);
      Select(4);
    }
  }

  void Select(int chances) {
    ClearSelection(editor);
    for (std::size_t slot = 0; slot < items_.size(); ++slot) {
      items_[slot].isSelected = Number(chances) == 0;
      if (items_[slot].isSelected) selection.waypoints.Append(static_cast<std::int16_t>(slot));
    }
    UpdateSelectionBox(selection, map);
  }

  void TakeStep() {
    steps_.push_back(items_);
    if (steps_.size() > kUndoSteps) steps_.erase(steps_.begin());
  }

  void Copy() {
    copies_.clear();
    std::ranges::copy_if(items_, std::back_inserter(copies_), &Item::isSelected);
  }

  void Paste() {
    if (copies_.empty()) return;
    TakeStep();
    for (Item& item : items_) item.isSelected = false;
    std::map<int, int> numbers;  // of the copied and the pasted ones
    for (const Item& copy : copies_) {
      numbers[copy.number] = ++lastNumber_;
      items_.push_back({lastNumber_, copy.look, true, copy.links});
    }
    for (Item& item : items_) {
      for (int& link : item.links) {
        if (item.isSelected && numbers.contains(link)) link = numbers[link];
      }
    }
    TakeStep();  // of the move to the middle
    Copy();
  }

  void Delete() {
    TakeStep();
    std::erase_if(items_, &Item::isSelected);
  }

  void Undo() {
    if (steps_.empty()) return;
    items_ = steps_.back();
    steps_.pop_back();
  }

  void Check() {
    ASSERT_EQ(map.waypoints.last + 1, Count());
    const auto isGone = [this](int link) {
      return link > 0 && std::ranges::find(items_, link, &Item::number) == items_.end();
    };
    std::vector<std::int16_t> selected;
    for (int slot = 0; slot < Count(); ++slot) {
      Item& item = items_[static_cast<std::size_t>(slot)];
      const Waypoint& waypoint = map.waypoints[slot];
      if (item.isSelected) selected.push_back(static_cast<std::int16_t>(slot));
      ASSERT_EQ(std::pair(waypoint.path, waypoint.id), std::pair(item.look, slot + 1));
      std::erase_if(item.links, isGone);
      std::vector<int> links;
      for (int k = 0; k < waypoint.connectionCount; ++k) {
        const std::int32_t id = waypoint.connections[static_cast<std::size_t>(k)];
        links.push_back(id <= 0 ? id : items_.at(static_cast<std::size_t>(id - 1)).number);
      }
      ASSERT_EQ(links, item.links) << "of waypoint " << slot;
      connectionsSeen_ += static_cast<int>(links.size());
    }
    ASSERT_TRUE(std::ranges::equal(selection.waypoints.Used(), selected));
  }

  std::mt19937 random_{20};
  Items items_;
  Items copies_;
  std::vector<Items> steps_;
  int lastNumber_ = 0;
  int connectionsSeen_ = 0;
};

TEST(WaypointModelTest, WaypointsAndConnectionsStayWhatTheyWere) { Comparison().Run(2000, 10); }

}  // namespace
}  // namespace vesmora
