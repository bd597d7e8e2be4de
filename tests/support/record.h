// Texts that are compared with those of an earlier run.
#pragma once

#include <cstdlib>

#include "support/bench.h"

namespace vesmora {

inline bool IsRecording() { return std::getenv("VESMORA_RECORD") != nullptr; }

/// With what stands in a file of tests/data; or puts it there.
inline void CompareWithRecord(const std::string& file, const std::string& results) {
  const std::string path = DataPath(file);
  const auto bytes = std::as_bytes(std::span(results));
  if (IsRecording()) PutFile(path, {bytes.begin(), bytes.end()});
  const Bytes known = FileBytes(path);
  const auto differs = std::ranges::mismatch(known, bytes).in2 - bytes.begin();
  constexpr std::ptrdiff_t kBefore = 300;
  EXPECT_TRUE(std::ranges::equal(known, bytes))
      << "Now, from a little before the first difference:\n"
      << results.substr(static_cast<std::size_t>(std::max(differs - kBefore, std::ptrdiff_t{0})),
                        2000);
}

}  // namespace vesmora
