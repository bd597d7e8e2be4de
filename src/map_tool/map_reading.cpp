#include "map_tool/map_reading.h"

#include "map_tool/report.h"

namespace vesmora::map_tool {
namespace {

std::string ProblemOf(const LoadReport& report, const FileContents& file, bool isUndo) {
  if (report.status.failure == FileFailure::kMissing) return "not found";
  if (!report.status.Ok()) return "could not be read: " + report.status.reason;
  const bool isWrong =
      report.isCutShort || report.hasWrongSize || (isUndo && file.size > kUndoFileSize);
  if (!isWrong) return {};
  return std::string(isUndo ? "is no undo file" : "is no Soldat 1.0.5b map") + ": it has " +
         std::to_string(file.size) + " bytes instead of " +
         std::to_string(isUndo ? kUndoFileSize : kMapFileSize);
}

}  // namespace

ReadMap ReadMapFile(const FileContents& file, const std::string& name, bool isUndo,
                    MapDocument& document, Selection& selection) {
  Deselect(selection);
  if (isUndo) ZeroTables(document);
  const LoadReport report = TakeMapFile(document, selection, file, name, isUndo);
  return {.problem = ProblemOf(report, file, isUndo), .polygonCount = report.polygonCount};
}

Outcome Trouble(const std::string& name, const std::string& problem) {
  Outcome outcome{
      .status = kTrouble, .text = {}, .told = Printable(name) + ": " + problem + "\n", .bytes = {}};
  outcome.json["file"] = name;
  outcome.json["error"] = problem;
  return outcome;
}

}  // namespace vesmora::map_tool
