// What a mouse move costs while everything is selected: a drag step against the
// redraw that it cannot do without, and picking by a box.
#include <benchmark/benchmark.h>

#include <QColor>
#include <QFont>
#include <QImage>
#include <memory>
#include <utility>

#include "interleaved.h"
#include "open_document.h"
#include "panel/refresh_panel.h"
#include "tools/mouse_dispatch.h"
#include "tools/picking.h"
#include "view/draw_map.h"
#include "view/qt/painter_canvas.h"

namespace vesmora::bench {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr SelectionBox kEverywhere = {
    .left = -30000, .right = 30000, .top = -30000, .bottom = 30000};

/// A window's worth of editing without the window.
class Desk {
 public:
  explicit Desk(const std::string& map)
      : opened_(Opened(MapPath(map))),
        image_(kWidth, kHeight, QImage::Format_RGB32),
        canvas_(QFont(), QColor(172, 190, 172)) {
    opened_->view.area = {kWidth, kHeight, 332, 40, 40};
    opened_->selection.moveSnapshotTaken = true;  // one undo step a selection, long taken
  }

  void Redraw() {
    canvas_.Begin(image_);
    const ToolDrawing tool;
    DrawMap({opened_->document, opened_->selection, opened_->view, opened_->show, tool}, canvas_);
    canvas_.End();
  }
  void RefreshContents() { RefreshPanel(panel_, *opened_); }
  /// As the window does it when an event has been handled.
  void BringUpToDate() {
    if (std::exchange(opened_->window.panelIsStale, false)) RefreshContents();
    if (std::exchange(opened_->window.mapIsStale, false)) Redraw();
  }

  void SelectEverything() {
    SelectInBox(*opened_, kEverywhere, true, SelectionKind::kAll);
    opened_->selection.box = kEverywhere;
  }

  void SelectCorners() {
    opened_->show.showFlags = {1, 0, 0, 0, 0, 0, 0};
    SelectEverything();
    opened_->show.showFlags = {1, 1, 1, 1, 1, 0, 0};
  }

  void Press() { PressMouse(*opened_, {.button = MouseButton::kLeft, .x = 500, .y = 400}); }

  /// To and fro, so that the map stays where it is.
  void DragStep() {
    side_ = -side_;
    MoveMouse(*opened_, {.x = 500 + side_, .y = 400});
  }

 private:
  std::unique_ptr<OpenDocument> opened_;
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
      state, Clock::kThread, [&] { desk.Redraw(); },
      [&] {
        desk.DragStep();
        desk.BringUpToDate();
        desk.RefreshContents();
      });
}

void SelectInBoxWithPanel(benchmark::State& state, const char* map) {
  Desk desk(map);
  for ([[maybe_unused]] auto _ : state) {
    desk.SelectEverything();
    desk.RefreshContents();
  }
}

BENCHMARK_CAPTURE(DragAgainstRedraw, full, "full.pmp")->UseManualTime();
BENCHMARK_CAPTURE(DragAgainstRedraw, terrain, "terrain.pmp")->UseManualTime();
BENCHMARK_CAPTURE(SelectInBoxWithPanel, full, "full.pmp")->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vesmora::bench
