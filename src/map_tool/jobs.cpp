#include "map_tool/jobs.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/interruptions.h"

namespace vesmora::map_tool {
namespace {

constexpr std::size_t kFilesPerJob = 2;  // one being worked on, one ready

struct Job {
  std::size_t index = 0;
  FileContents file;
  std::optional<Outcome> outcome;  // none without memory
  bool isDone = false;
};

bool TryToRead(const JobSteps& steps, Job& job) {
  try {
    steps.read(job.index, job.file);
    return true;
  } catch (const std::bad_alloc&) {
    job.file = {};
    return false;
  }
}

/// None without memory. An outcome that says so would need some: it is made by the calling thread.
std::optional<Outcome> TryToWork(const JobSteps& steps, const Job& job, Workbench& bench) {
  try {
    return steps.work(job.index, job.file, bench);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

void Finish(const JobSteps& steps, Job& job) {
  if (!job.outcome) job.outcome = steps.lackMemory(job.index);
  steps.finish(job.index, *job.outcome);
}

/// Threads that work on what is put in, in order, until they are told that there is no more.
class Workers {
 public:
  Workers(int count, const JobSteps& steps) : steps_(steps) {
    threads_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count && Start(); ++i) continue;
  }
  Workers(const Workers&) = delete;
  Workers& operator=(const Workers&) = delete;
  ~Workers() {
    {
      const std::lock_guard lock(mutex_);
      isClosed_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_) thread.join();
  }

  /// Those that could be started.
  std::size_t Count() const { return threads_.size(); }
  void Put(Job& job) {
    {
      const std::lock_guard lock(mutex_);
      waiting_.push_back(&job);
    }
    changed_.notify_all();
  }
  void WaitFor(const Job& job) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return job.isDone; });
  }

 private:
  /// What interrupts the program is for the calling thread, which says when.
  bool Start() {
    const InterruptionsWait wait;
    try {
      threads_.emplace_back([this, bench = std::make_unique<Workbench>()] { Work(*bench); });
      return true;
    } catch (const std::bad_alloc&) {
      return false;
    } catch (const std::system_error&) {
      return false;
    }
  }
  void Work(Workbench& bench) {
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return isClosed_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      Job& job = *waiting_.front();
      waiting_.pop_front();
      lock.unlock();
      job.outcome = TryToWork(steps_, job, bench);
      lock.lock();
      job.isDone = true;
      changed_.notify_all();
    }
  }

  const JobSteps& steps_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Job*> waiting_;
  bool isClosed_ = false;
  std::vector<std::thread> threads_;
};

void RunAlone(std::size_t count, const JobSteps& steps) {
  const auto bench = std::make_unique<Workbench>();
  Job job;
  for (job.index = 0; job.index < count; ++job.index) {
    const bool isRead = TryToRead(steps, job);
    job.outcome = isRead ? TryToWork(steps, job, *bench) : std::nullopt;
    Finish(steps, job);
  }
}

}  // namespace

void RunJobs(int jobs, std::size_t count, const JobSteps& steps) {
  const auto threads = static_cast<int>(std::min(static_cast<std::size_t>(jobs), count));
  if (threads <= 1) return RunAlone(count, steps);
  std::vector<Job> ring(kFilesPerJob * static_cast<std::size_t>(threads));
  Workers workers(threads, steps);
  if (workers.Count() == 0) return RunAlone(count, steps);
  const auto finish = [&](std::size_t i) {
    Job& job = ring[i % ring.size()];
    workers.WaitFor(job);
    Finish(steps, job);
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (i >= ring.size()) finish(i - ring.size());
    Job& job = ring[i % ring.size()];
    job.index = i;
    job.outcome.reset();
    job.isDone = !TryToRead(steps, job);
    if (!job.isDone) workers.Put(job);
  }
  for (std::size_t i = count - std::min(count, ring.size()); i < count; ++i) finish(i);
}

}  // namespace vesmora::map_tool
