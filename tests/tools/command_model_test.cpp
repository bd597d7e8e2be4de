// Random command sequences against a model that knows objects, not slots: each object
// has a number of its own, and connections lead from number to number.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <set>

#include "app/file_commands.h"
#include "app/undo_commands.h"
#include "document/numbers.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/waypoint_links.h"

namespace vesmora {
namespace {

struct Point {
  double x = 0;
  double y = 0;
  bool isSelected = false;
};

struct Piece {
  int number = 0;             // its own, never used again
  int look = 0;               // what it shares with its copies; in the map's carried fields
  std::vector<Point> points;  // three of a polygon, else one
  std::vector<int> links;     // numbers

  bool IsSelected() const {
    return std::ranges::any_of(points, [](const Point& point) { return point.isSelected; });
  }
};

using Pieces = std::vector<Piece>;

enum Kind { kPolygons, kSpawns, kSceneries, kColliders, kWaypoints, kKinds };
constexpr std::array<int, kKinds> kLimits = {399, 29, 254, 127, 499};

struct ModelMap {
  std::array<Pieces, kKinds> tables;
  bool movedSinceCleared = false;
};

/// Reads and writes the real map as pieces. Their numbers are not in it.
class RealMap {
 public:
  RealMap(MapDocument& map, Selection& selection) : map_(map), selection_(selection) {}

  void Add(Kind kind, int look, float x, float y) {
    const auto mark = static_cast<float>(look);
    switch (kind) {
      case kPolygons:
        AddTriangle(map_, {{{x, y}, {x + 10, y}, {x, y + 20}}}).vertices[2].rhw = mark;
        map_.normals[static_cast<std::size_t>(map_.lastPolygon)].edges[0].z = mark;
        return;
      case kSpawns:
        AddSpawn(map_, x, y, 0).carried = {static_cast<std::uint8_t>(look),
                                           static_cast<std::uint8_t>(look / 256)};
        return;
      case kSceneries:
        AddScenery(map_, x, y, 1).width = look;
        return;
      case kColliders:
        AddCollider(map_, x, y, mark);
        return;
      default:
        AddWaypoint(map_, x, y, look);
    }
  }

  /// Everything but numbers and links.
  std::array<Pieces, kKinds> Read() const {
    std::array<Pieces, kKinds> tables;
    for (int i = 0; i <= map_.lastPolygon; ++i) {
      const auto slot = static_cast<std::size_t>(i);
      const auto& corners = map_.polygons[slot].vertices;
      Piece piece{0, static_cast<int>(corners[2].rhw), {}, {}};
      for (const PolygonVertex& corner : corners) piece.points.push_back({corner.x, corner.y});
      EXPECT_EQ(map_.normals[slot].edges[0].z, corners[2].rhw) << "normals of another polygon";
      tables[kPolygons].push_back(piece);
    }
    const auto read = [&tables](Kind kind, const auto& table, int last, double scale, auto look) {
      for (int i = 0; i <= last; ++i) {
        const auto& record = table[static_cast<std::size_t>(i)];
        tables[kind].push_back(
            {0, static_cast<int>(look(record)), {{record.x / scale, record.y / scale}}, {}});
      }
    };
    read(kSpawns, map_.spawns, map_.lastSpawn, 256,
         [](const SpawnPoint& spawn) { return spawn.carried[0] + 256 * spawn.carried[1]; });
    read(kSceneries, map_.sceneries, map_.lastScenery, 1,
         [](const SceneryObject& scenery) { return scenery.width; });
    read(kColliders, map_.colliders, map_.lastCollider, 1,
         [](const Collider& collider) { return collider.radius; });
    read(kWaypoints, map_.waypoints, map_.lastWaypoint, 256,
         [](const Waypoint& waypoint) { return waypoint.path; });
    for (const VertexReference vertex : selection_.vertices.Items()) {
      tables[kPolygons]
          .at(static_cast<std::size_t>(vertex.polygon))
          .points[vertex.corner]
          .isSelected = true;
    }
    const auto mark = [&tables](Kind kind, const auto& list) {
      for (const auto slot : list.Items()) {
        tables[kind].at(static_cast<std::size_t>(slot)).points[0].isSelected = true;
      }
    };
    mark(kSpawns, selection_.spawns);
    mark(kSceneries, selection_.sceneries);
    mark(kColliders, selection_.colliders);
    mark(kWaypoints, selection_.waypoints);
    return tables;
  }

