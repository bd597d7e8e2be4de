// Being told by the system to end.
#pragma once

#include <QObject>

namespace vesmora {

/// One for the whole program.
class SessionEnd final : public QObject {
  Q_OBJECT

 public:
  SessionEnd();

 Q_SIGNALS:
  /// The session may end; it can still be called off.
  void Announced();
  /// The program must end now.
  void Came();
};

}  // namespace vesmora
