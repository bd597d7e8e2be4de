#include "support/panel_bench.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <utility>

#include "support/map_builder.h"
#include "tools/tool_change.h"

namespace vesmora {

PanelBench::PanelBench() { BuildMap(); }

void PanelBench::BuildMap() {
  map = {};
  // As a snapshot leaves them, so that it changes nothing.
  map.author = "Ann";
  map.randomId = 501;
  StoreAuthor(map);
  AddTriangle(map, {{{0, 0}, {40, 0}, {0, 40}}});
  AddTriangle(map, {{{100, 0}, {140, 0}, {100, 40}}});
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<float>(50 * i);
    const bool isFirst = i == 0;
    AddSpawn(map, at, 100, isFirst ? 0 : 1);
    AddScenery(map, at, 150, isFirst ? 1 : 17).level = isFirst ? 255 : 200;
    AddCollider(map, at, 200, isFirst ? 12 : 20.5f);
    AddWaypoint(map, at, 250, isFirst ? 1 : 2).botSettings = {1, 0, isFirst, !isFirst, 0};
  }
}

void PanelBench::Select(const std::string& listed) {
  ClearLists(selection);
  std::istringstream entries(listed);
  for (char kind = 0; entries >> kind;) {
    int index = 0;
    entries >> index;
    const auto byte = static_cast<std::uint8_t>(index);
    switch (kind) {
      case 'v': {
        char dot = 0;
        int corner = 0;
        entries >> dot >> corner;
        selection.vertices.Add(
            {static_cast<std::int16_t>(index), static_cast<std::uint8_t>(corner)});
        break;
      }
      case 's':
        selection.spawns.Add(byte);
        break;
      case 'o':
        selection.sceneries.Add(byte);
        break;
      case 'c':
        selection.colliders.Add(byte);
        break;
      case 'w':
        selection.waypoints.Add(static_cast<std::int16_t>(index));
        break;
      default:
        ADD_FAILURE() << "no kind " << kind;
    }
  }
  UpdateSelectionBox(selection, map);
}

void PanelBench::Show(ToolMode tool, const std::string& listed) {
  map.toolIndex = tool;
  Select(listed);
  RefreshInfoPanel(context);
}

void PanelBench::Choose(ToolMode tool) {
  ChangeTool(panelEditing_, tool);
  TakeEvents();
}

EventLog PanelBench::TakeEvents() {
  NoteStep();
  return ToolBench::TakeEvents();
}

void PanelBench::Expect(const Act& act, const EventLog& asked, const Change& change) {
  const DocumentState before = StateOf(map);
  const auto expected = std::make_unique<MapDocument>(map);
  if (change) change(*expected);
  drawn = StateOf(*expected);
  TakeEvents();
  act(context);
  const EventLog happened = TakeEvents();
  EXPECT_EQ(happened, asked);
  EXPECT_TRUE(StateOf(map) == StateOf(*expected)) << "the map is not as it should be";
  EXPECT_TRUE(drawn == StateOf(*expected)) << "drawn too early";
  EXPECT_FALSE(panel.panelRefreshing);
  if (std::ranges::any_of(happened, [](const auto& event) { return event.starts_with("Step"); })) {
    EXPECT_TRUE(BeforeNewestStep() == before) << "undoing does not bring back what was";
  }
}

void PanelBench::NoteStep() {
  if (state.journal.undoSlot == notedSlot_) return;
  notedSlot_ = state.journal.undoSlot;
  events.push_back("Step " + state.journal.NewestAction());
}

void PanelBench::Watch::Show(const Message& message) {
  bench.NoteStep();
  bench.dialogs.Show(message);
}

bool PanelBench::Watch::Ask(const Message& message) {
  bench.NoteStep();
  return bench.dialogs.Ask(message);
}

std::string PanelBench::Watch::ChooseFileToOpen(const FileRequest& request) {
  return bench.dialogs.ChooseFileToOpen(request);
}

std::string PanelBench::Watch::ChooseFileToSave(const FileRequest& request) {
  return bench.dialogs.ChooseFileToSave(request);
}

std::string PanelBench::Watch::AskText(const TextRequest& request) {
  return bench.dialogs.AskText(request);
}

std::optional<std::int32_t> PanelBench::Watch::ChooseColor(std::int32_t initial) {
  bench.NoteStep();
  return bench.dialogs.ChooseColor(initial);
}

void PanelBench::Watch::RedrawMap() {
  bench.NoteStep();
  bench.drawn = StateOf(bench.map);
  bench.drawnUnderGuard = bench.panel.panelRefreshing;
  bench.display.RedrawMap();
}

void PanelBench::Watch::RefreshInfoPanel() {
  bench.NoteStep();
  bench.display.RefreshInfoPanel();
  vesmora::RefreshInfoPanel(bench.context);
  if (bench.onRefresh) bench.onRefresh();
}

void PanelBench::Watch::SetPointer(PointerShape shape) {
  bench.NoteStep();
  bench.display.SetPointer(shape);
}

}  // namespace vesmora
