#include "platform/qt/qt_shell.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/qt/qt_text.h"

namespace vesmora {

bool QtShell::OpenFile(const std::string& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQt(path)));
}

}  // namespace vesmora
