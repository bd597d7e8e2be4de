#include "view/qt/closing_combo.h"

#include <QAbstractItemView>
#include <QWheelEvent>

namespace vesmora {

void ClosingCombo::showPopup() {
  isOpen_ = true;
  QComboBox::showPopup();
  // Queued: mouse and keys select an item just before they make it the current one.
  selecting_ = connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                       &ClosingCombo::ChooseSelected, Qt::QueuedConnection);
}

void ClosingCombo::hidePopup() {
  disconnect(selecting_);
  QComboBox::hidePopup();
  if (!isOpen_) return;
  isOpen_ = false;
  Q_EMIT Closed();
}

/// Assistive programs choose an item by selecting it, which to the toolkit is no choice yet.
void ClosingCombo::ChooseSelected() {
  if (!isOpen_) return;
  const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
  const QModelIndex current = view()->currentIndex();
  if (!selected.isEmpty() && selected[0] == current) return;
  const int row = selected.isEmpty() ? current.row() : selected[0].row();
  if (row < 0) return;
  hidePopup();
  setCurrentIndex(row);
  Q_EMIT activated(row);
  Q_EMIT textActivated(itemText(row));
}

void ClosingCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace vesmora
