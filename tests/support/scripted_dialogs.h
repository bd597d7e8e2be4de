// Dialogs that answer from a script and remember everything they were told.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/dialogs.h"
#include "support/fakes.h"

namespace vesmora {

class ScriptedDialogs final : public Dialogs {
 public:
  /// Notes "Show <title>", "Ask <title>", "ChooseFileToOpen", "ChooseFileToSave",
  /// "AskText" and "ChooseColor".
  explicit ScriptedDialogs(EventLog& events) : events_(events) {}

  std::vector<Message> messages;                              // shown and asked, in order
  std::vector<FileRequest> requests;                          // for files, in order
  std::vector<TextRequest> textRequests;                      // in order
  std::vector<std::int32_t> colorRequests;                    // initial colours, in order
  std::deque<bool> answers;                                   // a missing one fails the test
  std::deque<std::string> chosenFiles;                        // likewise; empty is Cancel
  std::deque<std::string> texts;                              // likewise
  std::deque<std::optional<std::int32_t>> chosenColors;       // likewise; none is Cancel
  std::function<void()> before = [] {};                       // runs ahead of every note
  std::function<void(const Message&)> onShow = [](auto&) {};  // while the box is open

  void Show(const Message& message) override {
    Note("Show " + message.title);
    messages.push_back(message);
    onShow(message);
  }
  bool Ask(const Message& message) override {
    Note("Ask " + message.title);
    messages.push_back(message);
    return Next(answers);
  }
  std::string AskText(const TextRequest& request) override {
    Note("AskText");
    textRequests.push_back(request);
    return Next(texts);
  }
  std::optional<std::int32_t> ChooseColor(std::int32_t initial) override {
    Note("ChooseColor");
    colorRequests.push_back(initial);
    return Next(chosenColors);
  }
  std::string ChooseFileToOpen(const FileRequest& request) override {
    return ChooseFile("ChooseFileToOpen", request);
  }
  std::string ChooseFileToSave(const FileRequest& request) override {
    return ChooseFile("ChooseFileToSave", request);
  }

 private:
  std::string ChooseFile(const char* event, const FileRequest& request) {
    Note(event);
    requests.push_back(request);
    return Next(chosenFiles);
  }
  void Note(const std::string& event) {
    before();
    events_.push_back(event);
  }
  template <typename Answer>
  Answer Next(std::deque<Answer>& script) {
    if (script.empty()) {
      ADD_FAILURE() << "no answer for " << events_.back();
      return {};
    }
    const Answer answer = script.front();
    script.pop_front();
    return answer;
  }

  EventLog& events_;
};

inline std::ostream& operator<<(std::ostream& out, const Message& message) {
  return out << "[" << message.title << "] icon " << static_cast<int>(message.icon) << ": "
             << message.text;
}

}  // namespace vesmora
