#include "platform/qt/qt_dialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace vesmora {
namespace {

QMessageBox::Icon BoxIcon(MessageIcon icon) {
  switch (icon) {
    case MessageIcon::kCritical:
      return QMessageBox::Critical;
    case MessageIcon::kExclamation:
      return QMessageBox::Warning;
    case MessageIcon::kQuestion:
      return QMessageBox::Question;
    case MessageIcon::kInformation:
      return QMessageBox::Information;
    case MessageIcon::kNone:
      break;
  }
  return QMessageBox::NoIcon;
}

/// As wide as its longest line, where the screen is: the toolkit would break lines that the
/// texts do not, at half a screen or less.
class MessageBox final : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;

 protected:
  bool event(QEvent* event) override {
    const bool isHandled = QMessageBox::event(event);
    const bool isShown = event->type() == QEvent::Show;
    const bool isSized =
        isShown || event->type() == QEvent::LayoutRequest || event->type() == QEvent::FontChange;
    if (isSized && isVisible()) FitToLines();
    if (isShown) PutOverParent();
    return isHandled;
  }

 private:
  static constexpr int kRoomBeside = 20;  // pixels of the screen on each side, for a frame, too

  QRect Room() const {
    return screen()->availableGeometry().adjusted(kRoomBeside, kRoomBeside, -kRoomBeside,
                                                  -kRoomBeside);
  }

  void FitToLines() {
    auto* label = findChild<QLabel*>("qt_msgbox_label");
    label->setWordWrap(false);
    const int wanted = layout()->totalMinimumSize().width();
    const int width = std::max(std::min(wanted, Room().width()), minimumWidth());
    label->setWordWrap(wanted > width);
    const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width)
                                                     : layout()->totalMinimumSize().height();
    setFixedSize(width, height);
  }

  /// The toolkit has done so for a narrower box.
  void PutOverParent() {
    QRect place({}, size());
    place.moveCenter(parentWidget() != nullptr ? parentWidget()->geometry().center()
                                               : Room().center());
    place.moveLeft(std::max(std::min(place.left(), Room().right() - width()), Room().left()));
    place.moveTop(std::max(std::min(place.top(), Room().bottom() - height()), Room().top()));
    move(place.topLeft());
  }
};

QMessageBox::StandardButton Run(QWidget* parent, const Message& message,
                                QMessageBox::StandardButtons buttons) {
  MessageBox box(BoxIcon(message.icon), message.title.empty() ? "Vesmora" : ToQt(message.title),
                 ToQt(message.text), buttons, parent);
  box.setTextFormat(Qt::PlainText);  // file names may hold anything
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// Without its dot.
QString SuffixOf(const FileRequest& request) {
  return QFileInfo(ToQt(request.filter.pattern)).suffix().toLower();
}

void Prepare(QFileDialog& dialog, const FileRequest& request) {
  // The button says what the title says: "Open", "Save" of "Save As", "Export".
  dialog.setLabelText(QFileDialog::Accept, "&" + ToQt(request.title).section(' ', 0, 0));
  dialog.setNameFilter(ToQt(request.filter.description));
  if (!request.directory.empty()) dialog.setDirectory(ToQt(request.directory));
  if (!request.fileName.empty()) dialog.selectFile(ToQt(request.fileName));
}

std::string Chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList files = dialog.selectedFiles();
  return files.isEmpty() ? std::string() : QDir::toNativeSeparators(files.first()).toStdString();
}

}  // namespace

void QtDialogs::Show(const Message& message) { Run(parent_, message, QMessageBox::Ok); }

bool QtDialogs::Ask(const Message& message) {
  return Run(parent_, message, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

std::string QtDialogs::ChooseFileToOpen(const FileRequest& request) {
  QFileDialog dialog(parent_, ToQt(request.title));
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, request);
  return Chosen(dialog);
}

std::string QtDialogs::ChooseFileToSave(const FileRequest& request) {
  QFileDialog dialog(parent_, ToQt(request.title));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  Prepare(dialog, request);
  while (true) {
    std::string path = Chosen(dialog);
    if (path.empty()) return path;
    QFileInfo file(ToQt(path));
    // The dialog takes whatever follows a dot for the suffix, the 2 of "Hollow v1.2", too.
    const bool isCompleted = file.suffix().toLower() != SuffixOf(request);
    if (isCompleted) {
      file.setFile(file.filePath() + "." + SuffixOf(request));
      path += "." + SuffixOf(request).toStdString();
    }
    std::string problem;
    if (!file.dir().exists()) {
      problem =
          "Folder '" + file.path().toStdString() + "' does not exist.\nPlease choose another one.";
    } else if (file.exists() && !file.isWritable()) {
      problem = "File '" + path + "' is write-protected.\nPlease choose another name.";
    }
    if (!problem.empty()) {
      Show({.text = problem, .title = "File error", .icon = MessageIcon::kExclamation});
      continue;
    }
    // The dialog has asked about the name as it was typed.
    if (!isCompleted || !file.exists() ||
        Ask({.text = "File '" + path + "' already exists.\nDo you want to replace it?",
             .title = "Warning",
             .icon = MessageIcon::kQuestion})) {
      return path;
    }
  }
}

std::string QtDialogs::AskText(const TextRequest& request) {
  bool accepted = false;
  const QString answer = QInputDialog::getText(parent_, ToQt(request.title), ToQt(request.prompt),
                                               QLineEdit::Normal, ToQt(request.answer), &accepted);
  return accepted ? answer.toStdString() : std::string();
}

std::optional<std::int32_t> QtDialogs::ChooseColor(std::int32_t initial) {
  const QColor present(initial & 255, initial >> 8 & 255, initial >> 16 & 255);
  const QColor chosen = QColorDialog::getColor(present, parent_);
  if (!chosen.isValid()) return std::nullopt;
  return chosen.red() | chosen.green() << 8 | chosen.blue() << 16;
}

}  // namespace vesmora
