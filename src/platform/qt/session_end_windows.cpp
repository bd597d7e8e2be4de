#include <QGuiApplication>

#include "platform/qt/session_end.h"

namespace vesmora {

// The system asks every program's windows, and ends those programs that agree.
SessionEnd::SessionEnd() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { Q_EMIT Announced(); });
}

}  // namespace vesmora
