#include "view/qt/closing_combo.h"

namespace vesmora {

void ClosingCombo::hidePopup() {
  QComboBox::hidePopup();
  Q_EMIT Closed();
}

}  // namespace vesmora
