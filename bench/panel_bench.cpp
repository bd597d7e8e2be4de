// Recomputing the panel with everything selected against one look at each listed record.
#include <benchmark/benchmark.h>

#include <memory>
#include <stdexcept>

#include "interleaved.h"
#include "open_document.h"
#include "panel/panel_contents.h"

namespace vesmora::bench {
namespace {

/// Objects that are all alike are compared to the last one.
enum class Objects { kAsTheyAre, kAlike };

template <typename Table, typename List>
void ListAll(Table& table, int last, List& list, Objects objects) {
  for (int i = 0; i <= last; ++i) {
    if (objects == Objects::kAlike) table[static_cast<std::size_t>(i)] = table[0];
    list.Add(static_cast<std::remove_cvref_t<decltype(list.entries[0])>>(i));
  }
}

std::unique_ptr<EditingState> EverythingSelected(Objects objects) {
  const auto opened = std::make_unique<OpenDocument>();
  if (!opened->Load(MapPath("full.pmp"))) throw std::runtime_error("the map does not load");
  auto state = std::make_unique<EditingState>();
  MapDocument& document = state->document;
  Selection& selection = state->selection;
  document = opened->document;
  for (std::int16_t i = 0; i <= document.lastPolygon; ++i) {
    const auto polygon = static_cast<std::size_t>(i);
    if (objects == Objects::kAlike) document.normals[polygon] = document.normals[0];
    for (std::uint8_t corner = 0; corner < 3; ++corner) {
      if (objects == Objects::kAlike) document.polygons[polygon].vertices[corner].color = {};
      selection.vertices.Add({i, corner});
    }
  }
  ListAll(document.spawns, document.lastSpawn, selection.spawns, objects);
  ListAll(document.sceneries, document.lastScenery, selection.sceneries, objects);
  ListAll(document.colliders, document.lastCollider, selection.colliders, objects);
  ListAll(document.waypoints, document.lastWaypoint, selection.waypoints, objects);
  return state;
}

template <typename Table, typename List, typename Value>
void LookAt(const Table& table, const List& list, Value value) {
  std::uint32_t seen = 0;
  for (const auto index : list.Items()) {
    seen += static_cast<std::uint32_t>(value(table[static_cast<std::size_t>(index)]));
  }
  benchmark::DoNotOptimize(seen);
}

void LookAtEverything(const EditingState& state) {
  const MapDocument& document = state.document;
  std::uint32_t seen = 0;
  for (const VertexReference& vertex : state.selection.vertices.Items()) {
    const auto polygon = static_cast<std::size_t>(vertex.polygon);
    seen += document.polygons[polygon].vertices[vertex.corner].color.red;
    if (document.normals[polygon].edges[vertex.corner].x == 0) ++seen;
  }
  benchmark::DoNotOptimize(seen);
  LookAt(document.spawns, state.selection.spawns, [](const auto& spawn) { return spawn.team; });
  LookAt(document.sceneries, state.selection.sceneries,
         [](const auto& scenery) { return scenery.type; });
  LookAt(document.colliders, state.selection.colliders,
         [](const auto& collider) { return collider.active; });
  LookAt(document.waypoints, state.selection.waypoints,
         [](const auto& waypoint) { return waypoint.path; });
}

void RefreshFullSelection(benchmark::State& state, Objects objects) {
  const auto editing = EverythingSelected(objects);
  PanelContents panel;
  RunAgainstFloor(
      state, Clock::kThread, [&] { LookAtEverything(*editing); },
      [&] { RefreshPanel(panel, *editing); });
}

}  // namespace

BENCHMARK_CAPTURE(RefreshFullSelection, mixed, Objects::kAsTheyAre)->UseManualTime();
BENCHMARK_CAPTURE(RefreshFullSelection, alike, Objects::kAlike)->UseManualTime();

}  // namespace vesmora::bench
