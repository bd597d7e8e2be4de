#include "panel/qt/show_controls.h"

namespace vesmora {
namespace {

Qt::CheckState ToCheckState(Tick tick) {
  switch (tick) {
    case Tick::kOn:
      return Qt::Checked;
    case Tick::kMixed:
      return Qt::PartiallyChecked;
    case Tick::kOff:
      break;
  }
  return Qt::Unchecked;
}

}  // namespace

void ShowButton(QPushButton* button, const ButtonContents& contents) {
  button->setEnabled(contents.enabled);
}

void ShowColorButton(ColorButton* button, const ButtonContents& contents) {
  ShowButton(button, contents);
  std::optional<QColor> color;
  if (contents.color) {
    color = QColor(contents.color->red, contents.color->green, contents.color->blue);
  }
  button->SetColor(color);
}

void ShowBox(TickBox* box, const CheckContents& contents) {
  box->setEnabled(contents.enabled);
  box->Show(ToCheckState(contents.tick));
}

void ShowOption(OptionButton* option, const OptionContents& contents) {
  option->setEnabled(contents.enabled);
  option->Show(contents.chosen);
}

}  // namespace vesmora
