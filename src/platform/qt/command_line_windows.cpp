#include <QCoreApplication>

#include "platform/qt/command_line.h"

namespace vesmora {

// `argv` has them in the code page that the system has for old programs.
std::string CommandLine(int /*argc*/, char** /*argv*/) {
  return QCoreApplication::arguments().mid(1).join(' ').toStdString();
}

}  // namespace vesmora
