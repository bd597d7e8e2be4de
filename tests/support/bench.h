// A whole editor without a window: real files in a scratch folder, everything else scripted,
// and one log of all that was asked for.
#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/editor.h"
#include "app/file_commands.h"
#include "app/file_messages.h"
#include "app/keys.h"
#include "document/map_file.h"
#include "document/map_image.h"
#include "support/fakes.h"
#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"
#include "tools/mouse_dispatch.h"
#include "tools/tool_change.h"

namespace vesmora {

using Bytes = std::vector<std::byte>;

/// A file of tests/data.
inline std::string DataPath(const std::string& name) {
  return std::string(VESMORA_TEST_DATA) + "/" + name;
}

/// A whole file; a missing one fails the test.
inline Bytes FileBytes(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) {
    ADD_FAILURE() << "no file " << path;
    return {};
  }
  Bytes bytes(static_cast<std::size_t>(file.seekg(0, std::ios::end).tellg()));
  file.seekg(0).read(reinterpret_cast<char*>(bytes.data()),
                     static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

inline void PutFile(const std::string& path, const Bytes& bytes) {
  std::ofstream file(PathOf(path), std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) ADD_FAILURE() << "cannot write " << path;
}

/// The document's image as a map file, items as they stand in memory.
inline Bytes ImageOf(const MapDocument& document) {
  Bytes image(kMapFileSize);
  WriteMapImage(document, image);
  return image;
}

/// What a failed read of a file is called.
inline Message FileError(const std::string& text) {
  return {text, "File error", MessageIcon::kNone};
}

/// All there is in a document, for comparing.
using DocumentState = std::tuple<Bytes, std::array<std::int16_t, 5>, std::string, std::string, int>;

inline DocumentState StateOf(const MapDocument& map) {
  const std::array lasts = {map.polygons.last, map.spawns.last, map.sceneries.last,
                            map.waypoints.last, map.colliders.last};
  return {ImageOf(map), lasts, map.fileName, map.author, static_cast<int>(map.toolIndex)};
}

/// No last index and no list leads out of the tables.
inline void CheckRanges(const MapDocument& map, const Selection& selection) {
  VisitLists(map, selection, [](const auto& table, const auto& list) {
    EXPECT_TRUE(table.last >= -1 && table.last < table.kCapacity);
    EXPECT_TRUE(std::ranges::all_of(list.Used(), [&](auto i) { return table.Has(SlotOf(i)); }));
  });
  for (const VertexReference vertex : selection.vertices.Used()) EXPECT_LT(vertex.corner, 3);
  EXPECT_TRUE(map.toolIndex >= ToolMode::kEdit && map.toolIndex <= ToolMode::kAddWaypoint);
}

struct Bench {
  EventLog events;
  ScratchFolder folder;
  ScriptedDialogs dialogs{events};
  FakeWindow window{events};
  MemorySettings settings{events};
  FakeShell shell{events};
  FakePrograms programs{events};
  FaultyFileCalls files;
  double nextRandom = 0.5;
  std::int64_t now = 1'700'000'000'000;  // milliseconds since 1970
  // On the heap: it holds whole tables.
  const std::unique_ptr<Editor> holder =
      std::make_unique<Editor>(Ports{.files = files,
                                     .dialogs = dialogs,
                                     .window = window,
                                     .settings = settings,
                                     .shell = shell,
                                     .programs = programs,
                                     .random = [this] { return nextRandom; },
                                     .timeOfDay = [] { return std::string("15:03"); },
                                     .now = [this] { return now; },
                                     .tempFolder = folder / "temp/",
                                     .tempProblem = "",
                                     .settingsFolder = folder / "settings/",
                                     .programFolder = folder / "game/Vesmora/",
                                     .gameFolder = folder / "game/"});
  Editor& editor = *holder;
  MapDocument& map = editor.document;
  Selection& selection = editor.selection;
  UndoJournal& journal = editor.journal;

  /// The window is open, with a new map whose middle, world 0, 0, is pixel 400, 300. Nothing is
  /// logged yet.
  Bench() {
    std::filesystem::create_directories(editor.ports.tempFolder);
    std::filesystem::create_directories(editor.ports.programFolder);
    journal.folder = HoldUndoFolder(files, editor.ports.tempFolder);
    editor.redrawSuppressed = false;
    editor.view.area = {1000, 700, 200, 100, 40};
    StartNewMap(editor);
    StoreAuthor(map);  // these two as every snapshot leaves them
    map.randomId = 501;
    events.clear();
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  LoadOutcome Load(const std::string& path, bool shiftDown = false, bool isUndo = false) {
    const LoadReport report = LoadMap(map, selection, files, path, isUndo, shiftDown);
    TellLoadReport(editor, path, report);
    return report.outcome;
  }
  /// Loads a file of these bytes.
  LoadOutcome LoadBytes(const Bytes& bytes, bool shiftDown = false) {
    PutFile(folder / "loaded.pmp", bytes);
    return Load(folder / "loaded.pmp", shiftDown);
  }
  FileStatus Write(const std::string& path, bool isUndo = false) {
    const WriteReport report = WriteMap(map, selection, files, nextRandom, path, isUndo);
    TellSaveFindings(editor, report.findings);
    return report.status;
  }
  /// The bytes that a save or an undo snapshot gives; empty when it fails.
  Bytes Saved(const std::string& name = "saved.pmp", bool isUndo = false) {
    const FileStatus status = Write(folder / name, isUndo);
    EXPECT_TRUE(status.Ok()) << status.reason;
    return status.Ok() ? FileBytes(folder / name) : Bytes{};
  }
  Bytes Snapshot() { return Saved("undo.tmp", true); }

  /// "<tool>: <objects of each kind>, <undo steps> <caption>", such as
  /// "0: 1 0 0 0 0, 1 &Undo Move".
  std::string Status() const {
    std::string text = std::to_string(static_cast<int>(map.toolIndex)) + ":";
    VisitTables(map, [&](const auto& table) { text += " " + std::to_string(table.Count()); });
    return text + ", " + std::to_string(journal.undoAvailable + 1) + " " + journal.caption;
  }
  /// A file of the temporary folder.
  std::string Temp(const std::string& name) const { return editor.ports.tempFolder + name; }
  /// Copies a map of tests/data to the scratch folder and returns its path.
  std::string PutMap(const std::string& name, const std::string& source = "small.pmp") {
    PutFile(folder / name, FileBytes(DataPath(source)));
    return folder / name;
  }

  void Snapshot(const std::string& action) { TakeUndoSnapshot(editor, action); }
  void Choose(ToolMode tool) { ChooseTool(editor, tool); }
  bool Press(Key key, KeyModifiers held = {}) { return KeyDown(editor, key, held); }
  /// The event at a world position. Exact for positions of a few binary digits.
  MouseInput At(float x, float y, MouseButton button = MouseButton::kLeft) const {
    const ViewTransform& view = editor.view;
    return {.button = button,
            .x = (x - view.centerX) * view.zoom + 400,
            .y = (y - view.centerY) * view.zoom + 300};
  }
  void Press(float x, float y, MouseButton button = MouseButton::kLeft) {
    PressMouse(editor, At(x, y, button));
  }
  void Move(float x, float y) { MoveMouse(editor, At(x, y, MouseButton::kNone)); }
  void Release(MouseButton button = MouseButton::kLeft) {
    ReleaseMouse(editor, {button, editor.view.lastMouseX, editor.view.lastMouseY});
  }
  /// As a hand does it: goes there, presses, lets go.
  void Click(float x, float y) { Drag(x, y, x, y); }
  void Drag(float fromX, float fromY, float toX, float toY) {
    Move(fromX, fromY);
    Press(fromX, fromY);
    if (fromX != toX || fromY != toY) Move(toX, toY);
    Release();
  }

  /// Everything that is listed, in order: "v0.2" corners, "s1" spawns, "o1" sceneries,
  /// "c1" colliders, "w1" waypoints.
  std::string Listed() const {
    std::string text;
    for (const auto& [polygon, corner] : selection.vertices.Used()) {
      text += " v" + std::to_string(polygon) + "." + std::to_string(corner);
    }
    const auto add = [&text](const char* kind, const auto& list) {
      for (const auto index : list.Used()) text += kind + std::to_string(index);
    };
    add(" s", selection.spawns);
    add(" o", selection.sceneries);
    add(" c", selection.colliders);
    add(" w", selection.waypoints);
    return text.empty() ? "" : text.substr(1);
  }

  /// Names of the undo steps, oldest first.
  std::vector<std::string> Steps() const {
    std::vector<std::string> names;
    for (int back = journal.undoAvailable; back >= 0; --back) {
      const int slot = (journal.undoSlot - back + kUndoSteps) % kUndoSteps;
      names.push_back(journal.undoActions[static_cast<std::size_t>(slot)]);
    }
    return names;
  }
  /// The boxes shown, or all that was asked for, since the last call.
  std::vector<Message> TakeMessages() { return std::exchange(dialogs.messages, {}); }
  EventLog TakeEvents() { return std::exchange(events, {}); }
};

}  // namespace vesmora
