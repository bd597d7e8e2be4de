#include "view/qt/view_panel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

ClosingCombo* AddList(QHBoxLayout& layout, const QString& caption, const QString& name) {
  auto* list = new ClosingCombo;
  list->setObjectName(name);
  auto* label = new QLabel(caption);
  label->setBuddy(list);
  list->setAccessibleName(QString(caption).remove('&'));
  layout.addWidget(label);
  layout.addWidget(list);
  return list;
}

}  // namespace

ViewPanel::ViewPanel(QWidget* parent)
    : QFrame(parent), fixed_(new QCheckBox("Fi&xed grid")), position_(new QLabel) {
  setObjectName("Pala");
  setAccessibleName("View");
  setFocusPolicy(Qt::StrongFocus);
  setFrameStyle(QFrame::Panel | QFrame::Raised);
  setAutoFillBackground(true);

  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 2, 24, 2);
  zoom_ = AddList(*layout, "&Zoom", "CBzoom");
  for (const float zoom : kZoomLevels) {
    const int percent = static_cast<int>(zoom * 100);
    zoom_->addItem(QString("%1%").arg(percent), percent);
  }
  layout->addSpacing(12);
  grid_ = AddList(*layout, "&Grid", "CBgrid");
  for (const int size : kGridSizes) grid_->addItem(size == 0 ? "Off" : QString::number(size));
  layout->addSpacing(12);
  fixed_->setObjectName("CBfixed");
  layout->addWidget(fixed_);
  layout->addStretch();
  position_->setObjectName("Lsijainti");
  layout->addWidget(position_);

  connect(zoom_, &QComboBox::activated, this, &ViewPanel::ZoomChosen);
  connect(grid_, &QComboBox::activated, this, &ViewPanel::GridChosen);
  for (const ClosingCombo* list : {zoom_, grid_}) {
    connect(list, &ClosingCombo::Closed, this, &ViewPanel::ListClosed);
  }
  connect(fixed_, &QCheckBox::toggled, this, &ViewPanel::FixedGridToggled);
}

void ViewPanel::ShowState(const ViewTransform& view, std::string_view pointerText) {
  const QSignalBlocker quietZoom(zoom_);
  const QSignalBlocker quietGrid(grid_);
  const QSignalBlocker quietFixed(fixed_);
  zoom_->setCurrentIndex(ZoomIndex(view));
  grid_->setCurrentIndex(GridIndex(view));
  fixed_->setChecked(view.fixedGrid);
  if (!ShowsSame(position_->text(), pointerText)) position_->setText(ToQt(pointerText));
}

}  // namespace vesmora
