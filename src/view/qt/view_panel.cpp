#include "view/qt/view_panel.h"

#include <QFocusEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <utility>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

constexpr const char* kLongestHint = "[Shift+Ctrl] Click or drag to select";
constexpr int kGroupGap = 2;  // pixels, beside the row's own

}  // namespace

ViewPanel::ViewPanel(QWidget* parent)
    : PanelStrip("Pala", "View", parent),
      fixed_(new TickBox("Fi&xed grid", "CBfixed")),
      hint_(new ElidedLabel("Lvihje", kLongestHint)),
      position_(new ElidedLabel("Lsijainti", "-9999.9, -9999.9")) {
  setFocusPolicy(Qt::StrongFocus);

  zoom_ = AddList("&Zoom", "CBzoom", "How large the map is shown");
  for (const float zoom : kZoomLevels) {
    const int percent = static_cast<int>(zoom * 100);
    zoom_->addItem(QString("%1%").arg(percent), percent);
  }
  Row().addSpacing(kGroupGap);
  grid_ = AddList("&Grid", "CBgrid",
                  "Distance of the lines to which points snap; Ctrl places them between");
  for (const int size : kGridSizes) grid_->addItem(size == 0 ? "Off" : QString::number(size));
  Row().addSpacing(kGroupGap);
  fixed_->setToolTip("The grid stays in its place on the screen while the map moves");
  Row().addWidget(fixed_);
  Row().addSpacing(kGroupGap);
  hint_->setAccessibleDescription("Hint");
  position_->setAccessibleDescription("Position of the pointer");
  hint_->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  Row().addWidget(hint_, 1);
  position_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  Row().addWidget(position_);

  connect(zoom_, &QComboBox::activated, this, &ViewPanel::ZoomChosen);
  connect(grid_, &QComboBox::activated, this, &ViewPanel::GridChosen);
  for (const ClosingCombo* list : {zoom_, grid_}) {
    connect(list, &ClosingCombo::Closed, this, &ViewPanel::ListClosed);
  }
  connect(fixed_, &TickBox::Ticked, this, &ViewPanel::FixedGridToggled);
}

ClosingCombo* ViewPanel::AddList(const QString& caption, const QString& name, const QString& tip) {
  auto* list = new ClosingCombo;
  list->setObjectName(name);
  list->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  list->setAccessibleName(QString(caption).remove('&'));
  list->setToolTip(tip);
  auto* label = new QLabel(caption);
  label->setBuddy(list);
  Row().addWidget(label);
  Row().addWidget(list);
  return list;
}

void ViewPanel::ShowState(const ViewTransform& view, std::string_view pointerText) {
  const QSignalBlocker quietZoom(zoom_);
  const QSignalBlocker quietGrid(grid_);
  zoom_->setCurrentIndex(ZoomIndex(view));
  grid_->setCurrentIndex(GridIndex(view));
  fixed_->Show(view.fixedGrid ? Qt::Checked : Qt::Unchecked);
  if (!ShowsSame(position_->text(), pointerText)) position_->setText(ToQt(pointerText));
}

void ViewPanel::ShowHint(std::string_view hint) {
  if (!ShowsSame(hint_->text(), hint)) hint_->setText(ToQt(hint));
}

void ViewPanel::RestFocus() {
  if (std::exchange(isReachedByTab_, false)) update();
  setFocus();
}

void ViewPanel::focusInEvent(QFocusEvent* event) {
  const Qt::FocusReason reason = event->reason();
  const bool isBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason;
  const bool isTab = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason;
  isReachedByTab_ = isTab || (isBack && isReachedByTab_);
  update();
}

void ViewPanel::focusOutEvent(QFocusEvent* /*event*/) { update(); }

// Where the focus only rests, as it does nearly always, there is no mark.
void ViewPanel::paintEvent(QPaintEvent* event) {
  PanelStrip::paintEvent(event);
  if (!hasFocus() || !isReachedByTab_) return;
  const QRect inside = layout()->contentsRect();
  QPainter painter(this);
  painter.setClipRegion(QRegion(inside.marginsAdded(QMargins() + Edge())) - inside);
  painter.fillRect(rect(), palette().color(QPalette::Highlight));
}

}  // namespace vesmora
