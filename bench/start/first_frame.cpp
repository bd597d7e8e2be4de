// Linked into a program with a window: tells on standard output when its first frame is out, with
// nothing left to do, and closes it.
#include <unistd.h>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <utility>

namespace {

class FirstFrame final : public QObject {
 public:
  explicit FirstFrame(QObject* parent) : QObject(parent) {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            [this] { TellIfPainted(); });
  }

  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) isPainted_ = true;
    return false;
  }

 private:
  void TellIfPainted() {
    if (!std::exchange(isPainted_, false)) return;
    deleteLater();
    static_cast<void>(::write(STDOUT_FILENO, "", 1));
    QApplication::closeAllWindows();
  }

  bool isPainted_ = false;
};

void Watch() { qApp->installEventFilter(new FirstFrame(qApp)); }

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(Watch)
