// An option of a group whose shown contents, not the toolkit, keep one of it chosen.
#pragma once

#include <QRadioButton>

namespace vesmora {

/// Each is a stop of the Tab key of its own, and an option button to assistive programs.
QRadioButton* MakeOptionButton(const QString& caption, const QString& name);

}  // namespace vesmora
