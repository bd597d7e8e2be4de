// The Import dialog: the prefabs of the program's folder and what is in them.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <string>
#include <vector>

#include "app/prefab_commands.h"
#include "view/qt/map_picture.h"

class QBoxLayout;

namespace vesmora {

class Import final : public QDialog {
  Q_OBJECT

 public:
  Import(const Editor& editor, QWidget* parent);

  /// Full path of the choice; empty when it was cancelled.
  std::string Choose();

 private:
  void BuildDetails(QBoxLayout& column);
  void FollowSelection();
  void ShowChoice();

  /// What the list shows is no use for opening: not every name on a disk is UTF-8.
  std::string ChosenName() const;

  const Editor& editor_;
  const std::vector<std::string> names_;  // by row
  QListWidget* files_;
  MapPicture* picture_;
  QLabel* folder_;
  QLabel* name_;
  QLabel* author_;
  QLabel* left_;
  QLabel* counts_;
  QPushButton* import_;
};

}  // namespace vesmora
