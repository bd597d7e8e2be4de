// The property panel without its widgets, over a small map: as in the window, its contents are
// recomputed at the end. The event log also holds the undo steps in their place ("Step Type").
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "panel/panel_editing.h"
#include "panel/refresh_panel.h"
#include "support/bench.h"
#include "support/map_builder.h"

namespace vesmora {

using Act = std::function<void(PanelEditing&)>;

/// A handler that takes something besides the editor, with it.
template <typename Handler, typename... Arguments>
Act With(Handler handler, Arguments... arguments) {
  return [=](PanelEditing& editing) { handler(editing, arguments...); };
}

class PanelBench : public Bench {
 public:
  PanelContents& shown = editor.panel.contents;

  /// Two triangles, and three of every other kind: the second and third are alike, the
  /// first is not.
  PanelBench() {
    dialogs.before = window.before = [this] { NoteStep(); };
    window.onRefresh = [this] { isStale_ = true; };
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

  /// Lists objects by what Bench::Listed calls them and recomputes the panel.
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
      if (kind == '.') selection.vertices.Append({slot, static_cast<std::uint8_t>(corner)});
      if (kind == 's') selection.spawns.Append(byte);
      if (kind == 'o') selection.sceneries.Append(byte);
      if (kind == 'c') selection.colliders.Append(byte);
      if (kind == 'w') selection.waypoints.Append(slot);
    }
    EXPECT_EQ(Listed(), listed);
    UpdateSelectionBox(selection, map);
    RefreshPanel(shown, editor);
  }
  /// Brings up to date what is out of date.
  void BringUpToDate() {
    if (std::exchange(isStale_, false)) RefreshPanel(shown, editor);
  }
  /// Chooses the tool as a user does.
  void Choose(ToolMode tool) {
    ChooseTool(editor, tool);
    BringUpToDate();
    TakeAsked();
  }
  /// Runs a handler as a user's click does.
  void Handle(const Act& act) {
    RunHandler(editor, act);
    BringUpToDate();
  }
  /// What was asked since the last time: "Step Type, RedrawMap".
  std::string TakeAsked() {
    NoteStep();
    std::string asked;
    for (const std::string& event : TakeEvents()) asked += (asked.empty() ? "" : ", ") + event;
    return asked;
  }

 private:
  void NoteStep() {
    if (editor.journal.undoSlot == notedSlot_) return;
    notedSlot_ = editor.journal.undoSlot;
    events.push_back("Step " + editor.journal.NewestAction());
  }

  bool isStale_ = false;
  std::int16_t notedSlot_ = editor.journal.undoSlot;
};

}  // namespace vesmora
