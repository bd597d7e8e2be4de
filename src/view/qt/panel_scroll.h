// The controls of a panel, with a scroll bar in one direction where there is no room for all.
#pragma once

#include <QScrollArea>

namespace vesmora {

class PanelScroll final : public QScrollArea {
  Q_OBJECT

 public:
  /// Scrolls in the given direction; takes `content`, which has a layout.
  PanelScroll(Qt::Orientation direction, QWidget* content);

  /// Pixels that all of the content takes in the direction of scrolling.
  int Length() const;
  /// Pixels it takes across when it has `length` of them, with the bar if that is too short.
  int BreadthFor(int length) const;

 protected:
  bool event(QEvent* event) override;

 private:
  Qt::Orientation direction_;
};

}  // namespace vesmora
