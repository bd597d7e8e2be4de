#include <algorithm>

#include "document/extent.h"
#include "document/number_text.h"
#include "document/object_reference.h"
#include "document/record_changes.h"
#include "document/sector_grid.h"
#include "document/selection.h"
#include "document/value_checks.h"
#include "map_tool/commands.h"
#include "map_tool/map_reading.h"
#include "map_tool/report.h"
#include "platform/single_byte_text.h"

namespace vesmora::map_tool {
namespace {

std::string TextureOf(const MapDocument& document) {
  const TextureName& name = document.texture;
  return ToUtf8(std::string(name.begin(), std::ranges::find(name, '\0')));
}

struct Bounds {
  Extent x;
  Extent y;
};

/// Of all places of objects that the game can reach.
Bounds BoundsOfMap(const MapDocument& document) {
  Bounds bounds;
  const auto include = [&](WorldPoint place) {
    if (!IsWithinReach(place)) return;
    bounds.x.Include(place.x);
    bounds.y.Include(place.y);
  };
  for (const Polygon& polygon : document.polygons.Used()) {
    for (const PolygonVertex& corner : polygon.vertices) include(PlaceOf(corner));
  }
  for (const SpawnPoint& spawn : document.spawns.Used()) include(PlaceOf(spawn));
  for (const SceneryObject& scenery : document.sceneries.Used()) include(PlaceOf(scenery));
  for (const Collider& collider : document.colliders.Used()) include(PlaceOf(collider));
  for (const Waypoint& waypoint : document.waypoints.Used()) include(PlaceOf(waypoint));
  return bounds;
}

Json ColorJson(MapColor color) {
  return {{"red", color.red}, {"green", color.green}, {"blue", color.blue}, {"alpha", color.alpha}};
}

Json InfoJson(const MapDocument& document, const std::string& name) {
  Json json = Json::object();
  json["file"] = name;
  json["author"] = ToUtf8(document.author);
  json["texture"] = TextureOf(document);
  json["background"] = {ColorJson(document.backgroundColor1), ColorJson(document.backgroundColor2)};
  json["counts"] = {{"polygons", document.polygons.Count()},
                    {"spawns", document.spawns.Count()},
                    {"sceneries", document.sceneries.Count()},
                    {"colliders", document.colliders.Count()},
                    {"waypoints", document.waypoints.Count()}};
  const auto [x, y] = BoundsOfMap(document);
  if (x.Empty()) {
    json["extent"] = nullptr;
  } else {
    json["extent"] = {{"left", x.low}, {"top", y.low}, {"right", x.high}, {"bottom", y.high}};
  }
  json["sectorSize"] = document.sectorDivision;
  json["compiled"] = IsCompiled(document);
  return json;
}

std::string Line(const std::string& name, const std::string& value) {
  constexpr std::size_t kColumn = 12;
  return "  " + name + std::string(kColumn - std::min(name.size(), kColumn), ' ') + value + "\n";
}

template <typename TableType>
std::string CountLine(const std::string& name, const TableType& table) {
  return Line(name, std::to_string(table.Count()) + " of " + std::to_string(TableType::kCapacity));
}

std::string ExtentText(const MapDocument& document) {
  const auto [x, y] = BoundsOfMap(document);
  if (x.Empty()) return "nothing";
  return PlaceText({x.low, y.low}) + " to " + PlaceText({x.high, y.high}) + ", " +
         NumberText(x.high - x.low) + " x " + NumberText(y.high - y.low);
}

std::string InfoText(const MapDocument& document, const std::string& name) {
  return name + "\n" + Line("author", Printable(ToUtf8(document.author))) +
         Line("texture", Printable(TextureOf(document))) +
         Line("background", ColorText(document.backgroundColor1) + " to " +
                                ColorText(document.backgroundColor2)) +
         CountLine("polygons", document.polygons) + CountLine("spawns", document.spawns) +
         CountLine("sceneries", document.sceneries) + CountLine("colliders", document.colliders) +
         CountLine("waypoints", document.waypoints) + Line("extent", ExtentText(document)) +
         Line("sectors", "of " + std::to_string(document.sectorDivision) +
                             (IsCompiled(document) ? ", compiled" : ", not compiled"));
}

}  // namespace

Outcome TellInfo(const Task& task, Workbench& bench) {
  const std::string& name = task.input.name;
  MapDocument& document = bench.document;
  const ReadMap read = ReadMapFile(task.file, name, false, document, bench.selection);
  if (!read.problem.empty()) return Trouble(name, read.problem);
  Outcome outcome;
  if (task.arguments.json) {
    outcome.json = InfoJson(document, name);
  } else {
    outcome.text = InfoText(document, Tinted(Printable(name), Tint::kName, task.colors));
  }
  return outcome;
}

}  // namespace vesmora::map_tool
