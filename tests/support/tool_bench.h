// The tools in a window of 1000 x 700 pixels: mouse events go in at world positions,
// and what they ask of window and user comes out as one list.
#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/map_workbench.h"
#include "tools/editing.h"
#include "tools/mouse_dispatch.h"

namespace vesmora {

struct ToolBench {
  EventLog events;
  ScriptedDialogs dialogs{events};
  FakeWindow display{events};
  ScratchFolder folder;
  const std::unique_ptr<EditingState> holder = std::make_unique<EditingState>();
  EditingState& state = *holder;
  MapDocument& map = state.document;
  Selection& selection = state.selection;
  const EditingPorts ports{SystemFileCalls(), dialogs, display, [] { return 0.5; }};
  const Editing editing{state, ports};

  /// A new map whose middle, world 0, 0, is pixel 400, 300.
  ToolBench() {
    state.view.area = {1000, 700, 200, 100, 40};
    state.journal.folder = folder.Path();
    ResetToNewMap(map);
    StoreAuthor(map);  // these two as every snapshot leaves them
    map.randomId = 501;
  }
  ToolBench(const ToolBench&) = delete;
  ToolBench& operator=(const ToolBench&) = delete;

  /// The event at a world position. Exact for positions of a few binary digits.
  MouseInput At(float x, float y, MouseButton button = MouseButton::kLeft) const {
    const ViewTransform& view = state.view;
    return {.button = button,
            .x = (x - view.centerX) * view.zoom + 400,
            .y = (y - view.centerY) * view.zoom + 300};
  }
  void Press(float x, float y, MouseButton button = MouseButton::kLeft) {
    PressMouse(editing, At(x, y, button));
  }
  void Move(float x, float y) { MoveMouse(editing, At(x, y, MouseButton::kNone)); }
  void Release(MouseButton button = MouseButton::kLeft) {
    ReleaseMouse(editing, {button, state.view.lastMouseX, state.view.lastMouseY});
  }
  /// As a hand does it: goes there, presses, lets go.
  void Click(float x, float y) { Drag(x, y, x, y); }
  void Drag(float fromX, float fromY, float toX, float toY) {
    Move(fromX, fromY);
    Press(fromX, fromY);
    if (fromX != toX || fromY != toY) Move(toX, toY);
    Release();
  }

  /// Everything that is listed, in order: "v0.2" corners, "s1" spawns, "o1" sceneries,
  /// "c1" colliders, "w1" waypoints.
  std::string Listed() const {
    std::string text;
    for (const auto& [polygon, corner] : selection.vertices.Items()) {
      text += " v" + std::to_string(polygon) + "." + std::to_string(corner);
    }
    const auto add = [&text](const char* kind, const auto& list) {
      for (const auto index : list.Items()) text += kind + std::to_string(index);
    };
    add(" s", selection.spawns);
    add(" o", selection.sceneries);
    add(" c", selection.colliders);
    add(" w", selection.waypoints);
    return text.empty() ? "" : text.substr(1);
  }

  /// Names of the undo steps, oldest first.
  std::vector<std::string> Steps() const {
    std::vector<std::string> names;
    const UndoJournal& journal = state.journal;
    for (int back = journal.undoAvailable; back >= 0; --back) {
      const int slot = (journal.undoSlot - back + kUndoSteps) % kUndoSteps;
      names.push_back(journal.undoActions[static_cast<std::size_t>(slot)]);
    }
    return names;
  }
  /// The document that undoing the newest step would bring back.
  DocumentState BeforeNewestStep() {
    MapWorkbench other;
    other.document.fileName = map.fileName;
    other.document.author = map.author;
    EXPECT_EQ(LoadMap(other.Context(), state.journal.NewestFile(), true), LoadOutcome::kLoaded);
    return StateOf(other.document);
  }

  /// What was asked since the last time.
  EventLog TakeEvents() { return std::exchange(events, {}); }
  void ExpectRefusal(const std::string& text) {
    const Message message{text, "Problem", MessageIcon::kCritical};
    EXPECT_THAT(std::exchange(dialogs.messages, {}), testing::ElementsAre(message));
  }
};

}  // namespace vesmora
