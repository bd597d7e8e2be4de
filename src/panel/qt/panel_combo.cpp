#include "panel/qt/panel_combo.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

namespace vesmora {
namespace {

QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

PanelCombo::PanelCombo(const QString& name, Kind kind) {
  setObjectName(name);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  connect(this, &QComboBox::textActivated, this, &PanelCombo::Touched);
  connect(this, &QComboBox::textActivated, this, &PanelCombo::Chosen);
  if (kind == Kind::kList) return;
  setEditable(true);
  setInsertPolicy(QComboBox::NoInsert);
  setCompleter(nullptr);
  // Left alone, a text that is typed and left without Enter would count as a choice.
  disconnect(lineEdit(), &QLineEdit::editingFinished, nullptr, nullptr);
  connect(lineEdit(), &QLineEdit::textEdited, this, &PanelCombo::Touched);
  connect(lineEdit(), &QLineEdit::textEdited, this, &PanelCombo::Typed);
  lineEdit()->installEventFilter(this);
}

void PanelCombo::Show(const ComboContents& contents, const std::vector<std::string_view>& items) {
  const QSignalBlocker quiet(this);
  if (items != items_) {
    clear();
    for (const std::string_view item : items) addItem(ToQt(item));
    items_ = items;
  }
  if (isEnabled() != contents.enabled) setEnabled(contents.enabled);
  ShowText(ToQt(contents.text));
}

void PanelCombo::ShowText(const QString& text) {
  if (currentText() == text && (isEditable() || currentIndex() >= 0)) return;
  const int index = findText(text);
  setCurrentIndex(index);
  if (isEditable()) {
    setEditText(text);
  } else if (index < 0) {
    setPlaceholderText(text);  // a text that is not in the list
  }
}

void PanelCombo::showPopup() {
  Q_EMIT AboutToOpen();
  ClosingCombo::showPopup();
}

bool PanelCombo::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lineEdit() && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
      Q_EMIT Touched();
      Q_EMIT Entered(currentText());
      return true;
    }
  }
  return QComboBox::eventFilter(watched, event);
}

}  // namespace vesmora