  void Select(const ModelMap& model) {
    ClearLists(selection_);
    for (std::size_t i = 0; i < model.tables[kPolygons].size(); ++i) {
      for (std::uint8_t corner = 0; corner < 3; ++corner) {
        if (!model.tables[kPolygons][i].points[corner].isSelected) continue;
        selection_.vertices.Add({static_cast<std::int16_t>(i), corner});
      }
    }
    const auto list = [&model](Kind kind, auto& entries) {
      for (std::size_t i = 0; i < model.tables[kind].size(); ++i) {
        using Entry = std::remove_cvref_t<decltype(entries.entries[0])>;
        if (model.tables[kind][i].IsSelected()) entries.Add(static_cast<Entry>(i));
      }
    };
    list(kSpawns, selection_.spawns);
    list(kSceneries, selection_.sceneries);
    list(kColliders, selection_.colliders);
    list(kWaypoints, selection_.waypoints);
    UpdateSelectionBox(selection_, map_);
  }

  /// Connections that lead to a waypoint, as slots.
  std::vector<int> Links(std::size_t slot) const {
    std::vector<int> links;
    for (const std::int32_t id : UsedConnections(map_.waypoints[slot])) {
      if (id >= 1 && id <= map_.lastWaypoint + 1) links.push_back(id - 1);
    }
    return links;
  }

 private:
  MapDocument& map_;
  Selection& selection_;
};

class Comparison {
 public:
  explicit Comparison(unsigned seed) : random_(seed) {
    bench_.document.fileName = bench_.folder / "map.pmp";
  }

  void Run(int sequences, int commands) {
    for (int i = 0; i < sequences && !testing::Test::HasFailure(); ++i) {
      Begin(Number(200));
      std::string trace = "sequence " + std::to_string(i) + ":";
      for (int k = 0; k < commands && !testing::Test::HasFailure(); ++k) {
        const std::string& name = Step();
        trace += " " + name;
        SCOPED_TRACE(trace);
        Check(name);
      }
    }
  }

  int ConnectionsSeen() const { return connectionsSeen_; }

 private:
  int Number(int below) { return static_cast<int>(random_() % static_cast<unsigned>(below)); }
  bool OneIn(int chances) { return Number(chances) == 0; }
  const Editing& On() const { return editing_; }

  /// `full` is a kind whose table is nearly full, or none of them.
  void Begin(int full) {
    const std::string path = bench_.document.fileName;
    MenuNew(bench_.editor);
    bench_.document.fileName = path;
    model_ = {};
    clipboard_ = {};
    steps_.clear();
    for (int kind = 0; kind < kKinds; ++kind) {
      const int limit = kLimits[static_cast<std::size_t>(kind)];
      const int count = kind == full ? limit - Number(20) : Number(12);
      for (int look = 1; look <= count; ++look) {
        real_.Add(static_cast<Kind>(kind), look, static_cast<float>(Number(400)),
                  static_cast<float>(Number(400)));
      }
    }
    model_.tables = real_.Read();
    for (Pieces& table : model_.tables) {
      for (Piece& piece : table) piece.number = ++lastNumber_;
    }
    Connect();
  }

  void Connect() {
    Pieces& table = model_.tables[kWaypoints];
    for (std::size_t from = 0; from < table.size(); ++from) {
      Waypoint& waypoint = bench_.document.waypoints[from];
      for (int k = Number(4); k > 0; --k) {
        const auto to = static_cast<std::size_t>(Number(static_cast<int>(table.size())));
        // Twice the same: how those are unlinked is another story.
        if (std::ranges::count(table[from].links, table[to].number) > 0) continue;
        table[from].links.push_back(table[to].number);
        waypoint.connections[static_cast<std::size_t>(waypoint.connectionCount++)] =
            static_cast<std::int32_t>(to) + 1;
      }
    }
  }

