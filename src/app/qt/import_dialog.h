// The Import dialog: the prefabs of the program's folder and what is in them.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

class QBoxLayout;

#include "app/prefab_commands.h"

namespace vesmora {

class Import final : public QDialog {
  Q_OBJECT

 public:
  Import(const Editor& editor, QWidget* parent);

  /// Full path of the choice; empty when it was cancelled.
  std::string Choose();

 private:
  void BuildDetails(QBoxLayout& column);
  void ShowChoice();

  const Editor& editor_;
  QListWidget* files_;
  QLabel* folder_;
  QLabel* name_;
  QLabel* author_;
  QLabel* left_;
  QLabel* counts_;
  QPushButton* import_;
};

}  // namespace vesmora
