#include <QApplication>
#include <QFontMetrics>
#include <QIcon>
#include <QTimer>
#include <chrono>
#include <memory>
#include <thread>

#include "app/qt/ikkuna.h"
#include "platform/console.h"
#include "platform/freed_memory.h"
#include "platform/qt/session_end.h"

namespace {

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    icon.addFile(QString(":/vesmora-%1.png").arg(size), QSize(size, size));
  }
  return icon;
}

/// Lets the toolkit find the system's fonts, which takes as long as building the window does
/// without them. Any thread can.
void FindFonts(const QString& family) { static_cast<void>(QFontMetrics(QFont(family)).height()); }

}  // namespace

int main(int argc, char** argv) {
  using namespace std::chrono_literals;
  vesmora::KeepFreedMemory();
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vesmora");
  QApplication::setApplicationVersion(VESMORA_VERSION);
  QApplication::setDesktopFileName("vesmora");  // what ties its windows to its menu entry
  const std::jthread fonts(FindFonts, QApplication::font().family());

  // On the heap: the window holds whole tables, more than some stacks can take.
  const auto window = std::make_unique<vesmora::Ikkuna>();
  window->show();
  const vesmora::SessionEnd sessionEnd;
  QObject::connect(&sessionEnd, &vesmora::SessionEnd::Announced, window.get(),
                   &vesmora::Ikkuna::PrepareForSessionEnd);
  QObject::connect(&sessionEnd, &vesmora::SessionEnd::Came, window.get(), [&] {
    window->EndSession();
    QApplication::exit();
  });
  std::string arguments;  // as they are: the toolkit's are cut to what the locale can tell
  for (const std::string& argument : vesmora::ProgramArguments(argc, argv)) {
    arguments += (arguments.empty() ? "" : " ") + argument;
  }
  QTimer::singleShot(0, window.get(), [&] { window->Activate(arguments); });
  // Seven pictures to unpack and to hand over can wait until the first frame is out.
  QTimer::singleShot(100ms, window.get(), [] { QApplication::setWindowIcon(ProgramIcon()); });
  return QApplication::exec();
}
