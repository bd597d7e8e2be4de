#include "view/qt/option_button.h"

#include <QButtonGroup>
#include <QSignalBlocker>

namespace vesmora {

OptionButton::OptionButton(const QString& caption, const QString& name) : QRadioButton(caption) {
  setObjectName(name);
  // Among its like in one group only the chosen one would be a stop of the Tab key, and
  // without auto-exclusion it would call itself a check box.
  auto* alone = new QButtonGroup(this);
  alone->setExclusive(false);
  alone->addButton(this);
  connect(this, &QRadioButton::clicked, this, &OptionButton::Chosen);
  // Assistive programs toggle a button without clicking it; a click's own change is silent. Queued:
  // they wait for the call to return, which with a box that opens it would not.
  connect(this, &QRadioButton::toggled, this, [this] {
    Show(true);
    QMetaObject::invokeMethod(this, &OptionButton::Chosen, Qt::QueuedConnection);
  });
}

void OptionButton::Show(bool isChosen) {
  const QSignalBlocker quiet(this);
  setChecked(isChosen);
}

}  // namespace vesmora