  const std::string& Step() {
    static const std::array<std::string, 9> kNames = {
        "select", "copy", "paste", "delete", "mirror", "flip", "front", "back", "other"};
    const int choice = Number(12);
    switch (choice) {
      case 1:
        Copy();
        MenuCopy(On());
        return kNames[1];
      case 2:
      case 3:
        Paste();
        MenuPaste(On());
        return kNames[2];
      case 4:
        Delete();
        MenuDelete(On());
        return kNames[3];
      case 5:
      case 6:
        TurnOver(choice == 5);
        choice == 5 ? MenuMirror(On()) : MenuFlip(On());
        return kNames[choice == 5 ? 4 : 5];
      case 7:
      case 8:
        Reorder(choice == 7);
        choice == 7 ? MenuFront(On()) : MenuBack(On());
        return kNames[choice == 7 ? 6 : 7];
      case 9:
        return UndoOrSave();
      default:
        Select();
        return kNames[0];
    }
  }

  const std::string& UndoOrSave() {
    static const std::string kUndo = "undo";
    static const std::string kSave = "save";
    if (OneIn(4)) {
      MenuSave(bench_.editor);
      return kSave;
    }
    if (!steps_.empty()) {
      model_ = steps_.back();
      steps_.pop_back();
      model_.movedSinceCleared = false;
    }
    MenuUndo(bench_.editor);
    return kUndo;
  }

  void TakeStep() {
    steps_.push_back(model_);
    if (steps_.size() > kUndoSteps) steps_.erase(steps_.begin());
  }

  void ForEachPoint(auto action) {
    for (Pieces& table : model_.tables) {
      for (Piece& piece : table) std::ranges::for_each(piece.points, action);
    }
  }
  bool AnythingSelected() {
    bool any = false;
    ForEachPoint([&any](const Point& point) { any = any || point.isSelected; });
    return any;
  }
  void Deselect() {
    ForEachPoint([](Point& point) { point.isSelected = false; });
    model_.movedSinceCleared = false;
  }

  void Select() {
    const int chances = 1 + Number(5);
    ClearSelection(bench_.selection, bench_.window);
    Deselect();
    ForEachPoint([this, chances](Point& point) { point.isSelected = OneIn(chances); });
    real_.Select(model_);
  }

  void Copy() {
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      Pieces& table = model_.tables[kind];
      const int room = std::max(kLimits[kind] - static_cast<int>(table.size()), 0);
      Pieces& copies = clipboard_[kind];
      copies.clear();
      for (Piece& piece : table) {
        if (!piece.IsSelected()) continue;
        if (static_cast<int>(copies.size()) < room) {
          copies.push_back(piece);
        } else if (kind != kPolygons) {
          piece.points[0].isSelected = false;
        }
      }
    }
  }

