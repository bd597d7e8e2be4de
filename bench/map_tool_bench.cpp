// Whole runs over folders of maps against reading their bytes. All of it on one thread, whose time
// is taken: what other threads save depends on what else the machine does.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <vector>

#include "document/map_image.h"
#include "interleaved.h"
#include "map_tool/map_tool.h"
#include "open_document.h"
#include "scratch_folder.h"

namespace vesmora::bench {
namespace {

/// Forgets what it is told.
struct NoConsole final : Console {
  FileContents ReadInput(std::size_t) override { return {}; }
  FileStatus Write(std::span<const std::byte>) override { return {}; }
  void Tell(std::string_view) override {}
  bool OutputIsTerminal() const override { return false; }
  bool ErrorIsTerminal() const override { return false; }
};

/// A folder of so many maps as an editor has saved them.
class Archive {
 public:
  explicit Archive(int count) {
    constexpr std::array kMaps = {"terrain_saved.pmp", "terrain_compiled.pmp", "small_saved.pmp",
                                  "small_compiled.pmp", "settled.pmp"};
    for (int i = 0; i < count; ++i) {
      paths_.push_back(folder_.Path() + std::to_string(i) + ".pmp");
      std::filesystem::copy_file(MapPath(kMaps[static_cast<std::size_t>(i) % kMaps.size()]),
                                 paths_.back());
    }
  }

  void Read() {
    static std::vector<char> buffer(kMapFileSize);
    for (const std::string& path : paths_) {
      const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
      Require(file >= 0 && ::read(file, buffer.data(), buffer.size()) > 0, "cannot read");
      ::close(file);
    }
  }
  void Run(const std::string& command) {
    NoConsole console;
    map_tool::World world{.console = console,
                          .files = SystemFileCalls(),
                          .random = [] { return 0.5; },
                          .tempFolder = [] { return std::string(); },
                          .processors = 1,
                          .gameFolder = {}};
    Require(map_tool::RunMapTool({command, folder_.Path()}, world) < 2, "not read");
  }

 private:
  ScratchFolder folder_;
  std::vector<std::string> paths_;
};

void AgainstReading(benchmark::State& state, const char* command) {
  Archive archive(static_cast<int>(state.range(0)));
  RunAgainstFloor(
      state, Clock::kThread, [&] { archive.Read(); }, [&] { archive.Run(command); });
}

}  // namespace

BENCHMARK_CAPTURE(AgainstReading, info, "info")->Arg(1000)->UseManualTime();
BENCHMARK_CAPTURE(AgainstReading, check, "check")->Arg(1000)->UseManualTime();

}  // namespace vesmora::bench
