// The commands whose result is a map or a prefab.
#include "launch/sector_compiler.h"
#include "map_tool/commands.h"
#include "map_tool/map_reading.h"
#include "map_tool/report.h"
#include "tools/move_selection.h"

namespace vesmora::map_tool {
namespace {

/// Notes something that a person should know of a result that is written all the same.
void Warn(Outcome& outcome, const std::string& name, const std::string& text) {
  outcome.status = kFound;
  outcome.told += Printable(name) + ": " + text + "\n";
  outcome.json["warnings"].push_back(text);
}

Outcome StartOutcome(const Task& task, const ReadMap& read, const MapDocument& document) {
  Outcome outcome;
  outcome.json["file"] = task.input.name;
  outcome.json["output"] = task.target;
  outcome.json["warnings"] = Json::array();
  const int used = document.polygons.Count();
  if (task.arguments.command != Command::kRescue && used != read.polygonCount) {
    Warn(outcome, task.input.name,
         "is damaged: it names " + std::to_string(read.polygonCount) + " polygons, " +
             std::to_string(used) + " are used");
  }
  return outcome;
}

void Compile(const Task& task, MapDocument& document, Outcome& outcome) {
  const SectorShortage shortage = CompileMap(document, false);
  const std::string& name = task.input.name;
  if (shortage.outside > 0) {
    Warn(outcome, name, std::to_string(shortage.outside) + " polygons reach out of the sectors");
  }
  if (shortage.crowded > 0) {
    Warn(outcome, name,
         std::to_string(shortage.crowded) + " polygons were left out of full sectors");
  }
}

void PutPrefab(const Task& task, MapDocument& document, Outcome& outcome) {
  const int polygons = document.polygons.Count();
  const int sceneries = document.sceneries.Count();
  const int colliders = document.colliders.Count();
  if (!AppendPrefab(document, *task.prefab)) {
    Warn(outcome, task.input.name, "some of the prefab's objects had no room");
  }
  if (!task.arguments.at) return;
  Selection added;
  ListFrom(polygons, document.polygons, added.vertices);
  ListFrom(sceneries, document.sceneries, added.sceneries);
  ListFrom(colliders, document.colliders, added.colliders);
  if (added.Empty()) return;
  UpdateSelectionBox(added, document);
  const WorldPoint center = added.box.Center();
  ShiftSelected(document, added, {task.arguments.at->x - center.x, task.arguments.at->y - center.y},
                false);
}

}  // namespace

Outcome MakeMap(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  const Command command = task.arguments.command;
  MapDocument& document = bench.document;
  const ReadMap read =
      ReadMapFile(task.file, name, command == Command::kRescue, document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  Outcome outcome = StartOutcome(task, read, document);
  if (command == Command::kCompile) {
    if (const std::string reason = WhyNotCompiled(document); !reason.empty()) {
      return Trouble(name, reason);
    }
    Compile(task, document, outcome);
  }
  if (command == Command::kPrefabImport) PutPrefab(task, document, outcome);
  outcome.bytes.resize(kMapFileSize);
  MakeMapFile(document, bench.selection, task.random, outcome.bytes);
  return outcome;
}

Outcome ExportPrefab(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  const ReadMap read = ReadMapFile(task.file, name, false, bench.document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  Outcome outcome = StartOutcome(task, read, bench.document);
  outcome.bytes = WritePrefab(bench.document);
  return outcome;
}

}  // namespace vesmora::map_tool
