// Recomputing the panel with everything selected against one look at each listed record.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>

#include "interleaved.h"
#include "open_document.h"
#include "panel/refresh_panel.h"

namespace vesmora::bench {
namespace {

/// Objects that are all alike are compared to the last one.
enum class Objects { kAsTheyAre, kAlike };

std::unique_ptr<OpenDocument> EverythingSelected(Objects objects) {
  auto opened = Opened(MapPath("full.pmp"));
  MapDocument& document = opened->document;
  if (objects == Objects::kAlike) {
    for (PolygonVertex& vertex : document.polygons[0].vertices) vertex.color = {};
    VisitTables(document, [](auto& table) { std::ranges::fill(table.Used(), table[0]); });
  }
  VisitLists(document, opened->selection,
             [](const auto& table, auto& list) { ListFrom(0, table, list); });
  return opened;
}

template <typename TableType, typename List, typename Value>
void LookAt(const TableType& table, const List& list, Value value) {
  std::uint32_t seen = 0;
  for (const auto index : list.Used()) {
    seen += static_cast<std::uint32_t>(value(table[index]));
  }
  benchmark::DoNotOptimize(seen);
}

void LookAtEverything(const Editing& editing) {
  const MapDocument& document = editing.document;
  const Selection& selection = editing.selection;
  std::uint32_t seen = 0;
  for (const VertexReference& vertex : selection.vertices.Used()) {
    const Polygon& polygon = document.polygons[vertex.polygon];
    seen += polygon.vertices[vertex.corner].color.red;
    if (polygon.edges[vertex.corner].x == 0) ++seen;
  }
  benchmark::DoNotOptimize(seen);
  LookAt(document.spawns, selection.spawns, [](const auto& spawn) { return spawn.team; });
  LookAt(document.sceneries, selection.sceneries, [](const auto& scenery) { return scenery.type; });
  LookAt(document.colliders, selection.colliders,
         [](const auto& collider) { return collider.active; });
  LookAt(document.waypoints, selection.waypoints,
         [](const auto& waypoint) { return waypoint.path; });
}

void RefreshFullSelection(benchmark::State& state, Objects objects) {
  const auto opened = EverythingSelected(objects);
  PanelContents panel;
  RunAgainstFloor(
      state, Clock::kThread, [&] { LookAtEverything(*opened); },
      [&] { RefreshPanel(panel, *opened); });
}

}  // namespace

BENCHMARK_CAPTURE(RefreshFullSelection, mixed, Objects::kAsTheyAre)->UseManualTime();
BENCHMARK_CAPTURE(RefreshFullSelection, alike, Objects::kAlike)->UseManualTime();

}  // namespace vesmora::bench
