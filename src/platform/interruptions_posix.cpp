#include <initializer_list>

#include "platform/interruptions.h"

namespace vesmora {

InterruptionsWait::InterruptionsWait() {
  sigset_t waiting;
  sigemptyset(&waiting);
  for (const int signal : {SIGHUP, SIGINT, SIGTERM}) sigaddset(&waiting, signal);
  pthread_sigmask(SIG_BLOCK, &waiting, &before_);
}

InterruptionsWait::~InterruptionsWait() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

}  // namespace vesmora
