#include <QApplication>
#include <QTimer>
#include <memory>
#include <thread>

#include "app/qt/ikkuna.h"
#include "platform/qt/font_configuration.h"

int main(int argc, char** argv) {
  const std::jthread fonts(vesmora::ReadFontConfiguration);
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vesmora");
  QApplication::setApplicationVersion(VESMORA_VERSION);

  // On the heap: the window holds whole tables, more than some stacks can take.
  const auto window = std::make_unique<vesmora::Ikkuna>();
  window->show();
  const std::string arguments = QApplication::arguments().mid(1).join(' ').toStdString();
  QTimer::singleShot(0, window.get(), [&] { window->Activate(arguments); });
  return QApplication::exec();
}
