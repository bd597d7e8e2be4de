// An option of a group whose shown contents, not the toolkit, keep one of it chosen.
#pragma once

#include <QRadioButton>

namespace vesmora {

/// Each is a stop of the Tab key of its own, and an option button to assistive programs.
class OptionButton final : public QRadioButton {
  Q_OBJECT

 public:
  OptionButton(const QString& caption, const QString& name);

  /// Without a signal.
  void Show(bool isChosen);

 Q_SIGNALS:
  /// By mouse, key or an assistive program; also when it is the chosen one already.
  void Chosen();

 protected:
  void nextCheckState() override { Show(true); }
};

}  // namespace vesmora
