// What a mouse move costs while everything is selected: a drag step against the
// redraw that it cannot do without, and picking by a box.
#include <benchmark/benchmark.h>

#include <QColor>
#include <QFont>
#include <QImage>
#include <memory>
#include <stdexcept>

#include "interleaved.h"
#include "open_document.h"
#include "panel/panel_contents.h"
#include "tools/mouse_dispatch.h"
#include "tools/picking.h"
#include "view/layout.h"
#include "view/qt/painter_canvas.h"
#include "view/redraw_map.h"

namespace vesmora::bench {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr SelectionBox kEverywhere = {
    .left = -30000, .right = 30000, .top = -30000, .bottom = 30000};

/// A window's worth of editing without the window.
class Desk final : public Display {
 public:
  explicit Desk(const std::string& map)
      : image_(kWidth, kHeight, QImage::Format_RGB32), canvas_(QFont(), QColor(172, 190, 172)) {
    const auto opened = std::make_unique<OpenDocument>();
    if (!opened->Load(MapPath(map))) throw std::runtime_error("the map does not load");
    state_->document = opened->document;
    state_->view.area = ComputeDrawingArea(kWidth, kHeight);
    state_->selection.moveSnapshotTaken = true;  // one undo step a selection, long taken
  }

  void RedrawMap() override {
    canvas_.Begin(image_);
    const ToolDrawing tool;
    vesmora::RedrawMap({state_->document, state_->selection, state_->view, state_->show, tool},
                       canvas_);
    canvas_.End();
  }
  void RefreshInfoPanel() override { RefreshPanel(panel_, *state_); }
  void SetPointer(PointerShape) override {}

  void SelectEverything() {
    SelectInBox(AsEditing(), kEverywhere, true, SelectionKind::kAll);
    state_->selection.box = kEverywhere;
  }

  void SelectCorners() {
    state_->show.showFlags = {1, 0, 0, 0, 0, 0, 0};
    SelectEverything();
    state_->show.showFlags = {1, 1, 1, 1, 1, 0, 0};
  }

  void Press() { PressMouse(AsEditing(), {.button = MouseButton::kLeft, .x = 500, .y = 400}); }

  /// To and fro, so that the map stays where it is.
  void DragStep() {
    side_ = -side_;
    MoveMouse(AsEditing(), {.x = 500 + side_, .y = 400});
  }

 private:
  Editing AsEditing() { return {*state_, ports_}; }

  std::unique_ptr<EditingState> state_ = std::make_unique<EditingState>();
  SilentDialogs dialogs_;
  EditingPorts ports_{SystemFileCalls(), dialogs_, *this, [] { return 0.5; }};
  PanelContents panel_;
  QImage image_;
  PainterCanvas canvas_;
  float side_ = 1;
};

void DragAgainstRedraw(benchmark::State& state, const char* map) {
  Desk desk(map);
  desk.SelectCorners();
  desk.Press();
  RunAgainstFloor(
      state, Clock::kThread, [&] { desk.RedrawMap(); },
      [&] {
        desk.DragStep();
        desk.RefreshInfoPanel();
      });
}

void SelectInBoxWithPanel(benchmark::State& state, const char* map) {
  Desk desk(map);
  for ([[maybe_unused]] auto _ : state) desk.SelectEverything();
}

BENCHMARK_CAPTURE(DragAgainstRedraw, full, "full.pmp")->UseManualTime();
BENCHMARK_CAPTURE(DragAgainstRedraw, terrain, "terrain.pmp")->UseManualTime();
BENCHMARK_CAPTURE(SelectInBoxWithPanel, full, "full.pmp")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vesmora::bench
