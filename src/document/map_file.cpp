#include "document/map_file.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "document/map_image.h"
#include "document/save_preparation.h"

namespace vesmora {
namespace {

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

  // What a short file does not hold is zero; a whole one fills every slot.
  if (!isUndo && file.bytes.size() < kMapFileSize) ZeroTables(document);
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
  if (!(isUndo && MarkOf(undo.selection).isExact)) WaypointsToMemory(document);
  document.author = ReadAuthor(document);
  return report;
}

void MakeMapFile(MapDocument& document, Selection& selection, double random,
                 std::span<std::byte> image) {
  DropLastSceneryOfFullTable(document, selection);
  PrepareForSave(document, selection);
  BringIntoFileForm(document, random);
  WriteMapImage(document, image);
  WaypointsToMemory(document);
}

WriteReport WriteMap(MapDocument& document, Selection& selection, FileCalls& files, double random,
                     const std::string& path, bool isUndo, UndoMark mark) {
  if (isUndo) {
    BringIntoFileForm(document, random);
    const FileStatus status = WriteUndoFile(document, selection, mark, files, path);
    WaypointsToMemory(document);
    return {.status = status, .findings = {}};
  }
  // On the heap: a document is half a megabyte.
  const auto documentBefore = std::make_unique<const MapDocument>(document);
  const Selection selectionBefore = selection;
  std::vector<std::byte> image(kMapFileSize);
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
