#include "app/qt/recover_dialog.h"

#include <QDateTime>
#include <QDir>
#include <QGridLayout>
#include <QLocale>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

QString TimeText(std::int64_t time) {
  return QLocale().toString(QDateTime::fromMSecsSinceEpoch(time), QLocale::ShortFormat);
}

/// What is enough to tell it from others of the list.
QString ShortTimeText(std::int64_t time) {
  const QDateTime moment = QDateTime::fromMSecsSinceEpoch(time);
  const bool isToday = moment.date() == QDate::currentDate();
  return QLocale().toString(moment, isToday ? "hh:mm" : "d MMM");
}

}  // namespace

Recover::Recover(const Editor& editor, QWidget* parent)
    : ChoiceDialog({.title = "Recover",
                    .list = "Maps that were not saved",
                    .accept = "&Open",
                    .acceptName = "cAvaa",
                    .cancelName = "cPeruuta"},
                   parent),
      editor_(editor),
      paths_(ListRecoverable(editor)) {
  Top().addWidget(new QLabel(
      "These maps were not saved. One that you open stays in this list until you save it."));
  for (const std::string& path : paths_) {
    const RecoverContents contents = ShowRecoverable(editor, path);
    AddRow(contents.map ? ShortTimeText(contents.time) + "  " + ToQt(contents.lNimi) : ToQt(path));
  }
  Picture().setAccessibleName("Picture of the map");

  auto* grid = new QGridLayout;
  grid->setColumnStretch(1, 1);
  grid->setHorizontalSpacing(20);
  int row = 0;
  for (const auto& [caption, value] :
       {std::pair("Map:", name_),
        {"Folder:", folder_},
        {"Last seen:", time_},
        {"Ended by:", cause_},
        {"Polygons\nSpawns\nSceneries\nColliders\nWaypoints", counts_}}) {
    grid->addWidget(new QLabel(caption), row, 0);
    grid->addWidget(value, row++, 1);
  }
  Details().addLayout(grid);
  Begin(0);
}

void Recover::ShowChoice() {
  RecoverContents contents;
  if (ChosenRow() >= 0) {
    contents = ShowRecoverable(editor_, paths_[static_cast<std::size_t>(ChosenRow())]);
  }
  name_->setText(ToQt(contents.lNimi));
  folder_->setText(QDir::toNativeSeparators(ToQt(contents.lKansio)));
  time_->setText(contents.map ? TimeText(contents.time) : QString());
  cause_->setText(ToQt(contents.lSyy));
  counts_->setText(contents.map ? ToQt(contents.lMaara) : "\n\n\n\n");
  Enable(contents.map != nullptr);
  Picture().Show(std::move(contents.map));
}

std::string Recover::Choose() {
  return IsAccepted() ? paths_[static_cast<std::size_t>(ChosenRow())] : std::string();
}

}  // namespace vesmora
