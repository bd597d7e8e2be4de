#include "app/qt/import_dialog.h"

#include <QDir>
#include <QGridLayout>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "view/qt/elided_label.h"

namespace vesmora {
namespace {

/// A long name is cut: it must not push the dialog over the edge of the screen.
QLabel* MakeLabel(const char* name) { return new ElidedLabel(name, {}); }

/// Items as wide as the list: a longer name is cut.
class CutItems final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return {1, QStyledItemDelegate::sizeHint(option, index).height()};
  }
};

QLabel* MakeNumbers(const char* name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  return label;
}

}  // namespace

Import::Import(const Editor& editor, QWidget* parent)
    : QDialog(parent),
      editor_(editor),
      names_(ListPrefabs(editor.ports)),
      files_(new QListWidget),
      picture_(new MapPicture),
      folder_(MakeLabel("lHakemisto")),
      name_(MakeLabel("lName")),
      author_(MakeLabel("lAuthor")),
      left_(MakeNumbers("lMaara")),
      counts_(MakeNumbers("lMaara2")),
      import_(new QPushButton("&Import")) {
  setWindowTitle("Import");
  auto* column = new QVBoxLayout(this);
  folder_->setText(QDir::toNativeSeparators(ToQt(PrefabFolder(editor.ports))));
  column->addWidget(folder_);
  files_->setObjectName("fTiedosto");
  files_->setAccessibleName("Prefabs");
  files_->setItemDelegate(new CutItems(files_));
  for (const std::string& name : names_) {
    auto* item = new QListWidgetItem(ToQt(name), files_);
    item->setToolTip(PlainTip(item->text()));
  }
  // Otherwise the first file would be taken as chosen as soon as the list has the focus.
  files_->setCurrentIndex({});
  picture_->setObjectName("pKuva");
  picture_->setAccessibleName("Picture of the prefab");
  auto* choice = new QHBoxLayout;
  choice->addWidget(files_, 2);
  choice->addWidget(picture_, 3);
  column->addLayout(choice, 1);
  BuildDetails(*column);

  import_->setObjectName("cImport");
  import_->setDefault(true);
  auto* cancel = new QPushButton("&Cancel");
  cancel->setObjectName("cPeruuta");
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(import_);
  buttons->addWidget(cancel);
  column->addLayout(buttons);

  connect(files_, &QListWidget::currentRowChanged, this, &Import::ShowChoice);
  // Assistive programs choose an item by selecting it. Queued: keys select one just before they
  // make it the current one.
  connect(files_, &QListWidget::itemSelectionChanged, this, &Import::FollowSelection,
          Qt::QueuedConnection);
  connect(files_, &QListWidget::itemDoubleClicked, import_, &QPushButton::click);
  connect(import_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  ShowChoice();
  // By the font: a list of usual names, a picture as high, and the numbers below them.
  const int line = fontMetrics().lineSpacing();
  const QSize room = screen()->availableSize() - QSize(2 * line, 4 * line);  // and its frame
  resize(QSize(line * 36, line * 28).boundedTo(room));
}

void Import::BuildDetails(QBoxLayout& column) {
  auto* grid = new QGridLayout;
  grid->setColumnStretch(3, 1);  // the columns of numbers stand side by side
  grid->setHorizontalSpacing(20);
  // Values that stand far from their captions say what they are.
  folder_->setAccessibleDescription("Folder");
  name_->setAccessibleDescription("Name");
  author_->setAccessibleDescription("Author");
  left_->setAccessibleDescription("Left: polygons, sceneries, colliders");
  counts_->setAccessibleDescription("Prefab: polygons, sceneries, colliders");
  grid->addWidget(new QLabel("Name:"), 0, 0);
  grid->addWidget(name_, 0, 1, 1, 3);
  grid->addWidget(new QLabel("Author:"), 1, 0);
  grid->addWidget(author_, 1, 1, 1, 3);
  grid->addWidget(new QLabel("Left"), 2, 1);
  grid->addWidget(new QLabel("Prefab"), 2, 2);
  grid->addWidget(new QLabel("Polygons\nSceneries\nColliders"), 3, 0);
  grid->addWidget(left_, 3, 1);
  grid->addWidget(counts_, 3, 2);
  column.addLayout(grid);
}

/// One is chosen for good, as by a click.
void Import::FollowSelection() {
  const QList<QListWidgetItem*> selected = files_->selectedItems();
  files_->setCurrentItem(selected.isEmpty() ? files_->currentItem() : selected.first());
}

void Import::ShowChoice() {
  ImportContents contents = ShowPrefab(editor_, ChosenName());
  name_->setText(ToQt(contents.lName));
  author_->setText(ToQt(contents.lAuthor));
  left_->setText(ToQt(contents.lMaara));
  counts_->setText(ToQt(contents.lMaara2));
  import_->setEnabled(contents.canImport);
  picture_->Show(std::move(contents.map));
}

std::string Import::Choose() {
  if (exec() != QDialog::Accepted || ChosenName().empty()) return {};
  return PrefabFolder(editor_.ports) + ChosenName();
}

std::string Import::ChosenName() const {
  const int row = files_->currentRow();
  return row < 0 ? std::string() : names_[static_cast<std::size_t>(row)];
}

}  // namespace vesmora
