#include "view/qt/option_button.h"

#include <QButtonGroup>

namespace vesmora {

QRadioButton* MakeOptionButton(const QString& caption, const QString& name) {
  auto* button = new QRadioButton(caption);
  button->setObjectName(name);
  // Among its like in one group only the chosen one would be a stop of the Tab key, and
  // without auto-exclusion it would call itself a check box.
  auto* alone = new QButtonGroup(button);
  alone->setExclusive(false);
  alone->addButton(button);
  return button;
}

}  // namespace vesmora
