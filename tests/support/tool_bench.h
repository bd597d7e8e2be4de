// The tools in a window of 1000 x 700 pixels: mouse events go in at world positions,
// and what they ask of window and user comes out as one list.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "support/bench.h"
#include "tools/mouse_dispatch.h"

namespace vesmora {

struct ToolBench : Bench {
  /// A new map whose middle, world 0, 0, is pixel 400, 300.
  ToolBench() {
    editor.view.area = {1000, 700, 200, 100, 40};
    journal.folder = HoldUndoFolder(files, folder.Path());
    ResetToNewMap(map);
    StoreAuthor(map);  // these two as every snapshot leaves them
    map.randomId = 501;
  }

  /// The event at a world position. Exact for positions of a few binary digits.
  MouseInput At(float x, float y, MouseButton button = MouseButton::kLeft) const {
    const ViewTransform& view = editor.view;
    return {.button = button,
            .x = (x - view.centerX) * view.zoom + 400,
            .y = (y - view.centerY) * view.zoom + 300};
  }
  void Press(float x, float y, MouseButton button = MouseButton::kLeft) {
    PressMouse(editor, At(x, y, button));
  }
  void Move(float x, float y) { MoveMouse(editor, At(x, y, MouseButton::kNone)); }
  void Release(MouseButton button = MouseButton::kLeft) {
    ReleaseMouse(editor, {button, editor.view.lastMouseX, editor.view.lastMouseY});
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
    for (const auto& [polygon, corner] : selection.vertices.Used()) {
      text += " v" + std::to_string(polygon) + "." + std::to_string(corner);
    }
    const auto add = [&text](const char* kind, const auto& list) {
      for (const auto index : list.Used()) text += kind + std::to_string(index);
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
    for (int back = journal.undoAvailable; back >= 0; --back) {
      const int slot = (journal.undoSlot - back + kUndoSteps) % kUndoSteps;
      names.push_back(journal.undoActions[static_cast<std::size_t>(slot)]);
    }
    return names;
  }
  /// The document that undoing the newest step would bring back.
  DocumentState BeforeNewestStep() {
    Bench other;
    other.map.fileName = map.fileName;
    other.map.author = map.author;
    EXPECT_EQ(other.Load(journal.NewestFile(), false, true), LoadOutcome::kLoaded);
    return StateOf(other.map);
  }

  void ExpectRefusal(const std::string& text) {
    const Message message{text, "Problem", MessageIcon::kCritical};
    EXPECT_THAT(TakeMessages(), testing::ElementsAre(message));
  }
};

}  // namespace vesmora
