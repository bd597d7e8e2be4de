#include "document/map_file.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "document/numbers.h"
#include "document/save_preparation.h"

namespace vesmora {
namespace {

/// Waypoints are whole world units in files and 1/256 units in memory.
void WaypointsToMemory(MapDocument& document) {
  for (Waypoint& waypoint : document.waypoints.Used()) {
    waypoint.x = ToFixedPoint(waypoint.x);
    waypoint.y = ToFixedPoint(waypoint.y);
  }
}

void WaypointsToFile(MapDocument& document) {
  for (Waypoint& waypoint : document.waypoints.Used()) {
    waypoint.x = RoundToInt32(waypoint.x / 256.0);
    waypoint.y = RoundToInt32(waypoint.y / 256.0);
  }
}

ToolMode ValidTool(std::int16_t index) {
  return static_cast<ToolMode>(index >= 0 && index < kToolCount ? index : 0);
}

/// Whether a file can be taken at all.
LoadReport Judge(const FileContents& file, bool isUndo, bool shiftDown) {
  LoadReport report{.status = file.status};
  report.isCutShort = file.status.Ok() && isUndo && file.size < kUndoFileSize;
  report.hasWrongSize = file.status.Ok() && !isUndo && file.size != kMapFileSize;
  if (file.status.failure == FileFailure::kError || report.isCutShort) {
    report.outcome = LoadOutcome::kUnreadable;
  } else if (!file.status.Ok() || (report.hasWrongSize && !shiftDown)) {
    report.outcome = LoadOutcome::kRefused;
  }
  return report;
}

/// Kept between writes: getting half a megabyte of fresh pages from the system takes
/// as long as writing it. Everything runs on one thread.
std::span<std::byte> ImageBuffer(std::size_t size) {
  static std::vector<std::byte> buffer(kUndoFileSize);
  return std::span(buffer).first(size);
}

/// The last slot of the scenery table is never kept in a map file.
void DropLastSceneryOfFullTable(MapDocument& document, Selection& selection) {
  if (!document.sceneries.Full()) return;
  document.sceneries.DropLast();
  DropMissing(selection, document);
}

/// What both kinds of files need before their bytes can be taken.
void BringIntoFileForm(MapDocument& document, double random) {
  WaypointsToFile(document);
  document.randomId = static_cast<std::int32_t>(random * 1000 + 1);
  StoreAuthor(document);
}

FileStatus WriteUndoFile(const MapDocument& document, const Selection& selection, FileCalls& files,
                         const std::string& path) {
  const UndoItems undo{PackSelection(selection, document),
                       static_cast<std::int16_t>(document.toolIndex)};
  const std::span<std::byte> image = ImageBuffer(kUndoFileSize);
  WriteMapImage(document, &undo, image);
  return WriteFileInPlace(files, path, image);
}

}  // namespace

LoadReport LoadMap(MapDocument& document, Selection& selection, FileCalls& files,
                   const std::string& path, bool isUndo, bool shiftDown) {
  const FileContents file = ReadFile(files, path, kMapReadLimit);
  return TakeMapFile(document, selection, file, path, isUndo, shiftDown);
}

LoadReport TakeMapFile(MapDocument& document, Selection& selection, const FileContents& file,
                       const std::string& path, bool isUndo, bool shiftDown) {
  LoadReport report = Judge(file, isUndo, shiftDown);
  if (report.outcome != LoadOutcome::kLoaded) return report;

  if (!isUndo) ZeroTables(document);
  document.texture = TextureName{};
  UndoItems undo;
  const ImageReading reading = ReadMapImage(file.bytes, document, isUndo ? &undo : nullptr);
  report.hasWrongLayout = reading.divisionPosition != kDivisionOffset;
  if (isUndo) {
    UnpackSelection(undo.selection, selection, document);
    document.toolIndex = ValidTool(undo.toolIndex);
  } else {
    report.polygonCount = reading.polygonCount;
    document.polygons.SetCount(std::clamp<int>(reading.polygonCount, 0, kPolygonCapacity));
    FindTableEnds(document);
    document.fileName = path;
  }
  WaypointsToMemory(document);
  document.author = ReadAuthor(document);
  return report;
}

void MakeMapFile(MapDocument& document, Selection& selection, double random,
                 std::span<std::byte> image) {
  DropLastSceneryOfFullTable(document, selection);
  PrepareForSave(document, selection);
  BringIntoFileForm(document, random);
  WriteMapImage(document, nullptr, image);
  WaypointsToMemory(document);
}

WriteReport WriteMap(MapDocument& document, Selection& selection, FileCalls& files, double random,
                     const std::string& path, bool isUndo) {
  if (isUndo) {
    BringIntoFileForm(document, random);
    const FileStatus status = WriteUndoFile(document, selection, files, path);
    WaypointsToMemory(document);
    return {.status = status, .findings = {}};
  }
  // On the heap: a document is half a megabyte.
  const auto documentBefore = std::make_unique<const MapDocument>(document);
  const Selection selectionBefore = selection;
  const std::span<std::byte> image = ImageBuffer(kMapFileSize);
  MakeMapFile(document, selection, random, image);
  WriteReport report{.status = WriteFileDurably(files, path, image), .findings = {}};
  if (report.status.Ok()) {
    report.findings = {.duplicateVertices = CheckDuplicateVertices(document, selection),
                       .spawns = CheckCtfSpawns(document, path)};
  } else {
    document = *documentBefore;
    selection = selectionBefore;
  }
  return report;
}

}  // namespace vesmora