  void Paste() {
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      firstPasted_[kind] = model_.tables[kind].size();
    }
    if (std::ranges::all_of(clipboard_, &Pieces::empty)) return;
    TakeStep();
    ForEachPoint([](Point& point) { point.isSelected = false; });
    std::map<int, int> numbers;  // of the copied and the pasted ones
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      Pieces& table = model_.tables[kind];
      for (const Piece& piece : clipboard_[kind]) {
        if (static_cast<int>(table.size()) >= kLimits[kind]) break;
        table.push_back(piece);
        numbers[piece.number] = table.back().number = ++lastNumber_;
        for (Point& point : table.back().points) point.isSelected = true;
      }
    }
    for (Piece& piece : model_.tables[kWaypoints]) {
      if (!piece.IsSelected()) continue;
      for (int& link : piece.links) {
        if (numbers.contains(link)) link = numbers[link];
      }
    }
    if (!model_.movedSinceCleared) TakeStep();
    model_.movedSinceCleared = true;
    if (AnythingSelected()) Copy();
  }

  void Delete() {
    TakeStep();
    if (!AnythingSelected()) return;
    for (Pieces& table : model_.tables) std::erase_if(table, &Piece::IsSelected);
    Deselect();
  }

  void TurnOver(bool isMirror) {
    if (!AnythingSelected()) return;
    TakeStep();
    const SelectionBox& box = bench_.selection.box;
    ForEachPoint([&box, isMirror](Point& point) {
      if (!point.isSelected) return;
      double& place = isMirror ? point.x : point.y;
      place = isMirror ? box.left + box.right - place : box.top + box.bottom - place;
    });
  }

  void Reorder(bool isFront) {
    TakeStep();
    for (const Kind kind : {kPolygons, kSceneries}) {
      Pieces moved;
      Pieces rest;
      for (const Piece& piece : model_.tables[kind]) {
        (piece.IsSelected() ? moved : rest).push_back(piece);
      }
      if (!isFront) {
        std::ranges::reverse(moved);
        std::swap(moved, rest);
      }
      rest.insert(rest.end(), moved.begin(), moved.end());
      model_.tables[kind] = rest;
    }
    Deselect();
  }

  /// The same objects in the same order with the same connections. A paste has moved
  /// what is selected by one common offset.
  void Check(const std::string& command) {
    const auto seen = real_.Read();
    std::set<std::pair<double, double>> offsets;
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
      Pieces& table = model_.tables[kind];
      ASSERT_EQ(seen[kind].size(), table.size()) << "kind " << kind;
      // A save may put the corners of a triangle into the game's order, and snapshots
      // and saves round waypoints and spawns to whole units.
      const bool isFixedPoint = kind == kSpawns || kind == kWaypoints;
      const double precision = isFixedPoint ? 1.01 : 1e-3;
      for (std::size_t i = 0; i < table.size(); ++i) {
        ASSERT_EQ(seen[kind][i].look, table[i].look) << "kind " << kind << " slot " << i;
        for (std::size_t k = 0; k < table[i].points.size(); ++k) {
          const Point& real = seen[kind][i].points[k];
          Point& model = table[i].points[k];
          if (command == "save" && kind == kPolygons) continue;
          ASSERT_EQ(real.isSelected, model.isSelected) << "kind " << kind << " slot " << i;
          const double dx = real.x - model.x;
          const double dy = real.y - model.y;
          if (command == "paste" && i >= firstPasted_[kind]) {
            if (!isFixedPoint) offsets.insert({std::round(dx * 64), std::round(dy * 64)});
          } else {
            ASSERT_LT(std::abs(dx) + std::abs(dy), precision) << "kind " << kind << " slot " << i;
          }
        }
        table[i].points = seen[kind][i].points;
        // A paste copies what it pasted, where it lies now.
        const std::size_t copy = i - firstPasted_[kind];
        if (command == "paste" && copy < clipboard_[kind].size()) {
          clipboard_[kind][copy].points = table[i].points;
        }
      }
    }
    EXPECT_LE(offsets.size(), 1u) << "a pasted group was torn";
    CheckLinks();
  }

  void CheckLinks() {
    Pieces& table = model_.tables[kWaypoints];
    std::set<int> present;
    for (const Piece& piece : table) present.insert(piece.number);
    for (std::size_t i = 0; i < table.size(); ++i) {
      ASSERT_EQ(bench_.document.waypoints[i].id, static_cast<std::int32_t>(i) + 1);
      std::erase_if(table[i].links, [&present](int link) { return !present.contains(link); });
      std::vector<int> links;
      for (const int slot : real_.Links(i)) {
        links.push_back(table[static_cast<std::size_t>(slot)].number);
      }
      ASSERT_EQ(links, table[i].links) << "of waypoint " << i;
      connectionsSeen_ += static_cast<int>(links.size());
    }
  }

  EditorBench bench_;
  const Editing editing_ = bench_.editor.AsEditing();
  RealMap real_{bench_.document, bench_.selection};
  std::mt19937 random_;
  ModelMap model_;
  std::array<Pieces, kKinds> clipboard_;
  std::array<std::size_t, kKinds> firstPasted_{};
  std::vector<ModelMap> steps_;
  int lastNumber_ = 0;
  int connectionsSeen_ = 0;
};

TEST(CommandModelTest, ObjectsAndConnectionsStayWhatTheyWere) {
  Comparison comparison(20);
  comparison.Run(2000, 8);
  EXPECT_GT(comparison.ConnectionsSeen(), 10'000);
}

}  // namespace
}  // namespace vesmora
