// Pyla, the strip above the map: one button for each tool.
#pragma once

#include <QFrame>
#include <QRadioButton>
#include <array>

#include "document/tool_mode.h"

namespace vesmora {

class ToolPanel final : public QFrame {
  Q_OBJECT

 public:
  explicit ToolPanel(QWidget* parent);

  /// Sets the active tool's button, without signals.
  void ShowTool(ToolMode tool);

 Q_SIGNALS:
  /// Also when the active tool's own button is clicked again.
  void ToolChosen(vesmora::ToolMode tool);

 private:
  std::array<QRadioButton*, kToolCount> buttons_{};
};

}  // namespace vesmora
