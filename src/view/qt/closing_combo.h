// A combo box that tells when its list has been closed, so that the keyboard can go
// back to the map also when nothing was chosen.
#pragma once

#include <QComboBox>

namespace vesmora {

class ClosingCombo : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

  void hidePopup() override;

 Q_SIGNALS:
  void Closed();
};

}  // namespace vesmora
