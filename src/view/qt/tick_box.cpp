#include "view/qt/tick_box.h"

#include <QSignalBlocker>

namespace vesmora {

TickBox::TickBox(const QString& caption, const QString& name) : QCheckBox(caption) {
  setObjectName(name);
  connect(this, &QCheckBox::clicked, this, [this] { Q_EMIT Ticked(isChecked()); });
  // Assistive programs toggle a box without clicking it; a click's own change is silent. Queued:
  // they wait for the call to return, which with a question that opens it would not.
  connect(this, &QCheckBox::toggled, this, [this] {
    Step();
    const auto tell = [this, isTicked = isChecked()] { Q_EMIT Ticked(isTicked); };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
  });
}

void TickBox::Show(Qt::CheckState state) {
  shown_ = state;
  if (checkState() == state) return;  // setting it again would paint it again
  const QSignalBlocker quiet(this);
  setTristate(state == Qt::PartiallyChecked);
  setCheckState(state);
}

void TickBox::Step() { Show(shown_ == Qt::Checked ? Qt::Unchecked : Qt::Checked); }

}  // namespace vesmora
