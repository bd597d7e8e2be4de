#include "tools/qt/tool_panel.h"

#include <QHBoxLayout>

#include "view/qt/option_button.h"

namespace vesmora {
namespace {

constexpr std::array<const char*, kToolCount> kCaptions = {
    "Edit", "Add polygon", "Add spawn", "Add scenery", "Add collider", "Add waypoint"};

}  // namespace

ToolPanel::ToolPanel(QWidget* parent) : QFrame(parent) {
  setObjectName("Pyla");
  setAccessibleName("Tools");
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setAutoFillBackground(true);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 2, 8, 2);
  layout->setSpacing(14);
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    QRadioButton* button = MakeOptionButton(kCaptions[i], QString("OBvalinta%1").arg(i));
    // Arrow keys belong to the map, so each tool has a key of its own.
    button->setShortcut(QKeySequence(QString("Ctrl+%1").arg(i + 1)));
    button->setToolTip(button->shortcut().toString(QKeySequence::NativeText));
    connect(button, &QRadioButton::clicked, this,
            [this, i] { Q_EMIT ToolChosen(static_cast<ToolMode>(i)); });
    layout->addWidget(button);
    buttons_[i] = button;
  }
  layout->addStretch();
  buttons_[0]->setChecked(true);
}

void ToolPanel::ShowTool(ToolMode tool) {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    buttons_[i]->setChecked(i == static_cast<std::size_t>(tool));
  }
}

}  // namespace vesmora
