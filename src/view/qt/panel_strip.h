// A strip along an edge of the map, with its controls in one row.
#pragma once

#include <QFrame>
#include <QHBoxLayout>

#include "view/qt/panel_scroll.h"

namespace vesmora {

class PanelStrip : public QFrame {
  Q_OBJECT

 public:
  /// Pixels of width that the row needs.
  int RowWidth() const;
  /// Height in pixels where `width` of them are seen: a scroll bar comes with too few.
  int HeightFor(int width) const;
  /// The controls keep out of the right `covered` pixels, over which other panels lie.
  void SetCovered(int covered);

 protected:
  PanelStrip(const char* name, const char* accessibleName, QWidget* parent);

  QHBoxLayout& Row() { return *row_; }
  /// Pixels around the controls: the frame, and inside it as much as a mark of the focus needs.
  int Edge() const;

 private:
  QHBoxLayout* row_;
  PanelScroll* scroll_;
};

}  // namespace vesmora
