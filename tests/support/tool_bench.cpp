#include "support/tool_bench.h"

#include <gmock/gmock.h>

#include <utility>

#include "tools/mouse_dispatch.h"

namespace vesmora {

ToolBench::ToolBench() {
  state.view.area = {.width = 1000,
                     .height = 700,
                     .rightPanelWidth = 200,
                     .bottomPanelHeight = 100,
                     .topPanelHeight = 40};
  state.journal.folder = folder.Path();
  ResetToNewMap(map);
  StoreAuthor(map);  // these two as every snapshot leaves them
  map.randomId = 501;
}

MouseInput ToolBench::At(float x, float y, MouseButton button) const {
  const ViewTransform& view = state.view;
  return {.button = button,
          .x = (x - view.centerX) * view.zoom + 400,
          .y = (y - view.centerY) * view.zoom + 300};
}

void ToolBench::Press(float x, float y, MouseButton button) {
  PressMouse(editing, At(x, y, button));
}

void ToolBench::Move(float x, float y) { MoveMouse(editing, At(x, y, MouseButton::kNone)); }

void ToolBench::Release(MouseButton button) {
  ReleaseMouse(editing, {.button = button, .x = state.view.lastMouseX, .y = state.view.lastMouseY});
}

void ToolBench::Click(float x, float y) {
  Move(x, y);
  Press(x, y);
  Release();
}

void ToolBench::Drag(float fromX, float fromY, float toX, float toY) {
  Move(fromX, fromY);
  Press(fromX, fromY);
  Move(toX, toY);
  Release();
}

std::string ToolBench::Listed() const {
  std::string text;
  const auto add = [&text](const std::string& entry) { text += (text.empty() ? "" : " ") + entry; };
  for (const VertexReference vertex : selection.vertices.Items()) {
    add("v" + std::to_string(vertex.polygon) + "." + std::to_string(vertex.corner));
  }
  for (const auto index : selection.spawns.Items()) add("s" + std::to_string(index));
  for (const auto index : selection.sceneries.Items()) add("o" + std::to_string(index));
  for (const auto index : selection.colliders.Items()) add("c" + std::to_string(index));
  for (const auto index : selection.waypoints.Items()) add("w" + std::to_string(index));
  return text;
}

std::vector<std::string> ToolBench::Steps() const {
  std::vector<std::string> names;
  const UndoJournal& journal = state.journal;
  for (int back = journal.undoAvailable; back >= 0; --back) {
    const int slot = (journal.undoSlot - back + kUndoSteps) % kUndoSteps;
    names.push_back(journal.undoActions[static_cast<std::size_t>(slot)]);
  }
  return names;
}

DocumentState ToolBench::BeforeNewestStep() {
  MapWorkbench other;
  other.document.fileName = map.fileName;
  other.document.author = map.author;
  EXPECT_EQ(LoadMap(other.Context(), state.journal.NewestFile(), true), LoadOutcome::kLoaded);
  return StateOf(other.document);
}

EventLog ToolBench::TakeEvents() { return std::exchange(events, {}); }

void ToolBench::ExpectRefusal(const std::string& text) {
  EXPECT_THAT(dialogs.messages,
              testing::ElementsAre(Message{text, "Problem", MessageIcon::kCritical}));
  dialogs.messages.clear();
}

}  // namespace vesmora
