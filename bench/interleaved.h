// Times a piece of the program against the least work that could do the same,
// turn and turn about, so that both see the same machine in the same mood.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <vector>

namespace vesmora::bench {

/// What the clock on the wall says, waiting for a disk included, or what this thread
/// computed, whatever else the machine was doing.
enum class Clock { kWall, kThread };

inline double SecondsOn(Clock clock) {
  std::timespec time = {};
  ::clock_gettime(clock == Clock::kWall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// What `work` takes; seconds.
template <typename Work>
double Measured(Clock clock, Work&& work) {
  const double start = SecondsOn(clock);
  work();
  benchmark::ClobberMemory();
  return SecondsOn(clock) - start;
}

class Times {
 public:
  double Add(double seconds) { return seconds_.emplace_back(seconds); }

  double Median() {
    const auto middle = seconds_.begin() + static_cast<std::ptrdiff_t>(seconds_.size() / 2);
    std::nth_element(seconds_.begin(), middle, seconds_.end());
    return *middle;
  }

 private:
  std::vector<double> seconds_;
};

/// Reports the medians in microseconds and their ratio. Each call of `floor` and `subject` gives
/// the seconds it took. The benchmark must use manual time; its own time column is the mean of
/// `subject`.
template <typename Floor, typename Subject>
void CompareWithFloor(benchmark::State& state, Floor&& floor, Subject&& subject) {
  Times floorTimes;
  Times subjectTimes;
  for (int i = 0; i < 3; ++i) {  // caches, page tables, kept pens and labels
    floor();
    subject();
  }
  for ([[maybe_unused]] auto _ : state) {
    floorTimes.Add(floor());
    state.SetIterationTime(subjectTimes.Add(subject()));
  }
  state.counters["floor_us"] = floorTimes.Median() * 1e6;
  state.counters["subject_us"] = subjectTimes.Median() * 1e6;
  state.counters["ratio"] = subjectTimes.Median() / floorTimes.Median();
}

/// The same of pieces of work that are measured by `clock`.
template <typename Floor, typename Subject>
void RunAgainstFloor(benchmark::State& state, Clock clock, Floor&& floor, Subject&& subject) {
  CompareWithFloor(
      state, [&] { return Measured(clock, floor); }, [&] { return Measured(clock, subject); });
}

}  // namespace vesmora::bench
