// Maps that a broken or malicious program could write: nothing they hold may lead
// out of a table or overflow, whatever is done with them. Run by the sanitizers.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "document/map_image.h"
#include "support/map_builder.h"
#include "support/map_workbench.h"
#include "support/recording_canvas.h"
#include "view/clip.h"
#include "view/redraw_map.h"

namespace vesmora {
namespace {

std::vector<std::string> MapsOf(const std::string& folder) {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(DataPath(folder))) {
    if (entry.path().extension() == ".pmp") paths.push_back(entry.path().string());
  }
  std::ranges::sort(paths);
  return paths;
}

class HostileMapsTest : public testing::TestWithParam<std::string> {
 protected:
  /// What the window's canvas does with each primitive before it paints.
  void Clip(const RecordingCanvas& canvas) {
    const DrawingArea& area = view_.area;
    for (const Primitive& primitive : canvas.primitives) {
      ClipLine(primitive.from, primitive.to, area.width, area.height);
      CircleTouches(primitive.from, primitive.radius, area.width, area.height);
    }
  }

  void DrawInEveryWay() {
    ShowOptions show;
    show.showFlags.fill(1);
    for (int way = 0; way < 12; ++way) {
      const auto step = static_cast<std::size_t>(way);
      bench_.document.toolIndex = static_cast<ToolMode>(way % kToolCount);
      view_.zoom = kZoomLevels[step % kZoomLevels.size()];
      view_.gridSize = kGridSizes[step % kGridSizes.size()];
      view_.fixedGrid = way % 2 == 0;
      view_.centerX = way < 6 ? 0.0f : 3e9f;
      if (bench_.document.lastWaypoint >= 0) bench_.selection.connectionAnchor = 0;
      const ToolDrawing tool{.placedCorners = way % 3, .mouseX = 1 << 30, .mouseY = -(1 << 30)};
      RecordingCanvas canvas;
      RedrawMap({bench_.document, bench_.selection, view_, show, tool}, canvas);
      EXPECT_FALSE(canvas.primitives.empty());
      Clip(canvas);
    }
  }

  MapWorkbench bench_;
  ViewTransform view_{.area = {1000, 700, 200, 100, 60}};
};

TEST_P(HostileMapsTest, IsLoadedDrawnSavedAndLoadedAgain) {
  const LoadOutcome outcome = bench_.Load(GetParam());
  if (outcome != LoadOutcome::kLoaded) {
    EXPECT_FALSE(bench_.dialogs.messages.empty());
    return;
  }
  SelectEverything(bench_.selection, bench_.document);
  DrawInEveryWay();
  bench_.document.toolIndex = ToolMode::kEdit;
  bench_.Snapshot();
  ASSERT_EQ(LoadMap(bench_.Context(), bench_.folder / "undo.tmp", true), LoadOutcome::kLoaded);
  const auto lasts = std::get<1>(StateOf(bench_.document));
  EXPECT_EQ(bench_.Saved().size(), kMapFileSize);
  bench_.dialogs.messages.clear();
  ASSERT_EQ(bench_.Load(bench_.folder / "saved.pmp"), LoadOutcome::kLoaded);
  EXPECT_TRUE(bench_.dialogs.messages.empty()) << "the damage is mended by the save";
  EXPECT_EQ(std::get<1>(StateOf(bench_.document)), lasts);
  DrawInEveryWay();
}

INSTANTIATE_TEST_SUITE_P(Files, HostileMapsTest, testing::ValuesIn(MapsOf("hostile")),
                         [](const auto& map) {
                           std::string name = std::filesystem::path(map.param).stem().string();
                           std::ranges::replace(name, '-', '_');
                           return name;
                         });
INSTANTIATE_TEST_SUITE_P(Sound, HostileMapsTest,
                         testing::Values(DataPath("full.pmp"), DataPath("terrain.pmp")));

}  // namespace
}  // namespace vesmora
