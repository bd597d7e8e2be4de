// Dialogs that answer from a script and remember everything they were told.
#pragma once

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "support/event_log.h"

namespace vesmora {

class ScriptedDialogs final : public Dialogs {
 public:
  /// Logs "Show <title>", "Ask <title>", "ChooseFileToOpen", "ChooseFileToSave",
  /// "AskText" and "ChooseColor".
  explicit ScriptedDialogs(EventLog& events) : events_(events) {}

  std::vector<Message> messages;            // shown and asked, in order
  std::vector<FileRequest> requests;        // for files, in order
  std::deque<bool> answers;                 // to Ask; one without an answer fails the test
  std::deque<std::string> chosenFiles;      // likewise; empty is Cancel
  std::vector<TextRequest> textRequests;    // in order
  std::deque<std::string> texts;            // answers to them; empty is Cancel
  std::vector<std::int32_t> colorRequests;  // initial colours, in order
  std::deque<std::optional<std::int32_t>> chosenColors;  // likewise; none is Cancel
  std::function<void(const Message&)> onShow;            // runs while the box is open

  void Show(const Message& message) override;
  bool Ask(const Message& message) override;
  std::string ChooseFileToOpen(const FileRequest& request) override;
  std::string ChooseFileToSave(const FileRequest& request) override;
  std::string AskText(const TextRequest& request) override;
  std::optional<std::int32_t> ChooseColor(std::int32_t initial) override;

 private:
  std::string ChooseFile(const char* event, const FileRequest& request);

  EventLog& events_;
};

std::ostream& operator<<(std::ostream& out, const Message& message);

}  // namespace vesmora
