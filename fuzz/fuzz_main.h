// What all targets need around their checks.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>  // setenv

#include <filesystem>

/// The images are large: with the usual quarantine nearly all the time would go into fresh
/// memory pages.
extern "C" const char* __asan_default_options() { return "quarantine_size_mb=8"; }

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  GTEST_FLAG_SET(throw_on_failure, true);  // a failed expectation is a find
  if (std::filesystem::is_directory("/dev/shm")) ::setenv("TMPDIR", "/dev/shm", 1);
  return 0;
}
