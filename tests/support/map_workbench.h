// A document with everything that loading and saving it needs, and files to do it with.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <string>
#include <tuple>
#include <vector>

#include "document/map_file.h"
#include "document/map_image.h"
#include "support/fakes.h"
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
  WriteMapImage(document, nullptr, image);
  return image;
}

/// What a failed read of a file is called.
inline Message FileError(const std::string& text) {
  return {text, "File error", MessageIcon::kNone};
}

/// All there is in a document, for comparing.
using DocumentState = std::tuple<Bytes, std::array<std::int16_t, 5>, std::string, std::string, int>;

inline DocumentState StateOf(const MapDocument& map) {
  const std::array lasts = {map.lastPolygon, map.lastSpawn, map.lastScenery, map.lastWaypoint,
                            map.lastCollider};
  return {ImageOf(map), lasts, map.fileName, map.author, static_cast<int>(map.toolIndex)};
}

/// No last index and no list leads out of the tables.
inline void CheckRanges(const MapDocument& map, const Selection& selection) {
  const auto names = [](const auto& list, int last, std::size_t capacity) {
    EXPECT_TRUE(last >= -1 && last < static_cast<int>(capacity));
    EXPECT_TRUE(std::ranges::all_of(list.Items(), [&](auto i) { return i >= 0 && i <= last; }));
  };
  names(selection.spawns, map.lastSpawn, map.spawns.size());
  names(selection.sceneries, map.lastScenery, map.sceneries.size());
  names(selection.colliders, map.lastCollider, map.colliders.size());
  names(selection.waypoints, map.lastWaypoint, map.waypoints.size());
  EXPECT_TRUE(map.lastPolygon >= -1 && map.lastPolygon < kPolygonCapacity);
  for (const VertexReference vertex : selection.vertices.Items()) {
    EXPECT_TRUE(vertex.polygon >= 0 && vertex.polygon <= map.lastPolygon && vertex.corner < 3);
  }
  EXPECT_TRUE(map.toolIndex >= ToolMode::kEdit && map.toolIndex <= ToolMode::kAddWaypoint);
}

struct MapWorkbench {
  MapDocument document;
  Selection selection;
  EventLog events;
  ScriptedDialogs dialogs{events};
  FakeWindow display{events};
  ScratchFolder folder;
  double nextRandom = 0.5;
  RandomSource random = [this] { return nextRandom; };

  MapWorkbench() = default;
  MapWorkbench(const MapWorkbench&) = delete;
  MapWorkbench& operator=(const MapWorkbench&) = delete;

  MapFileContext Context(FileCalls& files = SystemFileCalls()) {
    return {document, selection, files, dialogs, display, random};
  }
  LoadOutcome Load(const std::string& path, bool shiftDown = false) {
    return LoadMap(Context(), path, false, shiftDown);
  }
  /// Loads a file of these bytes.
  LoadOutcome LoadBytes(const Bytes& bytes, bool shiftDown = false) {
    PutFile(folder / "loaded.pmp", bytes);
    return Load(folder / "loaded.pmp", shiftDown);
  }
  /// The bytes that a save or an undo snapshot gives; empty when it fails.
  Bytes Saved(const std::string& name = "saved.pmp", bool isUndo = false) {
    const FileStatus status = WriteMap(Context(), folder / name, isUndo);
    EXPECT_TRUE(status.Ok()) << status.reason;
    return status.Ok() ? FileBytes(folder / name) : Bytes{};
  }
  Bytes Snapshot() { return Saved("undo.tmp", true); }
};

}  // namespace vesmora
