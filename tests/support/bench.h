// A whole editor without a window: real files in a scratch folder, everything else scripted,
// and one log of all that was asked for.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "app/editor.h"
#include "app/file_messages.h"
#include "document/map_file.h"
#include "document/map_image.h"
#include "support/fakes.h"
#include "support/faulty_file_calls.h"
#include "support/scratch_folder.h"

namespace vesmora {

using Bytes = std::vector<std::byte>;

/// A file of tests/data.
inline std::string DataPath(const std::string& name) {
  return std::string(VESMORA_TEST_DATA) + "/" + name;
}

/// A whole file; a missing one fails the test.
inline Bytes FileBytes(const std::string& path) {
  std::ifstream file(PathOf(path), std::ios::binary);
  if (!file) ADD_FAILURE() << "no file " << path;
  const std::string content(std::istreambuf_iterator<char>(file), {});
  const auto bytes = std::as_bytes(std::span(content));
  return {bytes.begin(), bytes.end()};
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

  Bench() { editor.redrawSuppressed = false; }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;

  /// The pointer that the map shows.
  PointerShape Pointer() const { return editor.pointer; }

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

  /// The boxes shown, or all that was asked for, since the last call.
  std::vector<Message> TakeMessages() { return std::exchange(dialogs.messages, {}); }
  EventLog TakeEvents() { return std::exchange(events, {}); }
};

}  // namespace vesmora
