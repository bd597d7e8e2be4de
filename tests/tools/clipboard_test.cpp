#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

#include "app/file_commands.h"
#include "app/undo_commands.h"
#include "support/editor_bench.h"
#include "support/tool_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/numbered_objects.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

using testing::ElementsAre;

/// `copy` is `original` at another place.
template <typename Record>
void ExpectCopy(Record copy, const Record& original) {
  copy.x = original.x;
  copy.y = original.y;
  if constexpr (requires { copy.authorChar; }) copy.authorChar = original.authorChar;
  if constexpr (requires { copy.id; }) copy.id = original.id;
  EXPECT_EQ(copy, original);
}

class ClipboardTest : public testing::Test, protected ToolBench {
 protected:
  ClipboardTest() { AddNumbered(map, 3); }
};

TEST_F(ClipboardTest, CopiesLieInTheTailOfTheTables) {
  ListVertices(selection, {{0, 1}, {2, 0}, {2, 2}});
  ListSlots(selection, {0, 2});
  MenuCopy(editing);
  EXPECT_TRUE(Steps().empty());
  TakeUndoSnapshot(editing, "Color");
  MapWorkbench undo;  // in the undo files, too
  LoadMap(undo.Context(), state.journal.NewestFile(), true);
  const MapDocument& at = undo.document;
  EXPECT_THAT(NumbersIn(at), testing::Each("012"));
  EXPECT_THAT(std::span(at.polygons).last(2), ElementsAre(map.polygons[2], map.polygons[0]));
  EXPECT_THAT(std::span(at.normals).last(2), ElementsAre(map.normals[2], map.normals[0]));
  EXPECT_THAT(std::span(at.spawns).last(2), ElementsAre(map.spawns[2], map.spawns[0]));
  EXPECT_THAT(std::span(at.sceneries).last(2), ElementsAre(map.sceneries[0], map.sceneries[2]));
  EXPECT_THAT(std::span(at.waypoints).last(2), ElementsAre(map.waypoints[2], map.waypoints[0]));
  ExpectCopy(at.colliders[126], map.colliders[2]);
  ExpectCopy(at.colliders[127], map.colliders[0]);
}

TEST_F(ClipboardTest, PasteAddsCopiesInTheMiddleOfTheView) {
  SelectEverything(selection, map);
  MenuCopy(editing);
  ClearLists(selection);
  selection.box = {9000, 9010, 7000, 7010};  // somebody else's
  state.view.zoom = 2;
  TakeEvents();
  MenuPaste(editing);
  EXPECT_THAT(events,
              ElementsAre("RefreshInfoPanel", "RedrawMap", "RefreshInfoPanel", "RedrawMap"));
  EXPECT_EQ(Listed(),
            "v3.0 v3.1 v3.2 v4.0 v4.1 v4.2 v5.0 v5.1 v5.2 s3 s4 s5 o3 o4 o5 c3 c4 c5 w3 w4 w5");
  // The middle of the map's part of the window, below its top strip, is world 0, 12.5.
  EXPECT_EQ(selection.box, (SelectionBox{-25, 25, -12, 38}));
  for (std::size_t i = 0; i < 3; ++i) {
    ExpectCopy(map.polygons[i + 3].vertices[0], map.polygons[i].vertices[0]);
    EXPECT_EQ(map.polygons[i + 3].vertices[0].x, map.polygons[i].vertices[0].x - 25);
    EXPECT_EQ(map.normals[i + 3], map.normals[i]);
    ExpectCopy(map.spawns[i + 3], map.spawns[i]);
    ExpectCopy(map.sceneries[i + 3], map.sceneries[i]);
    ExpectCopy(map.colliders[i + 3], map.colliders[i]);
    ExpectCopy(map.waypoints[i + 3], map.waypoints[i]);
  }
  EXPECT_EQ(map.spawns[29], map.spawns[3]) << "what was pasted is what is copied now";
}

