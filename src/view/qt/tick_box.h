// A check box that may show grey, but that nobody ticks grey.
#pragma once

#include <QCheckBox>

namespace vesmora {

class TickBox final : public QCheckBox {
  Q_OBJECT

 public:
  TickBox(const QString& caption, const QString& name);

  /// Without a signal.
  void Show(Qt::CheckState state);

 Q_SIGNALS:
  /// By mouse, key or an assistive program. A grey box becomes ticked.
  void Ticked(bool isTicked);

 protected:
  void nextCheckState() override { Step(); }

 private:
  void Step();

  Qt::CheckState shown_ = Qt::Unchecked;
};

}  // namespace vesmora
