// Whole redraws at 1280 x 800 against a plain rasteriser that draws the same
// primitives into the same picture.
#include <benchmark/benchmark.h>

#include <QColor>
#include <QFont>
#include <QImage>
#include <algorithm>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "allocations.h"
#include "interleaved.h"
#include "open_document.h"
#include "plain_rasteriser.h"
#include "view/draw_map.h"
#include "view/qt/painter_canvas.h"

namespace vesmora::bench {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;
constexpr std::uint32_t kBackground = 0xFFACBEAC;

/// One map on one picture, as a window would hold them.
class Redraw {
 public:
  explicit Redraw(const std::string& path)
      : opened_(Opened(path)),
        image_(kWidth, kHeight, QImage::Format_RGB32),
        canvas_(QFont(), QColor::fromRgb(kBackground)) {
    opened_->view.area = {kWidth, kHeight, 332, 40, 40};
    pixels_ = {reinterpret_cast<std::uint32_t*>(image_.bits()), std::size_t{kWidth} * kHeight};
  }

  void SetZoom(float zoom) { opened_->view.zoom = zoom; }

  void Draw() {
    canvas_.Begin(image_);
    DrawMap(Scene(), canvas_);
    canvas_.End();
  }

  /// Keeps the primitives that a Draw would paint now; gives their number.
  std::size_t Record() {
    PrimitiveRecorder recorder(canvas_);
    DrawMap(Scene(), recorder);
    primitives_ = recorder.Primitives();
    return primitives_.size();
  }

  void DrawRecordedPlainly() { DrawPlainly(primitives_, kBackground, {pixels_, kWidth, kHeight}); }

 private:
  MapScene Scene() {
    return {opened_->document, opened_->selection, opened_->view, opened_->show, tool_};
  }

  std::unique_ptr<OpenDocument> opened_;
  QImage image_;
  PainterCanvas canvas_;
  ToolDrawing tool_;
  std::span<std::uint32_t> pixels_;
  std::vector<Primitive> primitives_;
};

void RedrawAgainstPlain(benchmark::State& state, const char* map) {
  Redraw redraw(MapPath(map));
  redraw.SetZoom(kZoomLevels[static_cast<std::size_t>(state.range(0))]);
  state.counters["primitives"] = static_cast<double>(redraw.Record());
  RunAgainstFloor(
      state, Clock::kThread, [&] { redraw.DrawRecordedPlainly(); }, [&] { redraw.Draw(); });

  const std::uint64_t before = AllocationCount();
  redraw.Draw();
  state.counters["allocations"] = static_cast<double>(AllocationCount() - before);
}

void DrawAtEveryZoom(Redraw& redraw) {
  for (const float zoom : kZoomLevels) {
    redraw.SetZoom(zoom);
    redraw.Draw();
  }
}

/// A damaged map must not take longer to draw than a sound one.
void RedrawHostileAgainstSound(benchmark::State& state, const std::string& path) {
  Redraw sound(MapPath("terrain.pmp"));
  Redraw hostile(path);
  RunAgainstFloor(
      state, Clock::kThread, [&] { DrawAtEveryZoom(sound); }, [&] { DrawAtEveryZoom(hostile); });
}

const bool hostileRegistered = [] {
  std::error_code missing;
  std::vector<std::filesystem::path> maps;
  for (const auto& entry : std::filesystem::directory_iterator(MapPath("hostile"), missing)) {
    if (entry.path().extension() == ".pmp") maps.push_back(entry.path());
  }
  std::ranges::sort(maps);
  for (const auto& map : maps) {
    const std::string name = "RedrawHostileAgainstSound/" + map.stem().string();
    benchmark::RegisterBenchmark(name.c_str(), RedrawHostileAgainstSound, map.string())
        ->UseManualTime();
  }
  return true;
}();

}  // namespace

BENCHMARK_CAPTURE(RedrawAgainstPlain, terrain, "terrain.pmp")
    ->ArgName("zoom")
    ->DenseRange(0, kZoomLevels.size() - 1)
    ->UseManualTime();
BENCHMARK_CAPTURE(RedrawAgainstPlain, full, "full.pmp")
    ->ArgName("zoom")
    ->DenseRange(0, kZoomLevels.size() - 1)
    ->UseManualTime();

}  // namespace vesmora::bench
