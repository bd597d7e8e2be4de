// Imports a prefab that may hold anything into maps of any fill. It is taken whole,
// cut to what fits, or refused with the map as it was; never is a record of what was
// there before changed, and what is exported afterwards is a sound prefab.
//
//   byte 0   bit 0: the bytes from byte 2 on are the file itself; bit 1: quietly;
//            bit 2: with Shift
//   byte 1   how full the map is
//   else     three last indexes (16 bits), how much is missing at the end (16 bits),
//            then the records, repeated until there are enough
#include <algorithm>
#include <cstring>
#include <memory>
#include <span>
#include <vector>

#include "base_maps.h"
#include "document/prefab_file.h"
#include "memory_file_calls.h"
#include "require.h"
#include "tools/mouse_dispatch.h"
#include "tools/prefab_import.h"
#include "view/layout.h"

namespace vesmora {
namespace {

using Bytes = std::vector<std::byte>;

constexpr std::size_t kHeaderSize = 29;
constexpr std::size_t kPolygonSize = sizeof(Polygon) + sizeof(PolygonNormals);
const std::string kPath = "folder/piece.pre";

class CountingDialogs final : public Dialogs {
 public:
  void Show(const Message& message) override {
    if (message.title == "File error") ++fileErrors;
    if (message.title == "Problem") ++problems;
    Require(message.title != "File error" || message.text.find(kPath) != std::string::npos,
            "a message that does not name the file");
  }
  bool Ask(const Message& /*message*/) override { return false; }
  std::string ChooseFileToOpen(const FileRequest& /*request*/) override { return {}; }
  std::string ChooseFileToSave(const FileRequest& /*request*/) override { return {}; }
  std::string AskText(const TextRequest& /*request*/) override { return {}; }
  std::optional<std::int32_t> ChooseColor(std::int32_t /*initial*/) override { return {}; }

  int fileErrors = 0;
  int problems = 0;
};

class IdleDisplay final : public Display {
 public:
  void RedrawMap() override {}
  void RefreshInfoPanel() override {}
  void SetPointer(PointerShape /*shape*/) override {}
};

struct Input {
  bool isQuiet = false;
  bool shiftDown = false;
  std::uint8_t fill = 0;
  Bytes file;
};

std::int16_t WordAt(std::span<const std::byte> bytes, std::size_t at) {
  std::int16_t word = 0;
  if (at + sizeof(word) <= bytes.size()) std::memcpy(&word, bytes.data() + at, sizeof(word));
  return word;
}

std::size_t Records(std::int16_t last, int capacity) {
  return static_cast<std::size_t>(std::clamp(last + 1, 0, capacity + 1));
}

Input Decode(std::span<const std::uint8_t> data) {
  constexpr std::size_t kNumbers = 2 + 4 * sizeof(std::int16_t);
  Input input;
  if (data.size() < 2) return input;
  const auto bytes = std::as_bytes(data);
  input.isQuiet = (data[0] & 2U) != 0;
  input.shiftDown = (data[0] & 4U) != 0;
  input.fill = data[1];
  if ((data[0] & 1U) != 0 || data.size() <= kNumbers) {
    input.file.assign(bytes.begin() + 2, bytes.end());
    return input;
  }
  const std::size_t whole = kHeaderSize + kPolygonSize * Records(WordAt(bytes, 2), 400) +
                            sizeof(SceneryObject) * Records(WordAt(bytes, 4), 255) +
                            sizeof(Collider) * Records(WordAt(bytes, 6), 128);
  input.file.resize(whole, std::byte{' '});
  std::memcpy(input.file.data(), "1.0", 3);
  std::memcpy(input.file.data() + 3, bytes.data() + 2, 6);
  const auto records = bytes.subspan(kNumbers);
  for (std::size_t at = kHeaderSize; at < whole; at += records.size()) {
    std::memcpy(input.file.data() + at, records.data(), std::min(records.size(), whole - at));
  }
  const auto missing = static_cast<std::uint16_t>(WordAt(bytes, 8));
  input.file.resize(whole - std::min<std::size_t>(missing, whole));
  return input;
}

/// Too large for a stack.
struct Session {
  EditingState state;
  MemoryFileCalls files;
  CountingDialogs dialogs;
  IdleDisplay display;
  EditingPorts ports{files, dialogs, display, [] { return 0.5; }};

