#include <QApplication>
#include <QIcon>
#include <QTimer>
#include <memory>
#include <thread>

#include "app/qt/ikkuna.h"
#include "platform/qt/font_configuration.h"

namespace {

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QString(":/vesmora-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

}  // namespace

int main(int argc, char** argv) {
  const std::jthread fonts(vesmora::ReadFontConfiguration);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vesmora");
  QApplication::setApplicationVersion(VESMORA_VERSION);
  QApplication::setDesktopFileName("vesmora");  // what ties its windows to its menu entry
  QApplication::setWindowIcon(ProgramIcon());

  // On the heap: the window holds whole tables, more than some stacks can take.
  const auto window = std::make_unique<vesmora::Ikkuna>();
  window->show();
  const std::string arguments = QApplication::arguments().mid(1).join(' ').toStdString();
  QTimer::singleShot(0, window.get(), [&] { window->Activate(arguments); });
  return QApplication::exec();
}
