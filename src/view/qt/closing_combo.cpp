#include "view/qt/closing_combo.h"

#include <QWheelEvent>

namespace vesmora {

void ClosingCombo::showPopup() {
  isOpen_ = true;
  QComboBox::showPopup();
}

void ClosingCombo::hidePopup() {
  QComboBox::hidePopup();
  if (!isOpen_) return;
  isOpen_ = false;
  Q_EMIT Closed();
}

void ClosingCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace vesmora
