#include "panel/panel_contents.h"

#include "document/scenery_types.h"
#include "panel/panel_parts.h"

namespace vesmora {

std::vector<std::string_view> SpawnItems(const ComboContents& combo) {
  if (!combo.enabled) return {};
  std::vector<std::string_view> items(kSpawnTypes.begin(), kSpawnTypes.end());
  if (combo.tag == ListTag::kFirst) items.push_back(kManyTypes);
  return items;
}

std::vector<std::string_view> SceneryItems(const ComboContents& combo) {
  std::vector<std::string_view> items;
  if (combo.tag == ListTag::kEmpty) return items;
  for (std::size_t type = 1; type < kSceneryTypes.size(); ++type) {
    items.push_back(kSceneryTypes[type].name);
  }
  if (combo.tag == ListTag::kSecond) items.push_back(kManyTypes);
  return items;
}

std::vector<std::string_view> VisibilityItems(const ComboContents& combo) {
  if (combo.tag == ListTag::kEmpty) return {};
  std::vector<std::string_view> items(kVisibilities.begin(), kVisibilities.end());
  if (combo.tag == ListTag::kSecond) items.push_back(kManyTypes);
  return items;
}

void RefreshPanel(PanelContents& panel, EditingState& state) {
  RefreshMapInfo(panel, state);
  RefreshShowBoxes(panel, state);
  RefreshSummary(panel, state);
  RefreshVertexControls(panel, state);
  RefreshSpawnControls(panel, state);
  RefreshSceneryControls(panel, state);
  RefreshColliderControls(panel, state);
  RefreshWaypointControls(panel, state);
  panel.highlightedTool = state.document.toolIndex;
}

}  // namespace vesmora
