// Dialogs as real boxes over a window.
#pragma once

#include <QPointer>
#include <QWidget>

#include "platform/dialogs.h"

namespace vesmora {

class QtDialogs final : public Dialogs {
 public:
  explicit QtDialogs(QWidget* parent) : parent_(parent) {}

  void Show(const Message& message) override;
  bool Ask(const Message& message) override;
  std::string ChooseFileToOpen(const FileRequest& request) override;
  std::string ChooseFileToSave(const FileRequest& request) override;
  std::string AskText(const TextRequest& request) override;
  std::optional<std::int32_t> ChooseColor(std::int32_t initial) override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace vesmora
