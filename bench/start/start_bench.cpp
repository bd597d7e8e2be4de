// From the start of the process to the first frame: the editor against a bare window. Needs a
// display. Settings and temporary files lie in the folder of the benchmark, not in the user's.
#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <fstream>
#include <string>

#include "interleaved.h"
#include "scratch_folder.h"

namespace vesmora::bench {
namespace {

/// A program that writes a byte to standard output at its first frame and ends.
class WatchedProgram {
 public:
  WatchedProgram(std::string path, std::string argument)
      : path_(std::move(path)), argument_(std::move(argument)) {}

  /// Runs it; seconds to the first frame.
  double Start() {
    std::array<int, 2> ends = {};
    Require(::pipe(ends.data()) == 0, "no pipe");
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_addclose(&actions, ends[0]);
    ::posix_spawn_file_actions_addclose(&actions, ends[1]);
    std::array<char*, 3> arguments = {path_.data(), argument_.empty() ? nullptr : argument_.data(),
                                      nullptr};
    const double begin = SecondsOn(Clock::kWall);
    pid_t process = 0;
    Require(
        ::posix_spawn(&process, path_.c_str(), &actions, nullptr, arguments.data(), environ) == 0,
        "not started");
    ::close(ends[1]);
    char told = 0;
    Require(::read(ends[0], &told, 1) == 1, "no frame");
    const double end = SecondsOn(Clock::kWall);
    ::close(ends[0]);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    Require(::waitpid(process, &status, 0) == process && status == 0, "not ended well");
    return end - begin;
  }

 private:
  std::string path_;
  std::string argument_;
};

void StartAgainstBareWindow(benchmark::State& state, const char* map) {
  const ScratchFolder folder;
  for (const char* variable : {"XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "TMPDIR", "VESMORA_GAME"}) {
    ::setenv(variable, folder.Path().c_str(), 1);
  }
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 0);  // where there is none, start none
  std::ofstream(folder / "Soldat.exe");                  // no message about a game that is missing
  WatchedProgram bare(VESMORA_BARE_WINDOW, "");
  WatchedProgram editor(VESMORA_WATCHED_EDITOR, map);
  CompareWithFloor(
      state, [&] { return bare.Start(); }, [&] { return editor.Start(); });
}

}  // namespace

BENCHMARK_CAPTURE(StartAgainstBareWindow, empty, "")->UseManualTime();
BENCHMARK_CAPTURE(StartAgainstBareWindow, full, VESMORA_TEST_DATA "/full.pmp")->UseManualTime();

}  // namespace vesmora::bench
