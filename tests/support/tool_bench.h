// The tools in a window of 1000 x 700 pixels: mouse events go in at world positions,
// and what they ask of window and user comes out as one list.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/fake_display.h"
#include "support/map_workbench.h"
#include "support/scratch_folder.h"
#include "support/scripted_dialogs.h"
#include "tools/editing.h"
#include "view/input.h"

namespace vesmora {

struct ToolBench {
  EventLog events;
  ScriptedDialogs dialogs{events};
  FakeDisplay display{events};
  ScratchFolder folder;
  const std::unique_ptr<EditingState> holder = std::make_unique<EditingState>();
  EditingState& state = *holder;
  MapDocument& map = state.document;
  Selection& selection = state.selection;
  const EditingPorts ports{SystemFileCalls(), dialogs, display, [] { return 0.5; }};
  const Editing editing{state, ports};

  /// A new map whose middle, world 0, 0, is pixel 400, 300.
  ToolBench();
  ToolBench(const ToolBench&) = delete;
  ToolBench& operator=(const ToolBench&) = delete;

  /// The event at a world position. Exact for positions of a few binary digits.
  MouseInput At(float x, float y, MouseButton button = MouseButton::kLeft) const;

  void Press(float x, float y, MouseButton button = MouseButton::kLeft);
  void Move(float x, float y);
  void Release(MouseButton button = MouseButton::kLeft);
  /// As a hand does it: goes there, presses, lets go.
  void Click(float x, float y);
  void Drag(float fromX, float fromY, float toX, float toY);

  /// Everything that is listed, in order: "v0.2" corners, "s1" spawns, "o1" sceneries,
  /// "c1" colliders, "w1" waypoints.
  std::string Listed() const;

  /// Names of the undo steps, oldest first.
  std::vector<std::string> Steps() const;
  /// The document that undoing the newest step would bring back.
  DocumentState BeforeNewestStep();

  /// What was asked since the last time.
  EventLog TakeEvents();
  void ExpectRefusal(const std::string& text);
};

}  // namespace vesmora
