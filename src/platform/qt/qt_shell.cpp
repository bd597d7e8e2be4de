#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QUrl>

namespace vesmora {

bool QtShell::OpenFile(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(path)));
}

}  // namespace vesmora
