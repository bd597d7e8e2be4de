#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <cerrno>

#include "platform/files.h"
#include "platform/programs.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/window_activation.h"
#include "platform/text.h"

namespace vesmora {
namespace {

const std::string kNoWine =
    "This is a Windows program, which needs Wine here, and Wine is not installed.";

/// Wine on the user's path; empty when it is not there.
QString FindWine() {
  const QString folders = qEnvironmentVariable("PATH", "/usr/local/bin:/usr/bin:/bin");
  for (const char* name : {"wine", "wine64"}) {
    for (const QString& folder : folders.split(':')) {
      // Relative ones depend on where the editor happens to stand.
      if (!folder.startsWith('/')) continue;
      const QString wine = QStandardPaths::findExecutable(name, {folder});
      if (!wine.isEmpty()) return wine;
    }
  }
  return {};
}

class PosixPrograms final : public Programs {
 public:
  bool ActivateWindow(const std::string& title) override { return ActivateWindowByTitle(title); }

  std::string Start(const std::string& path, const std::string& folder) override {
    const QFileInfo program(ToQt(AbsolutePath(path)));
    const bool isForWindows = EndsIgnoringCase(path, ".exe");
    const QString wine = isForWindows ? FindWine() : QString();
    QProcess process;
    process.setProgram(program.filePath());
    if (!wine.isEmpty()) {
      process.setProgram(wine);
      process.setArguments({program.filePath()});
    } else if (isForWindows && !(program.isFile() && program.isExecutable())) {
      // Some systems are set up to run such files, and others keep scripts under the name.
      return kNoWine;
    }
    process.setWorkingDirectory(ToQt(folder));
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (process.startDetached()) return "";
    // The name of the call that failed, a colon and the system's words.
    const QString words = process.errorString().section(": ", 1);
    const bool isNoProgram = words == qt_error_string(ENOEXEC);
    return isNoProgram && isForWindows ? kNoWine : words.toStdString() + ".";
  }
};

}  // namespace

std::unique_ptr<Programs> SystemPrograms() { return std::make_unique<PosixPrograms>(); }

}  // namespace vesmora
