#include "map_tool/jobs.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace vesmora::map_tool {
namespace {

constexpr std::size_t kFilesPerJob = 2;  // one being worked on, one ready

struct Job {
  std::size_t index = 0;
  FileContents file;
  Outcome outcome;
  bool isDone = false;
};

/// Threads that work on what is put in, in order, until they are told that there is no more.
class Workers {
 public:
  Workers(int count, const JobSteps& steps) : steps_(steps) {
    for (int i = 0; i < count; ++i) threads_.emplace_back([this] { Work(); });
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

  void Put(Job& job) {
    {
      const std::lock_guard lock(mutex_);
      job.isDone = false;
      waiting_.push_back(&job);
    }
    changed_.notify_all();
  }
  void WaitFor(const Job& job) {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return job.isDone; });
  }

 private:
  void Work() {
    const auto bench = std::make_unique<Workbench>();
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return isClosed_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      Job& job = *waiting_.front();
      waiting_.pop_front();
      lock.unlock();
      job.outcome = steps_.work(job.index, job.file, *bench);
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
  FileContents file;
  for (std::size_t i = 0; i < count; ++i) {
    steps.read(i, file);
    Outcome outcome = steps.work(i, file, *bench);
    steps.finish(i, outcome);
  }
}

}  // namespace

void RunJobs(int jobs, std::size_t count, const JobSteps& steps) {
  const auto threads = static_cast<int>(std::min(static_cast<std::size_t>(jobs), count));
  if (threads <= 1) return RunAlone(count, steps);
  std::vector<Job> ring(kFilesPerJob * static_cast<std::size_t>(threads));
  Workers workers(threads, steps);
  const auto finish = [&](std::size_t i) {
    Job& job = ring[i % ring.size()];
    workers.WaitFor(job);
    steps.finish(i, job.outcome);
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (i >= ring.size()) finish(i - ring.size());
    Job& job = ring[i % ring.size()];
    job.index = i;
    steps.read(i, job.file);
    workers.Put(job);
  }
  for (std::size_t i = count - std::min(count, ring.size()); i < count; ++i) finish(i);
}

}  // namespace vesmora::map_tool
