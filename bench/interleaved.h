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

class Times {
 public:
  explicit Times(Clock clock) : clock_(clock) {}

  /// Runs `work` once; seconds.
  template <typename Work>
  double Measure(Work&& work) {
    const double start = Now();
    work();
    benchmark::ClobberMemory();
    const double time = Now() - start;
    seconds_.push_back(time);
    return time;
  }

  double Median() {
    const auto middle = seconds_.begin() + static_cast<std::ptrdiff_t>(seconds_.size() / 2);
    std::nth_element(seconds_.begin(), middle, seconds_.end());
    return *middle;
  }

 private:
  double Now() const {
    std::timespec time = {};
    ::clock_gettime(clock_ == Clock::kWall ? CLOCK_MONOTONIC : CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
  }

  Clock clock_;
  std::vector<double> seconds_;
};

/// Reports the medians in microseconds and their ratio. The benchmark must use
/// manual time; its own time column is the mean of `subject`.
template <typename Floor, typename Subject>
void RunAgainstFloor(benchmark::State& state, Clock clock, Floor&& floor, Subject&& subject) {
  Times floorTimes(clock);
  Times subjectTimes(clock);
  for (int i = 0; i < 3; ++i) {  // caches, page tables, kept pens and labels
    floor();
    subject();
  }
  for ([[maybe_unused]] auto _ : state) {
    floorTimes.Measure(floor);
    state.SetIterationTime(subjectTimes.Measure(subject));
  }
  state.counters["floor_us"] = floorTimes.Median() * 1e6;
  state.counters["subject_us"] = subjectTimes.Median() * 1e6;
  state.counters["ratio"] = subjectTimes.Median() / floorTimes.Median();
}

}  // namespace vesmora::bench
