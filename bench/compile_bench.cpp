// Compiling a map against what it cannot do without: the undo step, and a cleared grid that
// as many numbers are written to.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "interleaved.h"
#include "launch/sector_compiler.h"
#include "open_document.h"

namespace vesmora::bench {
namespace {

void FillGrid(benchmark::State& state, const char* map) {
  const auto opened = Opened(MapPath(map));
  MapDocument& document = opened->document;
  FillSectors(document);
  const auto filled = std::make_unique<MapDocument>(document);
  RunAgainstFloor(
      state, Clock::kThread,
      [&] {
        document.sectors.fill({});
        for (std::size_t i = 0; i < document.sectors.size(); ++i) {
          const std::int16_t count = filled->sectors[i].count;
          for (std::int16_t slot = 0; slot < count; ++slot) {
            document.sectors[i].polygons[static_cast<std::size_t>(slot)] = slot;
          }
          document.sectors[i].count = count;
        }
      },
      [&] { FillSectors(document); });
}

/// The difference of the two times is what compiling costs beside its undo step.
void Compile(benchmark::State& state, const char* map) {
  const std::string folder = VESMORA_BENCH_FOLDER "/compile/";
  std::filesystem::create_directories(folder);
  const auto opened = Opened(MapPath(map));
  opened->journal.folder = HoldUndoFolder(SystemFileCalls(), folder);
  RunAgainstFloor(
      state, Clock::kThread, [&] { TakeUndoSnapshot(*opened, "Move"); },
      [&] {
        if (!CompileSectors(*opened)) throw std::runtime_error("not compiled");
      });
  std::filesystem::remove_all(folder);
}

}  // namespace

BENCHMARK_CAPTURE(FillGrid, terrain, "terrain.pmp")->UseManualTime();
BENCHMARK_CAPTURE(FillGrid, full, "full.pmp")->UseManualTime();
BENCHMARK_CAPTURE(Compile, terrain, "terrain.pmp")->UseManualTime();
BENCHMARK_CAPTURE(Compile, full, "full.pmp")->UseManualTime();

}  // namespace vesmora::bench
