// A picture of a whole run of vesmora-map against the window's redraw of the same map at the same
// size, and the encoder.
#include <benchmark/benchmark.h>

#include <QFont>
#include <QImage>
#include <memory>

#include "interleaved.h"
#include "map_tool/commands.h"
#include "map_tool/png_file.h"
#include "open_document.h"
#include "view/draw_map.h"
#include "view/qt/painter_canvas.h"

namespace vesmora::bench {
namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 800;

void RenderAgainstRedraw(benchmark::State& state, const char* map) {
  const auto opened = Opened(MapPath(map));
  opened->view.area = {kWidth, kHeight, 0, 0, 0};
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  PainterCanvas canvas(QFont(), kMapBackground);
  const auto redraw = [&] {
    canvas.Begin(image);
    DrawMap({opened->document, opened->selection, opened->view, opened->show, ToolDrawing{}},
            canvas);
    canvas.End();
    return map_tool::EncodePng({reinterpret_cast<std::uint32_t*>(image.bits()),
                                image.bytesPerLine() / 4, kWidth, kHeight});
  };
  map_tool::Arguments arguments;
  arguments.command = map_tool::Command::kRender;
  arguments.picture.zoom = 1;
  arguments.picture.center = WorldPoint{};
  const map_tool::Input input{MapPath(map), map, ""};
  const FileContents file = ReadFile(SystemFileCalls(), input.path, kMapReadLimit);
  const auto bench = std::make_unique<map_tool::Workbench>();
  const auto render = [&] {
    return map_tool::RenderOne(
        {.arguments = arguments, .input = input, .file = file, .target = "picture.png"}, *bench);
  };
  RunAgainstFloor(
      state, Clock::kThread, [&] { benchmark::DoNotOptimize(redraw()); },
      [&] { benchmark::DoNotOptimize(render()); });
  Times encoding;
  for (int i = 0; i < 9; ++i) {
    encoding.Add(Measured(Clock::kThread, [&] {
      map_tool::EncodePng({reinterpret_cast<std::uint32_t*>(image.bits()), image.bytesPerLine() / 4,
                           kWidth, kHeight});
    }));
  }
  const double encoder = encoding.Median() * 1e6;
  state.counters["encoder_us"] = encoder;
  state.counters["ratio_without_encoder"] =
      (state.counters["subject_us"] - encoder) / (state.counters["floor_us"] - encoder);
}

}  // namespace

BENCHMARK_CAPTURE(RenderAgainstRedraw, terrain, "terrain.pmp")->UseManualTime();
BENCHMARK_CAPTURE(RenderAgainstRedraw, full, "full.pmp")->UseManualTime();

}  // namespace vesmora::bench
