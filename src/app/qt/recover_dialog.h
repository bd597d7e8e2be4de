// The Recover dialog: the maps that went without being saved.
#pragma once

#include <string>
#include <vector>

#include "app/qt/choice_dialog.h"
#include "app/safety_net.h"

namespace vesmora {

class Recover final : public ChoiceDialog {
  Q_OBJECT

 public:
  Recover(const Editor& editor, QWidget* parent);

  /// The file of the chosen map; empty when it was cancelled.
  std::string Choose();

 protected:
  void ShowChoice() override;

 private:
  const Editor& editor_;
  const std::vector<std::string> paths_;  // by row
  QLabel* name_ = MakeValue("lNimi", "Map");
  QLabel* folder_ = MakeValue("lKansio", "Folder");
  QLabel* time_ = MakeValue("lAika", "Last seen");
  QLabel* cause_ = MakeValue("lSyy", "What ended it");
  QLabel* counts_ = MakeNumbers("lMaara", "Polygons, spawns, sceneries, colliders, waypoints");
};

}  // namespace vesmora
