#include "panel/qt/panel_combo.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

constexpr int kLineEditMargins = 8;  // pixels: what a line edit keeps free, and its cursor

std::span<const std::string_view> ItemsOf(ComboList list,
                                          std::span<const std::string_view> values) {
  if (list == ComboList::kEmpty) return {};
  const bool hasMany = values.back() == kManyTypes;
  return hasMany && list == ComboList::kValues ? values.first(values.size() - 1) : values;
}

}  // namespace

PanelCombo::PanelCombo(const QString& name, Kind kind, std::span<const std::string_view> values)
    : values_(values) {
  setObjectName(name);
  connect(this, &QComboBox::textActivated, this, &PanelCombo::Touched);
  connect(this, &QComboBox::textActivated, this, &PanelCombo::Chosen);
  if (kind == Kind::kList) return;
  setEditable(true);
  setCompleter(nullptr);
  // Left alone, a text that is typed and left without Enter would count as a choice.
  disconnect(lineEdit(), &QLineEdit::editingFinished, nullptr, nullptr);
  connect(lineEdit(), &QLineEdit::editingFinished, this, &PanelCombo::Left);
  // Not by textEdited: assistive programs set a text without a key.
  connect(lineEdit(), &QLineEdit::textChanged, this, &PanelCombo::Touched);
  connect(lineEdit(), &QLineEdit::textChanged, this, &PanelCombo::Typed);
}

void PanelCombo::Show(const ComboContents& contents) {
  const QSignalBlocker quiet(this);
  const auto items = ItemsOf(contents.list, values_);
  if (items.size() != items_.size()) {
    clear();
    for (const std::string_view item : items) addItem(ToQt(item));
    items_ = items;
  }
  if (isEnabled() != contents.enabled) setEnabled(contents.enabled);
  ShowText(ToQt(contents.text));
}

void PanelCombo::ShowText(const QString& text) {
  const bool isHeld = isEditable() || currentIndex() >= 0;
  if (isHeld && outside_.isEmpty() && currentText() == text) return;
  const int index = findText(text);
  setCurrentIndex(index);
  if (isEditable()) {
    setEditText(text);
    return;
  }
  // A text that is not in the list is no value to the toolkit.
  outside_ = index < 0 ? text : "";
  setAccessibleDescription(outside_);
  update();
}

void PanelCombo::initStyleOption(QStyleOptionComboBox* option) const {
  ClosingCombo::initStyleOption(option);
  if (currentIndex() < 0 && !isEditable()) option->currentText = outside_;
}

QSize PanelCombo::sizeHint() const {
  int width = 0;
  for (const std::string_view value : values_) {
    width = std::max(width, fontMetrics().horizontalAdvance(ToQt(value)));
  }
  if (isEditable()) width += kLineEditMargins;
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QSize contents(width, fontMetrics().height());
  const int boxWidth =
      style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this).width();
  return {boxWidth, ClosingCombo::sizeHint().height()};
}

void PanelCombo::showPopup() {
  Q_EMIT AboutToOpen();
  ClosingCombo::showPopup();
}

// The line edit has no focus of its own: its keys come through here. Its returnPressed would
// not do, the combo box takes that for a choice when the text is in the list.
void PanelCombo::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (!isEditable() || !isEnter) {
    ClosingCombo::keyPressEvent(event);
    return;
  }
  Q_EMIT Touched();
  Q_EMIT Entered(currentText());
}

}  // namespace vesmora
