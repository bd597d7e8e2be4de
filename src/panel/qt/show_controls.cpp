#include "panel/qt/show_controls.h"

#include <QApplication>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleFactory>

namespace vesmora {
namespace {

/// The face in the given colour and the caption in whichever of black and white can be
/// read on it. A palette, not a style sheet: those slow the program's start down.
QPalette FacePalette(Rgb color) {
  const int brightness = (color.red * 299 + color.green * 587 + color.blue * 114) / 1000;
  QPalette palette;
  palette.setColor(QPalette::Button, QColor(color.red, color.green, color.blue));
  palette.setColor(QPalette::ButtonText, brightness < 128 ? Qt::white : Qt::black);
  return palette;
}

/// Systems' own styles paint faces as they like; this one goes by the palette.
void UseStyleWithFaces(QPushButton* button) {
  static QStyle* style = nullptr;
  if (QApplication::style()->name() == "fusion") return;
  if (style == nullptr) {
    style = QStyleFactory::create("fusion");
    style->setParent(qApp);
  }
  if (button->style() != style) button->setStyle(style);
}

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
  if (contents.color) UseStyleWithFaces(button);
  button->setPalette(contents.color ? FacePalette(*contents.color) : QPalette());
}

void ShowBox(QCheckBox* box, const CheckContents& contents) {
  const QSignalBlocker quiet(box);
  box->setEnabled(contents.enabled);
  const Qt::CheckState state = ToCheckState(contents.tick);
  if (box->checkState() == state) return;  // setting it again would paint it again
  box->setTristate(state == Qt::PartiallyChecked);
  box->setCheckState(state);
}

void ShowOption(QRadioButton* option, const OptionContents& contents) {
  const QSignalBlocker quiet(option);
  option->setChecked(contents.chosen);
  option->setEnabled(contents.enabled);
}

}  // namespace vesmora
