// The property panel without its widgets, over a small map: a refresh recomputes the
// contents, and the event log also holds the undo steps in their place ("Step Type").
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>

#include "panel/panel_state.h"
#include "support/map_builder.h"
#include "support/tool_bench.h"
#include "tools/tool_change.h"

namespace vesmora {

using Act = std::function<void(const PanelContext&)>;
using Change = std::function<void(MapDocument&)>;

/// A handler that takes something besides the context, with it.
template <typename Handler, typename... Arguments>
Act With(Handler handler, Arguments... arguments) {
  return [=](const PanelContext& context) { handler(context, arguments...); };
}

class PanelBench : public ToolBench {
 public:
  PanelState panel;
  PanelContents& shown = panel.contents;
  const PanelContext context{editing, panel};
  DocumentState drawn;           // the map at the last redraw
  bool drawnUnderGuard = false;  // panelRefreshing at the last redraw

  /// Two triangles, and three of every other kind: the second and third are alike, the
  /// first is not.
  PanelBench() {
    dialogs.before = display.before = [this] { NoteStep(); };
    display.onRedraw = [this] {
      drawn = StateOf(map);
      drawnUnderGuard = panel.panelRefreshing;
    };
    display.onRefresh = [this] { RefreshInfoPanel(context); };
    map = {};
    // As a snapshot leaves them, so that it changes nothing.
    map.author = "Ann";
    map.randomId = 501;
    StoreAuthor(map);
    for (const float x : {0.0f, 100.0f}) AddTriangle(map, {{{x, 0}, {x + 40, 0}, {x, 40}}});
    for (const float x : {0.0f, 50.0f, 100.0f}) {
      const bool isFirst = x == 0;
      AddSpawn(map, x, 100, isFirst ? 0 : 1);
      AddScenery(map, x, 150, isFirst ? 1 : 17).level = isFirst ? 255 : 200;
      AddCollider(map, x, 200, isFirst ? 12 : 20.5f);
      AddWaypoint(map, x, 250, isFirst ? 1 : 2).botSettings = {1, 0, isFirst, !isFirst, 0};
    }
  }

  /// Lists objects by what ToolBench::Listed calls them and recomputes the panel.
  void Show(ToolMode tool, const std::string& listed = "") {
    map.toolIndex = tool;
    ClearLists(selection);
    std::istringstream entries(listed);
    int index = 0;
    int corner = 0;
    for (char kind = 0; entries >> kind >> index;) {
      if (kind == 'v') entries >> kind >> corner;  // the dot
      const auto slot = static_cast<std::int16_t>(index);
      const auto byte = static_cast<std::uint8_t>(index);
      if (kind == '.') selection.vertices.Add({slot, static_cast<std::uint8_t>(corner)});
      if (kind == 's') selection.spawns.Add(byte);
      if (kind == 'o') selection.sceneries.Add(byte);
      if (kind == 'c') selection.colliders.Add(byte);
      if (kind == 'w') selection.waypoints.Add(slot);
    }
    EXPECT_EQ(Listed(), listed);
    UpdateSelectionBox(selection, map);
    RefreshInfoPanel(context);
  }
  /// Chooses the tool as a user does.
  void Choose(ToolMode tool) {
    ChangeTool(editing, tool);
    TakeAsked();
  }
  /// What was asked since the last time: "Step Type, RedrawMap".
  std::string TakeAsked() {
    NoteStep();
    std::string asked;
    for (const std::string& event : TakeEvents()) asked += (asked.empty() ? "" : ", ") + event;
    return asked;
  }
  /// Runs a handler that must ask for exactly `asked` and change the map just so, the change
  /// being there when the map is redrawn and the undo step bringing back what was before.
  void Expect(const Act& act, const std::string& asked, const Change& change = {}) {
    const DocumentState before = StateOf(map);
    const auto expected = std::make_unique<MapDocument>(map);
    if (change) change(*expected);
    drawn = StateOf(*expected);
    TakeAsked();
    act(context);
    EXPECT_EQ(TakeAsked(), asked);
    EXPECT_TRUE(StateOf(map) == StateOf(*expected)) << "the map is not as it should be";
    EXPECT_TRUE(drawn == StateOf(*expected)) << "drawn too early";
    EXPECT_FALSE(panel.panelRefreshing);
    if (asked.find("Step") != std::string::npos) {
      EXPECT_TRUE(BeforeNewestStep() == before) << "undoing does not bring back what was";
    }
  }

 private:
  void NoteStep() {
    if (state.journal.undoSlot == notedSlot_) return;
    notedSlot_ = state.journal.undoSlot;
    events.push_back("Step " + state.journal.NewestAction());
  }

  std::int16_t notedSlot_ = state.journal.undoSlot;
};

}  // namespace vesmora
