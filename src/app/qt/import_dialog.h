// The Import dialog: the prefabs of the program's folder and what is in them.
#pragma once

#include <string>
#include <vector>

#include "app/prefab_commands.h"
#include "app/qt/choice_dialog.h"

namespace vesmora {

class Import final : public ChoiceDialog {
  Q_OBJECT

 public:
  Import(const Editor& editor, QWidget* parent);

  /// Full path of the choice; empty when it was cancelled.
  std::string Choose();

 protected:
  void ShowChoice() override;

 private:
  /// What the list shows is no use for opening: not every name on a disk is UTF-8.
  std::string ChosenName() const;

  const Editor& editor_;
  const std::vector<std::string> names_;  // by row
  QLabel* name_ = MakeValue("lName", "Name");
  QLabel* author_ = MakeValue("lAuthor", "Author");
  QLabel* left_ = MakeNumbers("lMaara", "Left: polygons, sceneries, colliders");
  QLabel* counts_ = MakeNumbers("lMaara2", "Prefab: polygons, sceneries, colliders");
};

}  // namespace vesmora
