// Bringing single controls in line with what they are to show, without signals.
#pragma once

#include <QPushButton>

#include "panel/panel_contents.h"
#include "panel/qt/color_button.h"
#include "view/qt/option_button.h"
#include "view/qt/tick_box.h"

namespace vesmora {

void ShowButton(QPushButton* button, const ButtonContents& contents);
void ShowColorButton(ColorButton* button, const ButtonContents& contents);
void ShowBox(TickBox* box, const CheckContents& contents);
void ShowOption(OptionButton* option, const OptionContents& contents);

}  // namespace vesmora
