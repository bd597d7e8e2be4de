// Work on many files at once. Files are read and written by the calling thread alone, in their
// order, as FileCalls serve one thread; what is done with their bytes is spread over the others.
#pragma once

#include <cstddef>
#include <functional>

#include "map_tool/outcome.h"
#include "map_tool/workbench.h"
#include "platform/files.h"

namespace vesmora::map_tool {

struct JobSteps {
  std::function<void(std::size_t, FileContents&)> read;
  /// Runs on any thread, for several files at the same time; each with a bench of its own.
  std::function<Outcome(std::size_t, const FileContents&, Workbench&)> work;
  /// Stands in for the work's outcome when there was not enough memory to read or to work.
  std::function<Outcome(std::size_t)> lackMemory;
  std::function<void(std::size_t, Outcome&)> finish;
};

/// Takes files 0 to `count` - 1 through the steps. `jobs` is at least 1; with 1 there is no other
/// thread. Does with fewer threads, or none, when the system does not give so many. No more than a
/// few files a job are in memory at a time.
void RunJobs(int jobs, std::size_t count, const JobSteps& steps);

}  // namespace vesmora::map_tool
