#include "view/layout.h"

#include <gtest/gtest.h>

namespace vesmora {
namespace {

TEST(LayoutTest, PanelsLieOverTheEdges) {
  for (const auto& [w, h] : {std::pair{1280, 860}, {880, 614}, {3840, 2100}, {0, 0}}) {
    const WindowLayout layout = ComputeLayout(w, h);
    const int panel = layout.ppalkki.width;
    const int bottom = layout.pala.height;
    const int top = layout.pyla.height;
    EXPECT_EQ(layout.ppalkki, (PanelRect{w - panel, 0, panel, h + 2}));
    EXPECT_EQ(layout.pala, (PanelRect{0, h - bottom, w - panel + 4, bottom}));
    EXPECT_EQ(layout.pyla, (PanelRect{0, 0, w, top}));
    const int frame = layout.fmaski0.width;
    EXPECT_EQ(layout.fmaski0, (PanelRect{w - panel - 15, h - bottom + 2, frame, bottom - 4}));
    EXPECT_EQ(layout.fmaski1, (PanelRect{w - panel - 15, 0, frame, top - 3}));
    EXPECT_EQ(MinimumWindowSize(), (WindowSize{panel + 648, bottom + top + 534}));

    const DrawingArea area = ComputeDrawingArea(w, h);
    EXPECT_EQ(area.width, w);
    EXPECT_EQ(area.height, h);
    EXPECT_EQ(area.rightPanelWidth, panel);
    EXPECT_EQ(area.bottomPanelHeight, bottom);
  }
}

}  // namespace
}  // namespace vesmora
