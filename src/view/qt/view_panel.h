// Pala, the strip below the map: zoom, grid, a hint and the pointer's position. It also
// rests the keyboard focus, so that keys reach the map.
#pragma once

#include <string_view>

#include "view/qt/closing_combo.h"
#include "view/qt/elided_label.h"
#include "view/qt/panel_strip.h"
#include "view/qt/tick_box.h"
#include "view/view_transform.h"

namespace vesmora {

class ViewPanel final : public PanelStrip {
  Q_OBJECT

 public:
  explicit ViewPanel(QWidget* parent);

  /// Brings the controls in line with the view, without signals.
  void ShowState(const ViewTransform& view, std::string_view pointerText);

  /// One line about what just happened or what comes next; empty for none.
  void ShowHint(std::string_view hint);

  /// Keys reach the map from here. No mark tells of it, as it is so nearly always.
  void RestFocus();

 Q_SIGNALS:
  void ZoomChosen(int index);
  void GridChosen(int index);
  void FixedGridToggled(bool isFixed);
  /// A list has been closed, with or without a choice.
  void ListClosed();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  ClosingCombo* AddList(const QString& caption, const QString& name, const QString& tip);

  ClosingCombo* zoom_;
  ClosingCombo* grid_;
  TickBox* fixed_;
  ElidedLabel* hint_;
  ElidedLabel* position_;
  bool isReachedByTab_ = false;  // the focus, when it last came
};

}  // namespace vesmora
