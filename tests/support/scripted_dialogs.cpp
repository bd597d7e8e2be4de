#include "support/scripted_dialogs.h"

#include <gtest/gtest.h>

namespace vesmora {
namespace {

template <typename Answer>
Answer Next(std::deque<Answer>& script, const std::string& what) {
  if (script.empty()) {
    ADD_FAILURE() << "no answer for " << what;
    return {};
  }
  Answer answer = script.front();
  script.pop_front();
  return answer;
}

}  // namespace

void ScriptedDialogs::Show(const Message& message) {
  events_.push_back("Show " + message.title);
  messages.push_back(message);
  if (onShow) onShow(message);
}

bool ScriptedDialogs::Ask(const Message& message) {
  events_.push_back("Ask " + message.title);
  messages.push_back(message);
  return Next(answers, message.text);
}

std::string ScriptedDialogs::AskText(const TextRequest& request) {
  events_.emplace_back("AskText");
  textRequests.push_back(request);
  return Next(texts, request.prompt);
}

std::optional<std::int32_t> ScriptedDialogs::ChooseColor(std::int32_t initial) {
  events_.emplace_back("ChooseColor");
  colorRequests.push_back(initial);
  return Next(chosenColors, "a colour");
}

std::string ScriptedDialogs::ChooseFileToOpen(const FileRequest& request) {
  return ChooseFile("ChooseFileToOpen", request);
}

std::string ScriptedDialogs::ChooseFileToSave(const FileRequest& request) {
  return ChooseFile("ChooseFileToSave", request);
}

std::string ScriptedDialogs::ChooseFile(const char* event, const FileRequest& request) {
  events_.emplace_back(event);
  requests.push_back(request);
  return Next(chosenFiles, event);
}

std::ostream& operator<<(std::ostream& out, const Message& message) {
  return out << "[" << message.title << "] icon " << static_cast<int>(message.icon) << ": "
             << message.text;
}

}  // namespace vesmora
