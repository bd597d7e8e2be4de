#include "document/map_file.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "document/geometry.h"
#include "document/map_image.h"
#include "document/numbers.h"
#include "document/save_checks.h"
#include "document/save_preparation.h"

namespace vesmora {
namespace {

std::span<Waypoint> UsedWaypoints(MapDocument& document) {
  return std::span(document.waypoints).first(static_cast<std::size_t>(document.lastWaypoint + 1));
}

/// Waypoints are whole world units in files and 1/256 units in memory.
void WaypointsToMemory(MapDocument& document) {
  for (Waypoint& waypoint : UsedWaypoints(document)) {
    waypoint.x = ToFixedPoint(waypoint.x);
    waypoint.y = ToFixedPoint(waypoint.y);
  }
}

void WaypointsToFile(MapDocument& document) {
  for (Waypoint& waypoint : UsedWaypoints(document)) {
    waypoint.x = RoundToInt32(waypoint.x / 256.0);
    waypoint.y = RoundToInt32(waypoint.y / 256.0);
  }
}

/// The save exchanges corners 0 and 1 of polygons that run the wrong way round: what is
/// selected stays the corner of that place.
void FollowTurnedCorners(Selection& selection, const MapDocument& document) {
  const auto listed = selection.vertices;
  selection.vertices.Clear();
  for (VertexReference vertex : listed.Items()) {
    const VertexReference other{vertex.polygon, static_cast<std::uint8_t>(1 - vertex.corner)};
    const bool isTurned = vertex.corner < 2 && !PolygonIsOrdered(document, vertex.polygon);
    if (isTurned && std::ranges::count(listed.Items(), other) == 0) vertex = other;
    selection.vertices.Add(vertex);
  }
}

void TellFileError(Dialogs& dialogs, const std::string& text) {
  dialogs.Show({.text = text, .title = "File error", .icon = MessageIcon::kNone});
}

void DeriveCounters(MapDocument& document) {
  document.lastSpawn = FindLastSpawn(document);
  document.lastScenery = FindLastScenery(document);
  document.lastWaypoint = FindLastWaypoint(document);
  document.lastCollider = FindLastCollider(document);
}

ToolMode ValidTool(std::int16_t index) {
  return static_cast<ToolMode>(index >= 0 && index < kToolCount ? index : 0);
}

/// Kept between writes: getting half a megabyte of fresh pages from the system takes
/// as long as writing it. Everything runs on one thread.
std::span<std::byte> ImageBuffer(std::size_t size) {
  static std::vector<std::byte> buffer(kUndoFileSize);
  return std::span(buffer).first(size);
}

}  // namespace

LoadOutcome LoadMap(const MapFileContext& context, const std::string& path, bool isUndo,
                    bool shiftDown) {
  MapDocument& document = context.document;
  // One byte more than fits, so that a longer file is known without reading it all.
  const FileContents file = ReadFile(context.files, path, kUndoFileSize + 1);
  if (file.status.failure == FileFailure::kError) {
    TellFileError(context.dialogs, "File '" + path + "' could not be read: " + file.status.reason);
    return LoadOutcome::kUnreadable;
  }
  if (file.status.failure == FileFailure::kMissing) {
    TellFileError(context.dialogs, "File '" + path + "' not found.");
    return LoadOutcome::kRefused;
  }
  if (isUndo && file.size < kUndoFileSize) {
    TellFileError(context.dialogs, "File '" + path + "' is damaged: it ends too early.");
    return LoadOutcome::kUnreadable;
  }
  if (!isUndo && file.size != kMapFileSize) {
    TellFileError(context.dialogs, "File '" + path + "' is not Soldat 1.0.5b mapfile.");
    if (!shiftDown) return LoadOutcome::kRefused;
  }

  if (!isUndo) ZeroTables(document, ZeroSlots::kAll);
  document.texture = TextureName{};
  UndoItems undo;
  const ImageReading reading = ReadMapImage(file.bytes, document, isUndo ? &undo : nullptr);
  if (reading.divisionPosition != kDivisionOffset) context.dialogs.Show({});

  const int polygonCount = std::clamp<int>(reading.polygonCount, 0, kPolygonCapacity);
  document.lastPolygon = static_cast<std::int16_t>(polygonCount - 1);
  if (isUndo) {
    UnpackSelection(undo.selection, context.selection, document);
    document.toolIndex = ValidTool(undo.toolIndex);
  } else {
    DeriveCounters(document);
    document.fileName = path;
  }
  WaypointsToMemory(document);
  document.author = ReadAuthor(document);
  if (!isUndo && polygonCount != reading.polygonCount) {
    TellFileError(context.dialogs, "File '" + path + "' is damaged: it names " +
                                       std::to_string(reading.polygonCount) + " polygons, " +
                                       std::to_string(polygonCount) + " are used.");
  }
  return LoadOutcome::kLoaded;
}

FileStatus WriteMap(const MapFileContext& context, const std::string& path, bool isUndo) {
  MapDocument& document = context.document;
  Selection& selection = context.selection;
  // On the heap, and only for a real save: a document is half a megabyte.
  std::unique_ptr<const MapDocument> documentBefore;
  const Selection selectionBefore = selection;
  if (!isUndo) documentBefore = std::make_unique<const MapDocument>(document);

  // The last slot of the scenery table is never kept.
  if (document.lastScenery == kSceneryCapacity - 1) {
    --document.lastScenery;
    DropMissing(selection, document);
  }
  if (!isUndo) {
    FollowTurnedCorners(selection, document);
    PrepareForSave(document);
  }
  WaypointsToFile(document);
  document.randomId = static_cast<std::int32_t>(context.random() * 1000 + 1);
  StoreAuthor(document);

  const std::span<std::byte> image = ImageBuffer(isUndo ? kUndoFileSize : kMapFileSize);
  if (isUndo) {
    const UndoItems undo{PackSelection(selection, document),
                         static_cast<std::int16_t>(document.toolIndex)};
    WriteMapImage(document, &undo, image);
  } else {
    WriteMapImage(document, nullptr, image);
  }
  const FileStatus status = isUndo ? WriteFileInPlace(context.files, path, image)
                                   : WriteFileDurably(context.files, path, image);
  WaypointsToMemory(document);
  if (isUndo) return status;
  if (!status.Ok()) {
    document = *documentBefore;
    selection = selectionBefore;
    return status;
  }
  CheckDuplicateVertices(document, selection, context.display, context.dialogs);
  CheckCtfSpawns(document, path, context.dialogs);
  return status;
}

}  // namespace vesmora
