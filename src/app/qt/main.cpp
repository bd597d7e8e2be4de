#include <QApplication>
#include <QTimer>

#include "app/qt/ikkuna.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vesmora");
  QApplication::setApplicationVersion(VESMORA_VERSION);

  vesmora::Ikkuna window;
  window.show();
  const std::string arguments = QApplication::arguments().mid(1).join(' ').toStdString();
  QTimer::singleShot(0, &window, [&] { window.Activate(arguments); });
  return QApplication::exec();
}
