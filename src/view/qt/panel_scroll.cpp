#include "view/qt/panel_scroll.h"

#include <QApplication>
#include <QScrollBar>

namespace vesmora {

PanelScroll::PanelScroll(Qt::Orientation direction, QWidget* content) : direction_(direction) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  const bool isVertical = direction == Qt::Vertical;
  if (isVertical) setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  if (!isVertical) setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidget(content);
  // The area itself only follows the Tab key, and only from inside.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now != nullptr && widget()->isAncestorOf(now)) ensureWidgetVisible(now, 4, 4);
  });
}

int PanelScroll::Length() const {
  const QSize size = widget()->minimumSizeHint();
  return direction_ == Qt::Vertical ? size.height() : size.width();
}

int PanelScroll::BreadthFor(int length) const {
  const QSize size = widget()->minimumSizeHint();
  const bool isVertical = direction_ == Qt::Vertical;
  const int breadth = isVertical ? size.width() : size.height();
  if (Length() <= length) return breadth;
  const QSize bar = (isVertical ? verticalScrollBar() : horizontalScrollBar())->sizeHint();
  return breadth + (isVertical ? bar.width() : bar.height());
}

bool PanelScroll::event(QEvent* event) {
  // The area keeps its content's changes of size to itself; the window lays the panels out by them.
  if (event->type() == QEvent::LayoutRequest || event->type() == QEvent::StyleChange) {
    updateGeometry();
  }
  return QScrollArea::event(event);
}

}  // namespace vesmora