TEST_F(ClipboardTest, OneSlotStaysFreeAndWhatDoesNotFitIsToldAfterPasting) {
  for (const int pasted : {1, 0}) {
    ToolBench bench;
    bench.map.lastPolygon = 397;
    ListVertices(bench.selection, {{0, 0}, {1, 0}, {2, 0}});
    bench.selection.box = {0, 10, 0, 10};
    MenuCopy(bench.editing);
    EXPECT_EQ(bench.state.clipboard.TotalCounter(), 0);
    bench.TakeEvents();
    bench.map.lastPolygon = static_cast<std::int16_t>(398 - pasted);
    MenuPaste(bench.editing);
    EXPECT_EQ(bench.map.lastPolygon, 398);
    EXPECT_THAT(bench.dialogs.messages,
                ElementsAre(Message{"Some of copied objects couldnt be pasted", "Problem",
                                    MessageIcon::kCritical}));
    EXPECT_EQ(bench.events[2], "Show Problem") << "after panel and map";
    EXPECT_EQ(bench.selection.box.Complete(), pasted == 1) << "no box without a selection";
    bench.map.lastPolygon = 300;
    MenuPaste(bench.editing);
    EXPECT_EQ(bench.dialogs.messages.size(), 1U) << "told once";
  }
}

/// What happens between Copy and Paste in a whole editor.
class ClipboardLifeTest : public testing::Test, protected EditorBench {
 protected:
  /// The first leads to the second, which leads back, to the third and nowhere.
  void CopyTwoWaypoints() {
    MenuNew(editor);
    AddWaypoint(document, 0, 0, 1, {2, 3, 0, -7, 77});
    AddWaypoint(document, 0, 0, 1, {1});
    AddWaypoint(document, 0, 0, 1);
    selection.waypoints.Add(0);
    selection.waypoints.Add(1);
    MenuCopy(editor.AsEditing());
  }
};

TEST_F(ClipboardLifeTest, CopiesKeepLeadingWhereTheCopiedOnesLed) {
  using Links = std::vector<std::int32_t>;
  using Row = std::tuple<const char*, std::vector<std::int16_t>, int, Links>;
  for (const auto& [name, deleted, undone, expected] :
       {Row{"nothing", {}, 0, {5, 3, 0, -7, 77}}, Row{"renumbered", {1}, 0, {4, 2, 0, -7, 77}},
        Row{"gone", {2}, 0, {4, 0, -7, 77}}, Row{"both back", {1, 2}, 2, {5, 3, 0, -7, 77}},
        Row{"twice renumbered, once back", {1, 0}, 1, {4, 2, 0, -7, 77}}}) {
    CopyTwoWaypoints();
    for (const std::int16_t slot : deleted) {
      ClearSelection(selection, window);
      selection.waypoints.Add(slot);
      MenuDelete(editor.AsEditing());
    }
    for (int i = 0; i < undone; ++i) MenuUndo(editor);
    const int first = document.lastWaypoint + 1;
    MenuPaste(editor.AsEditing());
    EXPECT_EQ(LinksOf(document, first), expected) << name;
    EXPECT_THAT(LinksOf(document, first + 1), ElementsAre(first + 1)) << name;
  }
}

TEST_F(ClipboardLifeTest, NewOpenAndAddToolsEmptyIt) {
  const std::string map = PutMap("map.pmp");
  const Editing on = editor.AsEditing();
  const std::vector<std::function<void()>> rows = {[this] { MenuNew(editor); },
                                                   [this, &map] { OpenMap(editor, map); },
                                                   [&] { ChangeTool(on, ToolMode::kAddPolygon); },
                                                   [&] {  // back into an Add tool
                                                     document.toolIndex = ToolMode::kAddSpawn;
                                                     Snapshot("Spwan");
                                                     document.toolIndex = ToolMode::kEdit;
                                                     MenuUndo(editor);
                                                   }};
  for (const auto& empty : rows) {
    CopyTwoWaypoints();
    empty();
    ChangeTool(on, ToolMode::kEdit);
    events.clear();
    MenuPaste(on);
    EXPECT_THAT(events, testing::IsEmpty());
    EXPECT_EQ(journal.undoAvailable, -1) << "no step";
  }
}

// Random command sequences against a model that knows waypoints, not slots: each has a
// number of its own, and connections lead from number to number.

struct Piece {
  int number;  // its own, never used again
  int look;    // what it shares with its copies
  bool isSelected = false;
  std::vector<int> links = {};  // numbers
};
using Pieces = std::vector<Piece>;

