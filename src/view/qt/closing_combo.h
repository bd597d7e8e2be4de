// A combo box that tells when its list has been closed, so that the keyboard can go
// back to the map also when nothing was chosen, and whose items assistive programs can choose.
#pragma once

#include <QComboBox>

namespace vesmora {

class ClosingCombo : public QComboBox {
  Q_OBJECT

 public:
  using QComboBox::QComboBox;

  void showPopup() override;
  void hidePopup() override;

 protected:
  /// Turning the wheel over a list scrolls what it lies in and chooses nothing.
  void wheelEvent(QWheelEvent* event) override;

 Q_SIGNALS:
  void Closed();

 private:
  void ChooseSelected();

  QMetaObject::Connection selecting_;  // while the list is open
  bool isOpen_ = false;                // the toolkit also hides a list that was never shown
};

}  // namespace vesmora
