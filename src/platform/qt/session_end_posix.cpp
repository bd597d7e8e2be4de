#include <sys/socket.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QSocketNotifier>
#include <array>
#include <csignal>

#include "platform/qt/session_end.h"

namespace vesmora {
namespace {

// A signal may come in the middle of anything: all it does is to wake the event loop up.
std::array<int, 2> wakeUp = {-1, -1};

void OnSignal(int /*signal*/) {
  const char byte = 0;
  [[maybe_unused]] const auto count = ::write(wakeUp[0], &byte, 1);
}

}  // namespace

SessionEnd::SessionEnd() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT Announced(); });
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, wakeUp.data()) < 0) {
    return;
  }
  auto* notifier = new QSocketNotifier(wakeUp[1], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
    notifier->setEnabled(false);
    Q_EMIT Came();
  });
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    struct sigaction action = {};
    ::sigaction(signal, nullptr, &action);
    if (action.sa_handler == SIG_IGN) continue;  // whoever started the program wants it so
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    ::sigaction(signal, &action, nullptr);
  }
}

}  // namespace vesmora