bool AnySelected(const Pieces& pieces) { return std::ranges::any_of(pieces, &Piece::isSelected); }

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
    pieces_.clear();
    clipboard_.clear();
    steps_.clear();
    const int count = Number(20) == 0 ? 480 + Number(20) : 1 + Number(12);
    for (int look = 1; look <= count; ++look) {
      AddWaypoint(map_, 0, 0, look);
      pieces_.push_back({++lastNumber_, look});
    }
    for (std::size_t from = 0; from < pieces_.size(); ++from) {
      Waypoint& waypoint = map_.waypoints[from];
      std::vector<int>& links = pieces_[from].links;
      for (int k = Number(4); k > 0; --k) {
        const int to = Number(count);
        const int number = pieces_[static_cast<std::size_t>(to)].number;
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
        selection_.moveSnapshotTaken = true;  // the step of the centring is another story
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
    const int chances = 1 + Number(5);
    for (std::size_t slot = 0; slot < pieces_.size(); ++slot) {
      pieces_[slot].isSelected = Number(chances) == 0;
      if (pieces_[slot].isSelected) selection_.waypoints.Add(static_cast<std::int16_t>(slot));
    }
    UpdateSelectionBox(selection_, map_);
  }

  void TakeStep() {
    steps_.push_back(pieces_);
    if (steps_.size() > kUndoSteps) steps_.erase(steps_.begin());
  }

  void Undo() {
    if (steps_.empty()) return;
    pieces_ = steps_.back();
    steps_.pop_back();
  }

  void Copy() {
    overflow_ = false;
    clipboard_.clear();
    for (Piece& piece : pieces_) {
      if (!piece.isSelected) continue;
      piece.isSelected = pieces_.size() + clipboard_.size() < 499;
      piece.isSelected ? clipboard_.push_back(piece) : void(overflow_ = true);
    }
  }

  void Paste() {
    if (clipboard_.empty()) return;
    TakeStep();
    for (Piece& piece : pieces_) piece.isSelected = false;
    std::map<int, int> numbers;  // of the copied and the pasted ones
    for (const Piece& piece : clipboard_) {
      overflow_ = overflow_ || pieces_.size() >= 499;
      if (pieces_.size() >= 499) break;
      pieces_.push_back({++lastNumber_, piece.look, true, piece.links});
      numbers[piece.number] = lastNumber_;
    }
    for (Piece& piece : pieces_) {
      for (int& link : piece.links) {
        if (piece.isSelected && numbers.contains(link)) link = numbers[link];
      }
    }
    if (std::exchange(overflow_, false)) ++messages_;
    if (AnySelected(pieces_)) Copy();
  }

  void Delete() {
    TakeStep();
    if (!AnySelected(pieces_)) {
      ++messages_;
      return;
    }
    std::erase_if(pieces_, [](const Piece& piece) { return piece.isSelected; });
  }

  void Check() {
    ASSERT_EQ(static_cast<std::size_t>(map_.lastWaypoint + 1), pieces_.size());
    std::set<int> present;
    for (const Piece& piece : pieces_) present.insert(piece.number);
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      EXPECT_EQ(map_.waypoints[i].path, pieces_[i].look) << i;
      EXPECT_EQ(map_.waypoints[i].id, static_cast<int>(i) + 1);
      const auto listed = std::ranges::count(selection_.waypoints.Items(), static_cast<int>(i));
      EXPECT_EQ(listed, pieces_[i].isSelected ? 1 : 0) << i;
      std::erase_if(pieces_[i].links, [&](int link) { return !present.contains(link); });
      std::vector<int> links = LinksOf(map_, static_cast<int>(i));
      for (int& id : links) id = pieces_.at(static_cast<std::size_t>(id - 1)).number;
      EXPECT_EQ(links, pieces_[i].links) << "of waypoint " << i;
      connectionsSeen_ += static_cast<int>(links.size());
    }
    EXPECT_EQ(bench_.journal.undoAvailable + 1, static_cast<int>(steps_.size()));
    EXPECT_EQ(bench_.TakeMessages().size(), std::exchange(messages_, 0U));
  }

  EditorBench bench_;
  MapDocument& map_ = bench_.document;
  Selection& selection_ = bench_.selection;
  std::mt19937 random_{20};
  Pieces pieces_;
  Pieces clipboard_;
  bool overflow_ = false;
  std::vector<Pieces> steps_;
  std::size_t messages_ = 0;
  int lastNumber_ = 0;
  int connectionsSeen_ = 0;
};

TEST(WaypointModelTest, ConnectionsAlwaysLeadWhereTheyLed) {
  std::make_unique<Comparison>()->Run(1000, 10);
}

}  // namespace
}  // namespace vesmora
