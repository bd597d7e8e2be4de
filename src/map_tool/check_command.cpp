#include "document/map_checks.h"
#include "document/number_text.h"
#include "launch/sector_compiler.h"
#include "map_tool/commands.h"
#include "map_tool/map_reading.h"
#include "map_tool/object_json.h"
#include "map_tool/report.h"

namespace vesmora::map_tool {
namespace {

Json FindingJson(const Finding& finding) {
  Json json = Json::object();
  json["check"] = finding.check;
  json["severity"] = finding.severity == Severity::kError ? "error" : "hint";
  json["object"] = ObjectJson(finding.object);
  json["place"] = PlaceJson(finding.place);
  json["text"] = finding.text;
  return json;
}

std::string FindingText(const Finding& finding, const std::string& name, bool colors) {
  const bool isError = finding.severity == Severity::kError;
  std::string text =
      name + ": " +
      Tinted(isError ? "error" : "hint", isError ? Tint::kError : Tint::kHint, colors) + ": " +
      Describe(finding.object);
  if (finding.place) text += " at " + PlaceText(*finding.place);
  return text + ": " + finding.text + " " +
         Tinted("[" + std::string(finding.check) + "]", Tint::kFaint, colors) + "\n";
}

/// What compiling a map would leave out of its sectors, told before it is done. Moves the map.
void ForetellShortage(MapDocument& document, std::vector<Finding>& findings) {
  if (IsCompiled(document) || !WhyNotCompiled(document).empty()) return;
  DivideMap(document, true);
  const SectorShortage shortage = CompareSectors(document).shortage;  // filling takes much longer
  const auto tell = [&](int polygons, std::string_view check, const std::string& what) {
    if (polygons == 0) return;
    findings.push_back({.check = check,
                        .severity = Severity::kHint,
                        .object = {},
                        .place = std::nullopt,
                        .text = Counted(static_cast<std::size_t>(polygons), "polygon", "polygons") +
                                " will " + what + " when it is compiled"});
  };
  tell(shortage.crowded, "sectors-crowded", "not fit in full sectors");
  tell(shortage.outside, "sectors-outside", "reach out of the sectors");
}

}  // namespace

Outcome CheckOne(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  const ReadMap read = ReadMapFile(task.file, name, false, bench.document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  std::vector<Finding> findings =
      CheckMap({.document = bench.document, .fileName = name, .polygonCount = read.polygonCount},
               bench.scratch);
  if (task.arguments.hints) {
    ForetellShortage(bench.document, findings);
  } else {
    std::erase_if(findings,
                  [](const Finding& finding) { return finding.severity == Severity::kHint; });
  }
  Outcome outcome;
  outcome.status = findings.empty() ? kSuccess : kFound;
  if (task.arguments.json) {
    outcome.json["file"] = name;
    Json& list = outcome.json["findings"] = Json::array();
    for (const Finding& finding : findings) list.push_back(FindingJson(finding));
    return outcome;
  }
  const std::string shown = Tinted(Printable(name), Tint::kName, task.colors);
  for (const Finding& finding : findings) {
    outcome.text += FindingText(finding, shown, task.colors);
  }
  return outcome;
}

}  // namespace vesmora::map_tool
