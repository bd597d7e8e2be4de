#include "platform/qt/qt_dialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

namespace vesmora {
namespace {

QMessageBox::Icon ToQt(MessageIcon icon) {
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

QMessageBox::StandardButton Run(QWidget* parent, const Message& message,
                                QMessageBox::StandardButtons buttons) {
  QMessageBox box(
      ToQt(message.icon),
      message.title.empty() ? QString("Vesmora") : QString::fromStdString(message.title),
      QString::fromStdString(message.text), buttons, parent);
  box.setTextFormat(Qt::PlainText);  // file names may hold anything
  return static_cast<QMessageBox::StandardButton>(box.exec());
}

/// One pattern for both spellings of an extension.
QString FilterText(const FileFilter& filter) {
  const QString pattern = QString::fromStdString(filter.pattern);
  QString description = QString::fromStdString(filter.description);
  description.truncate(description.lastIndexOf('(') - 1);
  return QString("%1 (%2 %3)").arg(description, pattern.toLower(), pattern.toUpper());
}

void Prepare(QFileDialog& dialog, const FileRequest& request) {
  dialog.setNameFilter(FilterText(request.filter));
  dialog.setDefaultSuffix(
      QFileInfo(QString::fromStdString(request.filter.pattern)).suffix().toLower());
  if (!request.directory.empty()) dialog.setDirectory(QString::fromStdString(request.directory));
  if (!request.fileName.empty()) dialog.selectFile(QString::fromStdString(request.fileName));
}

std::string Chosen(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted) return {};
  const QStringList files = dialog.selectedFiles();
  return files.isEmpty() ? std::string() : files.first().toStdString();
}

}  // namespace

void QtDialogs::Show(const Message& message) { Run(parent_, message, QMessageBox::Ok); }

bool QtDialogs::Ask(const Message& message) {
  return Run(parent_, message, QMessageBox::Ok | QMessageBox::Cancel) == QMessageBox::Ok;
}

std::string QtDialogs::ChooseFileToOpen(const FileRequest& request) {
  QFileDialog dialog(parent_, "Open");
  dialog.setFileMode(QFileDialog::ExistingFile);
  Prepare(dialog, request);
  return Chosen(dialog);
}

std::string QtDialogs::ChooseFileToSave(const FileRequest& request) {
  QFileDialog dialog(parent_, "Save As");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  Prepare(dialog, request);
  return Chosen(dialog);
}

}  // namespace vesmora
