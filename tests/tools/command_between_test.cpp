// Commands that come while the mouse is in the middle of something.
#include <gtest/gtest.h>

#include "support/tool_bench.h"
#include "tools/clipboard_commands.h"
#include "tools/edit_commands.h"
#include "tools/tool_change.h"

namespace vesmora {
namespace {

class CommandBetweenTest : public testing::Test, protected ToolBench {
 protected:
  void AddTriangle(float x) {
    ChangeTool(editing, ToolMode::kAddPolygon);
    for (const auto& [dx, dy] : {std::pair{0.0f, 0.0f}, {64.0f, 0.0f}, {0.0f, 64.0f}}) {
      Click(x + dx, dy);
    }
  }
};

TEST_F(CommandBetweenTest, AHoveredCornerThatIsTakenBackIsListedNoMore) {
  AddTriangle(-200);
  AddTriangle(0);
  Move(0, 0);
  ASSERT_EQ(Listed(), "v1.0");
  MenuDelete(editing);
  EXPECT_EQ(Listed(), "");
  MenuDelete(editing);
  ChangeTool(editing, ToolMode::kEdit);  // as a save does
  MenuDelete(editing);
  EXPECT_EQ(map.lastPolygon, -1);
}

TEST_F(CommandBetweenTest, WhatWorksAboutTheBoxFindsItWhole) {
  AddTriangle(0);
  Move(64, 0);
  ChangeTool(editing, ToolMode::kEdit);
  ASSERT_EQ(Listed(), "v0.1");
  MenuMirror(editing);
  EXPECT_EQ(map.polygons[0].vertices[1].x, 64) << "a hover has set no box";

  Press(300, 200);  // the first corner of a box that never comes
  MenuMirror(editing);
  MenuCopy(editing);
  EXPECT_EQ(map.polygons[0].vertices[1].x, 64);
  EXPECT_TRUE(state.clipboard.box.Complete());
}

}  // namespace
}  // namespace vesmora
