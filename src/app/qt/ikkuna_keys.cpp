// Keys: what the map gets of them, and which modifiers count as held.
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>

#include "app/keys.h"
#include "app/qt/ikkuna.h"

namespace vesmora {
namespace {

Key ToKey(const QKeyEvent& event) {
  const bool isKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
  const bool isWithAlt = event.modifiers().testFlag(Qt::AltModifier);
  switch (event.key()) {
    case Qt::Key_Shift:
      return Key::kShift;
    case Qt::Key_Control:
      return Key::kCtrl;
    case Qt::Key_Left:
      return Key::kLeft;
    case Qt::Key_Up:
      return isWithAlt ? Key::kOther : Key::kUp;  // opens the list of a combo box
    case Qt::Key_Right:
      return Key::kRight;
    case Qt::Key_Down:
      return isWithAlt ? Key::kOther : Key::kDown;
    case Qt::Key_Escape:
      return Key::kEscape;
    case Qt::Key_Plus:
      return isKeypad ? Key::kKeypadPlus : Key::kOther;
    case Qt::Key_Minus:
      return isKeypad ? Key::kKeypadMinus : Key::kOther;
    default:
      return Key::kOther;
  }
}

}  // namespace

/// An unused key climbs from the focused widget through its parents, each of which
/// passes by here: only the first time counts.
bool Ikkuna::IsFirstReceiver(const QObject* watched) const {
  const QWidget* focused = focusWidget();
  if (focused == menuBar()) return false;  // its arrows walk through the menus
  return isActiveWindow() && watched == (focused != nullptr ? focused : this);
}

/// Shift and Ctrl are followed wherever in this window they go, its menus included; all other
/// keys are the map's only where they come first.
bool Ikkuna::FilterKey(const QObject* watched, const QEvent* event) {
  const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
  const Key key = ToKey(keyEvent);
  const bool isModifier = key == Key::kShift || key == Key::kCtrl;
  const bool isOurs =
      isModifier ? QApplication::activeModalWidget() == nullptr : IsFirstReceiver(watched);
  if (!isOurs) return false;
  const Qt::KeyboardModifiers held = keyEvent.modifiers();
  const bool isPress = event->type() == QEvent::KeyPress;
  const bool isUsed = isPress && KeyDown(editor_, key,
                                         {.shift = held.testFlag(Qt::ShiftModifier),
                                          .ctrl = held.testFlag(Qt::ControlModifier)});
  if (!isPress && !keyEvent.isAutoRepeat()) KeyUp(editor_, key);
  BringUpToDate();
  return isUsed;
}

/// A dialog that the command opens will get the keys' release.
void Ikkuna::NoteShortcut(const QObject* watched, const QEvent* event) {
  if (!watched->inherits("QAction")) return;
  shortcutModifiers_ = static_cast<const QShortcutEvent*>(event)->key()[0].keyboardModifiers();
}

/// A dialog has opened: who used a shortcut for it lets go of its keys there, and this window
/// would never hear of it.
void Ikkuna::ReleaseShortcut() {
  if (shortcutModifiers_.testFlag(Qt::ShiftModifier)) KeyUp(editor_, Key::kShift);
  if (shortcutModifiers_.testFlag(Qt::ControlModifier)) KeyUp(editor_, Key::kCtrl);
}

}  // namespace vesmora
