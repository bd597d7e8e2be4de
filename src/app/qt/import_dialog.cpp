#include "app/qt/import_dialog.h"

#include <QDir>
#include <QGridLayout>

#include "platform/qt/qt_text.h"

namespace vesmora {

Import::Import(const Editor& editor, QWidget* parent)
    : ChoiceDialog({.title = "Import",
                    .list = "Prefabs",
                    .accept = "&Import",
                    .acceptName = "cImport",
                    .cancelName = "cPeruuta"},
                   parent),
      editor_(editor),
      names_(ListPrefabs(editor.ports)) {
  QLabel* folder = MakeValue("lHakemisto", "Folder");
  folder->setText(QDir::toNativeSeparators(ToQt(PrefabFolder(editor.ports))));
  Top().addWidget(folder);
  for (const std::string& name : names_) AddRow(ToQt(name));
  Picture().setAccessibleName("Picture of the prefab");

  auto* grid = new QGridLayout;
  grid->setColumnStretch(3, 1);  // the columns of numbers stand side by side
  grid->setHorizontalSpacing(20);
  grid->addWidget(new QLabel("Name:"), 0, 0);
  grid->addWidget(name_, 0, 1, 1, 3);
  grid->addWidget(new QLabel("Author:"), 1, 0);
  grid->addWidget(author_, 1, 1, 1, 3);
  grid->addWidget(new QLabel("Left"), 2, 1);
  grid->addWidget(new QLabel("Prefab"), 2, 2);
  grid->addWidget(new QLabel("Polygons\nSceneries\nColliders"), 3, 0);
  grid->addWidget(left_, 3, 1);
  grid->addWidget(counts_, 3, 2);
  Details().addLayout(grid);
  Begin(-1);
}

void Import::ShowChoice() {
  ImportContents contents = ShowPrefab(editor_, ChosenName());
  name_->setText(ToQt(contents.lName));
  author_->setText(ToQt(contents.lAuthor));
  left_->setText(ToQt(contents.lMaara));
  counts_->setText(ToQt(contents.lMaara2));
  Enable(contents.canImport);
  Picture().Show(std::move(contents.map));
}

std::string Import::Choose() {
  return IsAccepted() ? PrefabFolder(editor_.ports) + ChosenName() : std::string();
}

std::string Import::ChosenName() const {
  return ChosenRow() < 0 ? std::string() : names_[static_cast<std::size_t>(ChosenRow())];
}

}  // namespace vesmora
