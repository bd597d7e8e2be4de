// The edit commands against putting the map back, which is one copy of all it holds. No
// snapshot is written: there is no folder for undo files.
#include <memory>

#include "interleaved.h"
#include "open_document.h"
#include "tools/edit_commands.h"
#include "tools/picking.h"

namespace vesmora::bench {
namespace {

constexpr SelectionBox kEverywhere = {
    .left = -30000, .right = 30000, .top = -30000, .bottom = 30000};

using Command = void (*)(Editing& editing);

/// The map with everything selected and copied, then as `select` has it.
void Run(benchmark::State& state, const char* map, Command select, Command command) {
  const auto opened = Opened(MapPath(map));
  Editing& editing = *opened;
  SelectInBox(editing, kEverywhere, true, SelectionKind::kAll);
  MenuCopy(editing);
  select(editing);
  const auto document = std::make_unique<const MapDocument>(editing.document);
  const auto selection = std::make_unique<const Selection>(editing.selection);
  const auto clipboard = std::make_unique<const Clipboard>(editing.clipboard);
  RunAgainstFloor(
      state, Clock::kThread,
      [&] {
        editing.document = *document;
        editing.selection = *selection;
        editing.clipboard = *clipboard;
        editing.activity.Forget();
      },
      [&] { command(editing); });
}

void EditEverything(benchmark::State& state, const char* map, Command command) {
  const Command selectAll = [](Editing& editing) {
    SelectInBox(editing, kEverywhere, true, SelectionKind::kAll);
  };
  Run(state, map, selectAll, command);
}

/// What is left keeps half its connections.
void DeleteEverySecondWaypoint(benchmark::State& state, const char* map) {
  const Command selectHalf = [](Editing& editing) {
    ClearLists(editing.selection);
    for (std::int16_t slot = 0; slot <= editing.document.waypoints.last; slot += 2) {
      editing.selection.waypoints.Append(slot);
    }
  };
  Run(state, map, selectHalf, MenuDelete);
}

}  // namespace

#define VESMORA_EDIT_BENCHMARKS(map)                                                         \
  BENCHMARK_CAPTURE(EditEverything, map##_copy, #map ".pmp", MenuCopy)->UseManualTime();     \
  BENCHMARK_CAPTURE(EditEverything, map##_paste, #map ".pmp", MenuPaste)->UseManualTime();   \
  BENCHMARK_CAPTURE(EditEverything, map##_mirror, #map ".pmp", MenuMirror)->UseManualTime(); \
  BENCHMARK_CAPTURE(EditEverything, map##_front, #map ".pmp", MenuFront)->UseManualTime();   \
  BENCHMARK_CAPTURE(EditEverything, map##_delete, #map ".pmp", MenuDelete)->UseManualTime(); \
  BENCHMARK_CAPTURE(DeleteEverySecondWaypoint, map, #map ".pmp")->UseManualTime()

VESMORA_EDIT_BENCHMARKS(terrain);
VESMORA_EDIT_BENCHMARKS(full);

}  // namespace vesmora::bench
