// What happens with every mouse move allocates nothing, the panel's contents included.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "app/view_commands.h"
#include "panel/refresh_panel.h"
#include "support/editor_bench.h"
#include "support/map_builder.h"

namespace {

int allocations = 0;

}  // namespace

// Inlined, they would look to g++ like memory that is freed by another hand.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  ++allocations;
  return std::malloc(size);
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

namespace vesmora {
namespace {

class AllocationsTest : public testing::Test, protected EditorBench {
 protected:
  AllocationsTest() {
    AddNumbered(map, 6);
    window.notes = false;
    window.onRefresh = [this] { ++refreshes_; };
  }

  /// Allocations of a second such event, each followed by what the window does.
  template <typename Event>
  int Count(Event event) {
    for (int i = 0; i < 2; ++i) {
      allocations = 0;
      event(static_cast<float>(i));
      if (std::exchange(refreshes_, 0) > 0) RefreshPanel(editor.panel.contents, editor);
    }
    return allocations;
  }
  MouseInput At(float x, float y) const {
    return {.button = MouseButton::kLeft,
            .x = editor.view.LaskeRuutuX(x),
            .y = editor.view.LaskeRuutuY(y)};
  }

 private:
  int refreshes_ = 0;
};

TEST_F(AllocationsTest, NoneForAHoverACornerAndAStepOfADrag) {
  for (const ToolMode tool : {ToolMode::kAddPolygon, ToolMode::kAddWaypoint, ToolMode::kEdit}) {
    Choose(tool);
    EXPECT_EQ(Count([this](float i) { PointAt(editor, At(12345 + i, -54321)); }), 0);
    EXPECT_EQ(Count([this](float i) { PointAt(editor, At(20 + i / 4, 50)); }), 0);
  }
  Choose(ToolMode::kAddPolygon);
  PressMouse(editor, At(300, 300));  // takes the undo step
  EXPECT_EQ(Count([this](float i) { PointAt(editor, At(350, 300 + i)); }), 0);
  allocations = 0;
  PressMouse(editor, At(350, 300));
  RefreshPanel(editor.panel.contents, editor);
  EXPECT_EQ(allocations, 0);

  Choose(ToolMode::kEdit);
  SelectEverything(selection, map);
  PressMouse(editor, At(50, 20));
  PointAt(editor, At(51, 20));  // takes the undo step
  EXPECT_EQ(Count([this](float i) { PointAt(editor, At(52 + i, 20)); }), 0);
}

}  // namespace
}  // namespace vesmora