  Editing On() { return {state, ports}; }
};

bool SameRecords(const auto& a, const auto& b, int last) {
  return std::memcmp(a.data(), b.data(), sizeof(a[0]) * static_cast<std::size_t>(last + 1)) == 0;
}

void CheckOldRecords(const MapDocument& map, const MapDocument& before) {
  Require(SameRecords(map.polygons, before.polygons, before.lastPolygon), "polygons changed");
  Require(SameRecords(map.normals, before.normals, before.lastPolygon), "normals changed");
  Require(SameRecords(map.sceneries, before.sceneries,
                      std::min<int>(before.lastScenery, map.lastScenery)),
          "sceneries changed");
  for (std::size_t i = 0;
       i <= static_cast<std::size_t>(before.lastCollider) && before.lastCollider >= 0; ++i) {
    Collider collider = map.colliders[i];
    collider.authorChar = before.colliders[i].authorChar;  // the map's, not the collider's
    Require(std::memcmp(&collider, &before.colliders[i], sizeof(collider)) == 0,
            "colliders changed");
  }
  Require(map.spawns == before.spawns && map.lastSpawn == before.lastSpawn, "spawns changed");
  Require(map.waypoints == before.waypoints && map.lastWaypoint == before.lastWaypoint,
          "waypoints changed");
  Require(map.author == before.author, "the author changed");
}

/// What must be at the end of the tables after a quiet import.
void CheckNewRecords(const MapDocument& map, const MapDocument& before, const Bytes& file) {
  const std::byte* at = file.data() + kHeaderSize;
  const int polygons = WordAt(file, 3) + 1;
  for (int i = 0; i < polygons; ++i, at += kPolygonSize) {
    const auto slot = static_cast<std::size_t>(before.lastPolygon + 1 + i);
    if (slot >= map.polygons.size()) continue;
    Require(std::memcmp(&map.polygons[slot], at, sizeof(Polygon)) == 0, "another polygon");
    Require(std::memcmp(&map.normals[slot], at + sizeof(Polygon), sizeof(PolygonNormals)) == 0,
            "other normals");
  }
  const auto check = [&at](const auto& table, int last, int count) {
    for (int i = 0; i < count; ++i, at += sizeof(table[0])) {
      const auto slot = static_cast<std::size_t>(last + 1 + i);
      if (slot >= table.size()) continue;
      Require(std::memcmp(&table[slot], at, sizeof(table[0])) == 0, "another record");
    }
  };
  check(map.sceneries, before.lastScenery, WordAt(file, 5) + 1);
  check(map.colliders, before.lastCollider, WordAt(file, 7) + 1);
}

/// False when not everything fitted.
bool CheckCount(std::int16_t last, std::int16_t before, int count, int capacity) {
  const int fitting = std::min(count, capacity - 1 - before);
  // An undo step drops what lies in the last scenery slot.
  const bool mayDrop = capacity == kSceneryCapacity && before + fitting == capacity - 1;
  Require(last == before + fitting || (mayDrop && last == before + fitting - 1), "another count");
  return fitting == count;
}

void CheckSelection(const Session& session, const MapDocument& before) {
  const MapDocument& map = session.state.document;
  const Selection& selection = session.state.selection;
  Require(selection.vertices.Count() == 3 * (map.lastPolygon - before.lastPolygon) &&
              selection.colliders.Count() == map.lastCollider - before.lastCollider &&
              selection.spawns.Empty() && selection.waypoints.Empty(),
          "others are selected");
  for (const std::uint8_t slot : selection.sceneries.Items()) {
    Require(slot > before.lastScenery && slot <= map.lastScenery, "another scenery is selected");
  }
}

void PlaceAndDrop(Session& session) {
  const Editing editing = session.On();
  MoveMouse(editing, {MouseButton::kNone, 200, 200});
  MoveMouse(editing, {MouseButton::kNone, -1e9f, 3e9f});
  PressMouse(editing, {MouseButton::kLeft, 200, 200});
  ReleaseMouse(editing, {MouseButton::kLeft, 200, 200});
  Require(!session.state.selection.placing, "still following");
}

void CheckExport(const MapDocument& map) {
  const Bytes exported = WritePrefab(map);
  const std::optional<Prefab> prefab = ReadPrefab(exported);
  Require(prefab && ReadPrefabHeader(exported).isKnownVersion, "not its own prefab");
  Require(static_cast<int>(prefab->polygons.size()) == map.lastPolygon + 1 &&
              static_cast<int>(prefab->sceneries.size()) == map.lastScenery + 1 &&
              static_cast<int>(prefab->colliders.size()) == map.lastCollider + 1,
          "another count is exported");
}

/// Snapshots put waypoints on whole units; here they are from the start.
MapDocument MakeMap(int count) {
  MapDocument map = MakeBaseMap(count);
  for (Waypoint& waypoint : map.waypoints) {
    waypoint.x *= 256;
    waypoint.y *= 256;
  }
  return map;
}

void TestOneInput(std::span<const std::uint8_t> data) {
  static const std::array kMaps = {MakeMap(0),   MakeMap(8),   MakeMap(120),
                                   MakeMap(250), MakeMap(396), MakeMap(500)};
  const Input input = Decode(data);
  const MapDocument& before = kMaps[input.fill % kMaps.size()];
  const auto session = std::make_unique<Session>();
  EditingState& state = session->state;
  state.document = before;
  state.view.area = ComputeDrawingArea(1024, 700);
  state.journal.folder = "folder/";
  state.shiftDown = input.shiftDown;
  session->files.Put(kPath, input.file);
  ImportPrefab(session->On(), kPath, input.isQuiet ? ImportManner::kQuiet : ImportManner::kPlaced);

  const MapDocument& map = state.document;
  const std::optional<Prefab> prefab = ReadPrefab(input.file);
  const bool isKnown = ReadPrefabHeader(input.file).isKnownVersion;
  const CountingDialogs& dialogs = session->dialogs;
  CheckOldRecords(map, before);
  if (!prefab || !(isKnown || input.shiftDown)) {
    Require(map.lastPolygon == before.lastPolygon && map.lastScenery == before.lastScenery &&
                map.lastCollider == before.lastCollider && state.selection.Empty(),
            "a refused prefab changes the map");
    Require(dialogs.fileErrors == (input.isQuiet ? 0 : 1), "a refusal is not told once");
    Require(dialogs.problems == 0 && !state.selection.placing, "a refused prefab is placed");
    return;
  }
  Require(dialogs.fileErrors == (isKnown || input.isQuiet ? 0 : 1), "another version is not told");
  bool fits = CheckCount(map.lastPolygon, before.lastPolygon, WordAt(input.file, 3) + 1, 400);
  fits &= CheckCount(map.lastScenery, before.lastScenery, WordAt(input.file, 5) + 1, 255);
  fits &= CheckCount(map.lastCollider, before.lastCollider, WordAt(input.file, 7) + 1, 128);
  Require(dialogs.problems == (fits || input.isQuiet ? 0 : 1), "an overflow is not told once");
  CheckSelection(*session, before);
  if (input.isQuiet) {
    CheckNewRecords(map, before, input.file);
  } else if (state.selection.placing) {
    PlaceAndDrop(*session);
    CheckOldRecords(map, before);
  }
  CheckExport(map);
}

}  // namespace
}  // namespace vesmora

extern "C" const char* __asan_default_options() { return "quarantine_size_mb=8"; }

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  vesmora::TestOneInput({data, size});
  return 0;
}
