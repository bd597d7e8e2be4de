// Reads a map file that may hold anything, draws it, writes it both ways and
// reads it back. No input may crash, hang or bring an index out of its table,
// and a map that was saved once must stay what it is.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base_maps.h"
#include "checking_canvas.h"
#include "document/map_file.h"
#include "map_input.h"
#include "memory_file_calls.h"
#include "require.h"
#include "view/layout.h"
#include "view/redraw_map.h"

namespace vesmora {
namespace {

using Bytes = std::vector<std::byte>;

const std::string kMapPath = "folder/map.pmp";
const std::string kUndoPath = "folder/undo.tmp";

class CountingDialogs final : public Dialogs {
 public:
  void Show(const Message& message) override {
    Require(!message.title.empty() && !message.text.empty(), "a message without words");
    if (message.title == "File error") ++fileErrors;
  }
  bool Ask(const Message& /*message*/) override { return false; }
  std::string ChooseFileToOpen(const FileRequest& /*request*/) override { return {}; }
  std::string ChooseFileToSave(const FileRequest& /*request*/) override { return {}; }
  std::string AskText(const TextRequest&) override { return {}; }
  std::optional<std::int32_t> ChooseColor(std::int32_t) override { return {}; }

  int fileErrors = 0;
};

class IdleDisplay final : public Display {
 public:
  void RedrawMap() override {}
  void RefreshInfoPanel() override {}
  void SetPointer(PointerShape /*shape*/) override {}
};

/// An editor without a window. Too large for a stack.
struct Session {
  MapDocument document;
  Selection selection;
  CountingDialogs dialogs;
  IdleDisplay display;
  RandomSource random = [] { return 0.5; };

