// The property panel without its widgets, over a small map: a refresh recomputes the
// contents, and the event log also holds the undo steps in their place ("Step Type").
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "panel/panel_state.h"
#include "support/tool_bench.h"

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
  PanelBench();

  PanelState panel;
  PanelContents& shown = panel.contents;
  std::function<void()> onRefresh;     // what a window does after the recomputing
  std::optional<DocumentState> drawn;  // the map at the last redraw
  bool drawnUnderGuard = false;        // panelRefreshing at the last redraw

 private:
  struct Watch final : Dialogs, Display {
    explicit Watch(PanelBench& watched) : bench(watched) {}
    void Show(const Message& message) override;
    bool Ask(const Message& message) override;
    std::string ChooseFileToOpen(const FileRequest& request) override;
    std::string ChooseFileToSave(const FileRequest& request) override;
    std::string AskText(const TextRequest& request) override;
    std::optional<std::int32_t> ChooseColor(std::int32_t initial) override;
    void RedrawMap() override;
    void RefreshInfoPanel() override;
    void SetPointer(PointerShape shape) override;

    PanelBench& bench;
  };

  Watch watch_{*this};
  const EditingPorts panelPorts_{SystemFileCalls(), watch_, watch_, [] { return 0.5; }};
  const Editing panelEditing_{state, panelPorts_};
  std::int16_t notedSlot_ = state.journal.undoSlot;

  void NoteStep();

 public:
  const PanelContext context{panelEditing_, panel};

  /// Two triangles, and three of every other kind: the second and third are alike, the
  /// first is not.
  void BuildMap();
  /// Lists objects by what ToolBench::Listed calls them.
  void Select(const std::string& listed);
  /// Selects, in a tool that was not just chosen, and recomputes the panel.
  void Show(ToolMode tool, const std::string& listed = "");
  /// Chooses the tool as a user does.
  void Choose(ToolMode tool);
  EventLog TakeEvents();
  /// Runs a handler that must ask for exactly `asked` and change the map just so, the change
  /// being there when the map is redrawn and the undo step bringing back what was before.
  void Expect(const Act& act, const EventLog& asked, const Change& change = {});
};

}  // namespace vesmora
