#include <windows.h>

#include <mutex>

#include "platform/interruptions.h"

namespace vesmora {
namespace {

std::mutex& Ending() {
  static std::mutex mutex;
  return mutex;
}

/// Called on a thread of its own. Keeps the lock: until the process has ended nothing more is
/// begun.
BOOL WINAPI End(DWORD /*event*/) {
  Ending().lock();
  return FALSE;  // as if there were no handler
}

}  // namespace

InterruptionsWait::InterruptionsWait() {
  static const BOOL kIsHandled = SetConsoleCtrlHandler(End, TRUE);
  static_cast<void>(kIsHandled);
  Ending().lock();
}

InterruptionsWait::~InterruptionsWait() { Ending().unlock(); }

}  // namespace vesmora
