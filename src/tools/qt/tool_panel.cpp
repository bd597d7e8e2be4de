#include "tools/qt/tool_panel.h"

namespace vesmora {
namespace {

constexpr std::array<const char*, kToolCount> kCaptions = {
    "Edit", "Add polygon", "Add spawn", "Add scenery", "Add collider", "Add waypoint"};

}  // namespace

ToolPanel::ToolPanel(QWidget* parent) : PanelStrip("Pyla", "Tools", parent) {
  // Without a line at the top: it lies below the menus, and the corner frame would break it.
  setFrameRect(rect().adjusted(0, -frameWidth(), 0, 0));
  Row().setSpacing(11);
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    auto* button = new OptionButton(kCaptions[i], QString("OBvalinta%1").arg(i));
    // Arrow keys belong to the map, so each tool has a key of its own.
    button->setShortcut(QKeySequence(QString("Ctrl+%1").arg(i + 1)));
    button->setToolTip(button->shortcut().toString(QKeySequence::NativeText));
    connect(button, &OptionButton::Chosen, this,
            [this, i] { Q_EMIT ToolChosen(static_cast<ToolMode>(i)); });
    Row().addWidget(button);
    buttons_[i] = button;
  }
  Row().addStretch();
  buttons_[0]->Show(true);
}

void ToolPanel::ShowTool(ToolMode tool) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->Show(i == static_cast<std::size_t>(tool));
  }
}

}  // namespace vesmora
