// Bringing single controls in line with what they are to show, without signals.
#pragma once

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "panel/panel_contents.h"

namespace vesmora {

void ShowButton(QPushButton* button, const ButtonContents& contents);
void ShowBox(QCheckBox* box, const CheckContents& contents);
void ShowOption(QRadioButton* option, const OptionContents& contents);

}  // namespace vesmora
