#include "app/qt/choice_dialog.h"

#include <QScreen>
#include <QStyledItemDelegate>

#include "platform/qt/qt_text.h"
#include "view/qt/elided_label.h"

namespace vesmora {
namespace {

/// Items as wide as the list: a longer name is cut.
class CutItems final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {1, QStyledItemDelegate::sizeHint(option, index).height()};
  }
};

}  // namespace

ChoiceDialog::ChoiceDialog(const Names& names, QWidget* parent)
    : QDialog(parent), accept_(new QPushButton(names.accept)) {
  setWindowTitle(names.title);
  list_->setObjectName("fTiedosto");
  list_->setAccessibleName(names.list);
  list_->setItemDelegate(new CutItems(list_));
  picture_->setObjectName("pKuva");
  accept_->setObjectName(names.acceptName);
  accept_->setDefault(true);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName(names.cancelName);

  auto* column = new QVBoxLayout(this);
  auto* choice = new QHBoxLayout;
  choice->addWidget(list_, 2);
  choice->addWidget(picture_, 3);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(accept_);
  buttons->addWidget(cancel);
  column->addLayout(top_);
  column->addLayout(choice, 1);
  column->addLayout(details_);
  column->addLayout(buttons);

  connect(list_, &QListWidget::currentRowChanged, this, [this] { ShowChoice(); });
  // Assistive programs choose an item by selecting it. Queued: keys select one just before they
  // make it the current one.
  connect(list_, &QListWidget::itemSelectionChanged, this, &ChoiceDialog::FollowSelection,
          Qt::QueuedConnection);
  connect(list_, &QListWidget::itemDoubleClicked, accept_, &QPushButton::click);
  connect(accept_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void ChoiceDialog::AddRow(const QString& name) {
  auto* item = new QListWidgetItem(name, list_);
  item->setToolTip(PlainTip(name));
}

void ChoiceDialog::Begin(int row) {
  list_->setCurrentRow(row);
  // Otherwise the first row would be taken as chosen as soon as the list has the focus.
  if (row < 0) list_->setCurrentIndex({});
  ShowChoice();
  // By the font: a list of usual names, a picture as high, and the details below them.
  const int line = fontMetrics().lineSpacing();
  const QSize room = screen()->availableSize() - QSize(2 * line, 4 * line);  // and its frame
  resize(QSize(line * 36, line * 28).boundedTo(room));
}

bool ChoiceDialog::IsAccepted() { return exec() == QDialog::Accepted && ChosenRow() >= 0; }

/// One is chosen for good, as by a click.
void ChoiceDialog::FollowSelection() {
  const QList<QListWidgetItem*> selected = list_->selectedItems();
  list_->setCurrentItem(selected.isEmpty() ? list_->currentItem() : selected.first());
}

QLabel* ChoiceDialog::MakeValue(const char* name, const QString& description) {
  auto* label = new ElidedLabel(name, {});
  label->setAccessibleDescription(description);
  return label;
}

QLabel* ChoiceDialog::MakeNumbers(const char* name, const QString& description) {
  auto* label = new QLabel;
  label->setObjectName(name);
  label->setAccessibleDescription(description);
  return label;
}

}  // namespace vesmora
