#include "document/map_diff.h"
#include "map_tool/commands.h"
#include "map_tool/map_reading.h"
#include "map_tool/object_json.h"
#include "map_tool/report.h"

namespace vesmora::map_tool {
namespace {

Json DifferenceJson(const Difference& difference) {
  Json json = Json::object();
  json["change"] = NameOf(difference.kind);
  json["before"] = ObjectJson(difference.before);
  json["after"] = ObjectJson(difference.after);
  json["place"] = PlaceJson(difference.place);
  json["text"] = difference.text;
  return json;
}

/// "polygon 12, now 11 at 10,20: moved from ..."
std::string DifferenceText(const Difference& difference, bool colors) {
  const bool isThere = difference.before.slot >= 0;
  std::string text = Describe(isThere ? difference.before : difference.after);
  if (isThere && difference.after.slot >= 0 && difference.after.slot != difference.before.slot) {
    text += ", now " + std::to_string(difference.after.slot + 1);
  }
  if (difference.place) text += " at " + PlaceText(*difference.place);
  const bool isLoss = difference.kind == DifferenceKind::kRemoved;
  text += ": " + Tinted(NameOf(difference.kind), isLoss ? Tint::kError : Tint::kHint, colors);
  return text + (difference.text.empty() ? "" : " ") + Printable(difference.text) + "\n";
}

}  // namespace

Outcome DiffTwo(const Task& task, const Input& secondInput, const FileContents& second,
                Workbench& bench) {
  Selection ignored;
  for (const auto& [input, file, document] : {std::tuple{&task.input, &task.file, &bench.document},
                                              std::tuple{&secondInput, &second, &bench.scratch}}) {
    const ReadMap read = ReadMapFile(*file, input->name, false, *document, ignored);
    if (!read.problem.empty()) return Trouble(input->name, read.problem);
  }
  const auto differences = CompareMaps(bench.document, bench.scratch);
  Outcome outcome;
  outcome.status = differences.empty() ? kSuccess : kFound;
  outcome.json["before"] = task.input.name;
  outcome.json["after"] = secondInput.name;
  Json& list = outcome.json["differences"] = Json::array();
  for (const Difference& difference : differences) {
    if (task.arguments.json) list.push_back(DifferenceJson(difference));
    outcome.text += DifferenceText(difference, task.colors);
  }
  return outcome;
}

}  // namespace vesmora::map_tool