  MapFileContext With(FileCalls& files) {
    return {document, selection, files, dialogs, display, random};
  }
};

Bytes ImageOf(const MapDocument& document) {
  Bytes image(kMapFileSize);
  WriteMapImage(document, nullptr, image);
  return image;
}

/// Whole images at once: byte by byte is dear under the instrumentation.
bool Same(const Bytes& a, const Bytes& b) {
  return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size()) == 0;
}

template <typename List>
bool NamesUpTo(const List& list, int last) {
  return list.last >= -1 && list.Count() <= static_cast<int>(list.entries.size()) &&
         std::ranges::all_of(list.Items(),
                             [last](auto index) { return index >= 0 && index <= last; });
}

bool IsLast(std::int16_t last, int capacity) { return last >= -1 && last < capacity; }

void CheckRanges(const MapDocument& map, const Selection& selection) {
  Require(IsLast(map.lastPolygon, kPolygonCapacity), "lastPolygon");
  Require(IsLast(map.lastSpawn, kSpawnCapacity), "lastSpawn");
  Require(IsLast(map.lastScenery, kSceneryCapacity), "lastScenery");
  Require(IsLast(map.lastWaypoint, kWaypointCapacity), "lastWaypoint");
  Require(IsLast(map.lastCollider, kColliderCapacity), "lastCollider");
  Require(IsLast(static_cast<std::int16_t>(map.toolIndex), kToolCount), "toolIndex");
  Require(NamesUpTo(selection.spawns, map.lastSpawn), "selected spawns");
  Require(NamesUpTo(selection.sceneries, map.lastScenery), "selected sceneries");
  Require(NamesUpTo(selection.colliders, map.lastCollider), "selected colliders");
  Require(NamesUpTo(selection.waypoints, map.lastWaypoint), "selected waypoints");
  for (const VertexReference vertex : selection.vertices.Items()) {
    Require(vertex.polygon >= 0 && vertex.polygon <= map.lastPolygon && vertex.corner < 3,
            "selected vertices");
  }
}

template <typename Table, typename IsActive>
bool EndsAt(const Table& table, std::int16_t last, IsActive isActive) {
  const auto used = static_cast<std::size_t>(last + 1);
  return std::all_of(table.begin(), table.begin() + last + 1, isActive) &&
         (used == table.size() || !isActive(table[used]));
}

void CheckCounters(const MapDocument& map) {
  const auto isOne = [](const auto& record) { return record.active == 1; };
  Require(EndsAt(map.spawns, map.lastSpawn, [](const SpawnPoint& s) { return s.active != 0; }),
          "the spawns do not end at lastSpawn");
  Require(EndsAt(map.sceneries, map.lastScenery, isOne), "the sceneries end elsewhere");
  Require(EndsAt(map.waypoints, map.lastWaypoint, isOne), "the waypoints end elsewhere");
  Require(EndsAt(map.colliders, map.lastCollider, isOne), "the colliders end elsewhere");
}

bool SameCounters(const MapDocument& a, const MapDocument& b) {
  return a.lastPolygon == b.lastPolygon && a.lastSpawn == b.lastSpawn &&
         a.lastScenery == b.lastScenery && a.lastWaypoint == b.lastWaypoint &&
         a.lastCollider == b.lastCollider;
}

void LoadInput(Session& session, MemoryFileCalls& files, const MapInput& input) {
  const std::string& path = input.isUndo ? kUndoPath : kMapPath;
  MapDocument& map = session.document;
  const bool isSized = input.file.size() == kMapFileSize;
  if (!input.isUndo && !isSized) {
    const LoadOutcome outcome = LoadMap(session.With(files), path, false, false);
    Require(outcome == LoadOutcome::kRefused && map.fileName.empty(), "a wrong size is read");
    Require(session.dialogs.fileErrors == 1, "a wrong size is not told once");
    session.dialogs.fileErrors = 0;
  }
  const LoadOutcome outcome = LoadMap(session.With(files), path, input.isUndo, true);
  if (input.isUndo && input.file.size() < kUndoFileSize) {
    Require(outcome == LoadOutcome::kUnreadable, "a cut undo file is read");
    Require(session.dialogs.fileErrors == 1 && map.lastPolygon == -1, "or changes something");
    session.dialogs.fileErrors = 0;
    return;
  }
  Require(outcome == LoadOutcome::kLoaded, "not loaded");
  CheckRanges(map, session.selection);
  Require(map.author.size() <= kReadAuthorLength, "a long author");
  if (input.isUndo) {
    Require(map.fileName.empty() && session.dialogs.fileErrors == 0, "undo names or tells a file");
    return;
  }
  std::int16_t count = 0;
  if (input.file.size() > place::kPolygonCount) {
    const std::size_t present = input.file.size() - place::kPolygonCount;
    std::memcpy(&count, input.file.data() + place::kPolygonCount, std::min(sizeof(count), present));
  }
  const bool isDamaged = count < 0 || count > kPolygonCapacity;
  Require(isDamaged || map.lastPolygon == count - 1, "another polygon count");
  Require(session.dialogs.fileErrors == (isSized ? 0 : 1) + (isDamaged ? 1 : 0),
          "a fault is not told once");
  Require(map.fileName == path, "another file name");
  CheckCounters(map);
}

/// Near, far and impossible places; the first corner is where things are.
ViewTransform ViewNumber(unsigned number, const MapDocument& map) {
  constexpr float kInfinity = std::numeric_limits<float>::infinity();
  const PolygonVertex& corner = map.polygons[0].vertices[0];
  const std::array<std::array<float, 2>, 8> centers = {{{0, 0},
                                                        {corner.x, corner.y},
                                                        {-300, 150},
                                                        {0, 0},
                                                        {8388000, -8388000},
                                                        {-1e9f, 3e9f},
                                                        {1e30f, -1e30f},
                                                        {kInfinity, std::nanf("")}}};
  ViewTransform view;
  view.centerX = centers[number % centers.size()][0];
  view.centerY = centers[number % centers.size()][1];
  view.zoom = kZoomLevels[number % kZoomLevels.size()];
  view.gridSize = kGridSizes[number / 2 % kGridSizes.size()];
  view.fixedGrid = number % 2 != 0;
  view.area = number % 31 == 30 ? DrawingArea{} : ComputeDrawingArea(1024, 700);
  return view;
}

/// Drawing may cut connection counts and nothing else.
void CheckDrawnImage(Bytes before, Bytes after) {
  for (std::size_t i = 0; i < kWaypointCapacity; ++i) {
    const std::size_t at =
        place::kWaypoints + i * sizeof(Waypoint) + offsetof(Waypoint, connectionCount);
    std::int32_t count = 0;
    std::memcpy(&count, before.data() + at, sizeof(count));
    std::int32_t drawn = 0;
    std::memcpy(&drawn, after.data() + at, sizeof(drawn));
    Require(drawn == count || (count > kConnectionCapacity + 1 && drawn == kConnectionCapacity),
            "drawing changed a connection count");
    std::memcpy(after.data() + at, &count, sizeof(count));
  }
  Require(Same(before, after), "drawing changed the map");
}

void Draw(Session& session, unsigned look) {
  constexpr unsigned kRedraws = 6;
  // All lines of a full map, its routes, and the densest grid over the window.
  constexpr int kMostPrimitives = 60000;
  MapDocument& map = session.document;
  const ToolMode tool = map.toolIndex;
  const Bytes before = ImageOf(map);
  for (unsigned i = 0; i < kRedraws; ++i) {
    ShowOptions show;
    show.showFlags = {1, 1, 1, 1, 1, 1, 0};
    if (look % 4 == 3) show.showFlags[i] = 0;
    show.pathFilter = static_cast<std::int16_t>((look + i) % 5 < 3 ? 0 : (look + i) % 5 - 2);
    const ToolDrawing drawing{.placedCorners = static_cast<int>((look + i) % 3),
                              .hasPendingScenery = i % 2 == 0,
                              .mouseX = 100,
                              .mouseY = std::numeric_limits<std::int32_t>::min()};
    if (i > 0) map.toolIndex = static_cast<ToolMode>((look + i) % kToolCount);
    session.selection.connectionAnchor = look % 2 == 0 ? kNoIndex : static_cast<std::int16_t>(i);
    ViewTransform view = ViewNumber(look * kRedraws + i, map);
    CheckingCanvas canvas(view.area.width, view.area.height);
    RedrawMap({map, session.selection, view, show, drawing}, canvas);
    Require(canvas.Clears() == 1, "not cleared once");
    Require(canvas.Primitives() <= kMostPrimitives, "too many primitives");
    Require(GridIndex(view) < static_cast<int>(kGridSizes.size()), "an unknown grid");
  }
  map.toolIndex = tool;
  CheckDrawnImage(before, ImageOf(map));
}

void Write(Session& session, MemoryFileCalls& files, const std::string& path, bool isUndo) {
  Require(WriteMap(session.With(files), path, isUndo).Ok(), "not written");
  Require(files.Find(path)->size() >= (isUndo ? kUndoFileSize : kMapFileSize), "written short");
  Require(files.OpenHandles() == 0, "a file stays open");
  CheckRanges(session.document, session.selection);
}

/// An undo file brings back what is in memory, objects and selection alike.
void CheckUndo(Session& session, MemoryFileCalls& files) {
  Write(session, files, kUndoPath, true);
  const auto restored = std::make_unique<Session>();
  Require(LoadMap(restored->With(files), kUndoPath, true) == LoadOutcome::kLoaded, "no undo");
  CheckRanges(restored->document, restored->selection);
  Require(SameCounters(session.document, restored->document), "undo changes the counters");
  Require(Same(ImageOf(session.document), ImageOf(restored->document)), "undo changes the map");
  Require(session.document.toolIndex == restored->document.toolIndex, "undo changes the tool");
  Require(PackSelection(session.selection, session.document) ==
              PackSelection(restored->selection, restored->document),
          "undo changes the selection");
}

/// Whether single precision leaves no doubt which way the corners run. The save
/// turns other triangles as the arithmetic falls, each time anew.
bool HasClearOrder(const Polygon& polygon) {
  const auto& [a, b, c] = polygon.vertices;
  for (const PolygonVertex& corner : polygon.vertices) {
    if (!(std::abs(corner.x) < 1e15f && std::abs(corner.y) < 1e15f)) return false;
  }
  const auto isClear = [](const PolygonVertex& from, const PolygonVertex& p,
                          const PolygonVertex& q) {
    const double px = p.x - from.x;
    const double py = p.y - from.y;
    const double qx = q.x - from.x;
    const double qy = q.y - from.y;
    const double lengths = std::hypot(px, py) * std::hypot(qx, qy);
    return lengths > 1e-6 && std::abs(px * qy - py * qx) > 1e-4 * lengths;
  };
  return isClear(a, b, c) && isClear(b, c, a);
}

/// Saved twice, a map is the same but for its number and for corners 0 and 1 of
/// triangles without a clear order.
void CheckSameSave(Bytes first, Bytes second, const MapDocument& map) {
  Require(first.size() == kMapFileSize && second.size() == kMapFileSize, "not a map's size");
  const auto forget = [&](std::size_t at, std::size_t size) {
    for (Bytes* bytes : {&first, &second}) std::memset(bytes->data() + at, 0, size);
  };
  forget(place::kRandomId, 4);
  for (std::size_t i = 0; i < static_cast<std::size_t>(map.lastPolygon + 1); ++i) {
    if (HasClearOrder(map.polygons[i])) continue;
    forget(i * sizeof(Polygon), 2 * sizeof(PolygonVertex));
    forget(place::kNormals + i * sizeof(PolygonNormals), sizeof(PolygonNormals));
  }
  Require(Same(first, second), "a second save differs");
}

/// Saves, loads into a fresh session and returns that.
std::unique_ptr<Session> SaveAndLoad(Session& session, MemoryFileCalls& files) {
  Write(session, files, kMapPath, false);
  auto loaded = std::make_unique<Session>();
  Require(LoadMap(loaded->With(files), kMapPath, false) == LoadOutcome::kLoaded, "not its own map");
  Require(loaded->dialogs.fileErrors == 0, "a saved map is called wrong");
  CheckRanges(loaded->document, loaded->selection);
  CheckCounters(loaded->document);
  return loaded;
}

void TestOneInput(std::span<const std::uint8_t> data) {
  static const std::vector<Bytes> kBases = MakeBaseFiles();
  const MapInput input = DecodeMapInput(data, kBases);
  MemoryFileCalls files;
  files.Put(input.isUndo ? kUndoPath : kMapPath, input.file);
  auto session = std::make_unique<Session>();
  LoadInput(*session, files, input);
  if (!input.isUndo && input.look % 8 != 0) {
    session->selection = SelectSome(session->document, input.look % 8 < 5, input.look % 8 == 7);
    UpdateSelectionBox(session->selection, session->document);
  }
  Draw(*session, input.look);
  CheckUndo(*session, files);

  auto saved = SaveAndLoad(*session, files);
  if (input.isUndo) {
    // Its tables may have holes, behind which nothing is found again.
    saved = SaveAndLoad(*saved, files);
  } else {
    Require(SameCounters(session->document, saved->document), "a save changes the counters");
  }
  Bytes first = *files.Find(kMapPath);
  const auto again = SaveAndLoad(*saved, files);
  Require(SameCounters(saved->document, again->document), "a second save changes the counters");
  Require(saved->document.author == again->document.author, "the author changes");
  CheckSameSave(std::move(first), *files.Find(kMapPath), saved->document);
  Require(files.FileCount() == 2, "a file is left over or lost");
}

}  // namespace
}  // namespace vesmora

/// The images are large: with the usual quarantine nearly all the time would go
/// into fresh memory pages.
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=8"; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::TestOneInput({data, size});
  return 0;
}
