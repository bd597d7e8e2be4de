// Pyla, the strip above the map: one button for each tool.
#pragma once

#include <array>

#include "document/tool_mode.h"
#include "view/qt/option_button.h"
#include "view/qt/panel_strip.h"

namespace vesmora {

class ToolPanel final : public PanelStrip {
  Q_OBJECT

 public:
  explicit ToolPanel(QWidget* parent);

  /// Sets the active tool's button, without signals.
  void ShowTool(ToolMode tool);

 Q_SIGNALS:
  /// Also when the active tool's own button is clicked again.
  void ToolChosen(vesmora::ToolMode tool);

 private:
  std::array<OptionButton*, kToolCount> buttons_{};
};

}  // namespace vesmora
