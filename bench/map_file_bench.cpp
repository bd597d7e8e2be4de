// Loading and saving against moving the same bytes with bare system calls.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "document/map_image.h"
#include "interleaved.h"
#include "open_document.h"
#include "scratch_folder.h"

namespace vesmora::bench {
namespace {

enum class Variant { kMap, kUndo };

std::size_t SizeOf(Variant variant) {
  return variant == Variant::kUndo ? kUndoFileSize : kMapFileSize;
}

/// The bare calls. Like a well-made program, they use one buffer over and over.
class RawTransfer {
 public:
  explicit RawTransfer(std::size_t size) : buffer_(size) {}

  void Read(const std::string& path) {
    const int file = Opened(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    Require(::read(file, buffer_.data(), buffer_.size()) == Size(), "short read");
    ::close(file);
  }

  void Write(const std::string& path) {
    const int file = Opened(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    Require(::write(file, buffer_.data(), buffer_.size()) == Size(), "short write");
    ::close(file);
  }

  /// What any save must do that survives a power cut: a new file, synced, read back,
  /// renamed over the old one, and the folder synced.
  void WriteDurably(const std::string& path, const std::string& folder) {
    const std::string temporary = path + ".new";
    const int file = Opened(::open(temporary.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    Require(::write(file, buffer_.data(), buffer_.size()) == Size(), "short write");
    Require(::fsync(file) == 0, "no sync");
    Require(::pread(file, buffer_.data(), buffer_.size(), 0) == Size(), "short read");
    ::close(file);
    Require(::rename(temporary.c_str(), path.c_str()) == 0, "no rename");
    const int directory = Opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Require(::fsync(directory) == 0, "no folder sync");
    ::close(directory);
  }

 private:
  static int Opened(int file) {
    Require(file >= 0, "cannot open");
    return file;
  }
  ssize_t Size() const { return static_cast<ssize_t>(buffer_.size()); }

  std::vector<char> buffer_;
};

void Load(benchmark::State& state, const char* map, Variant variant) {
  const ScratchFolder folder;
  const auto opened = Opened(MapPath(map));
  const std::string path = folder / "map.pmp";
  const bool isUndo = variant == Variant::kUndo;
  Require(opened->Write(path, isUndo), "the map cannot be written");
  RawTransfer raw(SizeOf(variant));
  RunAgainstFloor(
      state, Clock::kWall, [&] { raw.Read(path); },
      [&] { Require(opened->Load(path, isUndo), "not loaded"); });
}

/// A whole undo step, its file put in the ring; the floor is the bare write of its bytes
/// to as many files in turn, which are no likelier to lie in the processor's cache.
void UndoSnapshot(benchmark::State& state, const char* map) {
  const ScratchFolder folder;
  const auto opened = Opened(MapPath(map));
  RawTransfer raw(kUndoFileSize);
  UndoJournal& journal = opened->journal;
  journal.folder = HoldUndoFolder(SystemFileCalls(), folder.Path());
  int turn = 0;
  RunAgainstFloor(
      state, Clock::kWall,
      [&] { raw.Write(folder.Path() + "raw" + std::to_string(turn++ % (kUndoSteps + 1))); },
      [&] { TakeUndoSnapshot(*opened, "Move"); });
  Require(journal.undoAvailable >= 0 && !journal.failureTold, "not written");
}

/// A save against the same bytes written with the same promise.
void SaveAgainstDurableWrite(benchmark::State& state, const char* map) {
  const ScratchFolder folder;
  const auto opened = Opened(MapPath(map));
  RawTransfer raw(kMapFileSize);
  RunAgainstFloor(
      state, Clock::kWall, [&] { raw.WriteDurably(folder / "raw.pmp", folder.Path()); },
      [&] { Require(opened->Write(folder / "map.pmp", false), "not written"); });
}

/// A save against a write that promises nothing: the price of not losing a map. Syncing to
/// the disk is nearly all of it, so this ratio says more about the disk than about the code.
void SaveAgainstUnsyncedWrite(benchmark::State& state, const char* map) {
  const ScratchFolder folder;
  const auto opened = Opened(MapPath(map));
  RawTransfer raw(kMapFileSize);
  RunAgainstFloor(
      state, Clock::kWall, [&] { raw.Write(folder / "raw.pmp"); },
      [&] { Require(opened->Write(folder / "map.pmp", false), "not written"); });
}

}  // namespace

#define VESMORA_MAP_FILE_BENCHMARKS(map)                                             \
  BENCHMARK_CAPTURE(Load, map, #map ".pmp", Variant::kMap)->UseManualTime();         \
  BENCHMARK_CAPTURE(Load, map##_undo, #map ".pmp", Variant::kUndo)->UseManualTime(); \
  BENCHMARK_CAPTURE(UndoSnapshot, map, #map ".pmp")->UseManualTime();                \
  BENCHMARK_CAPTURE(SaveAgainstDurableWrite, map, #map ".pmp")->UseManualTime();     \
  BENCHMARK_CAPTURE(SaveAgainstUnsyncedWrite, map, #map ".pmp")->UseManualTime()

VESMORA_MAP_FILE_BENCHMARKS(terrain);
VESMORA_MAP_FILE_BENCHMARKS(full);

}  // namespace vesmora::bench
