// Pala, the strip below the map: zoom, grid and the pointer's position. It also
// rests the keyboard focus, so that keys reach the map.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <string_view>

#include "view/qt/closing_combo.h"
#include "view/view_transform.h"

namespace vesmora {

class ViewPanel final : public QFrame {
  Q_OBJECT

 public:
  explicit ViewPanel(QWidget* parent);

  /// Brings the controls in line with the view, without signals.
  void ShowState(const ViewTransform& view, std::string_view pointerText);

 Q_SIGNALS:
  void ZoomChosen(int index);
  void GridChosen(int index);
  void FixedGridToggled(bool isFixed);
  /// A list has been closed, with or without a choice.
  void ListClosed();

 private:
  ClosingCombo* zoom_;
  ClosingCombo* grid_;
  QCheckBox* fixed_;
  QLabel* position_;
};

}  // namespace vesmora
