// Ctrl-C, a closed terminal, a request to end: not while a file is half written.
#pragma once

#ifndef _WIN32
#include <csignal>
#endif

namespace vesmora {

/// While one lives, what would end the program waits, so that no temporary file is left behind;
/// afterwards it ends as ever. Must not be held while something is waited for that may never come.
/// Where signals are sent to threads, those that are started meanwhile never take one.
class InterruptionsWait {
 public:
  InterruptionsWait();
  ~InterruptionsWait();
  InterruptionsWait(const InterruptionsWait&) = delete;
  InterruptionsWait& operator=(const InterruptionsWait&) = delete;

#ifndef _WIN32
 private:
  sigset_t before_ = {};
#endif
};

}  // namespace vesmora
