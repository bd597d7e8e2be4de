// What stands in for window, user, desktop, other programs and settings. Each notes in the
// test's one log what it was asked for, in a few words and in order.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/dialogs.h"
#include "platform/programs.h"
#include "platform/settings.h"
#include "platform/shell.h"
#include "platform/window_port.h"

namespace vesmora {

using EventLog = std::vector<std::string>;

class FakeWindow final : public WindowPort {
 public:
  explicit FakeWindow(EventLog& events) : events_(events) {}

  bool notes = true;  // into the log
  WindowPlacement placement;
  std::string chosenPrefab;              // in the Import dialog; empty is Cancel
  std::string chosenRescue;              // in the Recover dialog
  std::function<void()> before = [] {};  // runs ahead of every note
  std::function<void()> onRedraw = [] {};
  std::function<void()> onRefresh = [] {};

  void MapChanged() override {
    Note("RedrawMap");
    onRedraw();
  }
  void PanelChanged() override {
    Note("RefreshInfoPanel");
    onRefresh();
  }
  std::string ShowImport() override {
    Note("ShowImport");
    return chosenPrefab;
  }
  std::string ShowRecover() override {
    Note("ShowRecover");
    return chosenRescue;
  }
  WindowPlacement Placement() const override { return placement; }
  void Unload() override { Note("Unload"); }
  void ShowAbout() override { Note("ShowAbout"); }
  void RestorePlacement() override { Note("RestorePlacement"); }
  void Minimize() override { Note("Minimize"); }
  void Unminimize() override { Note("Unminimize"); }
  void RunPendingEvents() override { Note("RunPendingEvents"); }
  void LayOut() override { Note("LayOut"); }

 private:
  void Note(const char* event) {
    if (!notes) return;
    before();
    events_.push_back(event);
  }

  EventLog& events_;
};

inline std::ostream& operator<<(std::ostream& out, const Message& message) {
  return out << "[" << message.title << "] icon " << static_cast<int>(message.icon) << ": "
             << message.text;
}

/// Dialogs that answer from a script, in which a missing answer fails the test, and remember
/// everything they were told. Notes titles: "Show <title>", "Ask <title>".
class ScriptedDialogs final : public Dialogs {
 public:
  explicit ScriptedDialogs(EventLog& events) : events_(events) {}

  std::vector<Message> messages;  // shown and asked
  std::vector<FileRequest> requests;
  std::vector<TextRequest> textRequests;
  std::vector<std::int32_t> colorRequests;  // initial colours
  std::deque<bool> answers;
  std::deque<std::string> chosenFiles;  // empty is Cancel
  std::deque<std::string> texts;
  std::deque<std::optional<std::int32_t>> chosenColors;       // none is Cancel
  std::function<void()> before = [] {};                       // runs ahead of every note
  std::function<void(const Message&)> onShow = [](auto&) {};  // while the box is open

  void Show(const Message& message) override {
    Remember("Show " + message.title, messages, message);
    onShow(message);
  }
  bool Ask(const Message& message) override {
    Remember("Ask " + message.title, messages, message);
    return Next(answers);
  }
  std::string AskText(const TextRequest& request) override {
    Remember("AskText", textRequests, request);
    return Next(texts);
  }
  std::optional<std::int32_t> ChooseColor(std::int32_t initial) override {
    Remember("ChooseColor", colorRequests, initial);
    return Next(chosenColors);
  }
  std::string ChooseFileToOpen(const FileRequest& request) override {
    Remember("ChooseFileToOpen", requests, request);
    return Next(chosenFiles);
  }
  std::string ChooseFileToSave(const FileRequest& request) override {
    Remember("ChooseFileToSave", requests, request);
    return Next(chosenFiles);
  }

 private:
  template <typename Request>
  void Remember(const std::string& event, std::vector<Request>& told, const Request& request) {
    before();
    events_.push_back(event);
    told.push_back(request);
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

/// Notes "OpenFile <path>".
struct FakeShell final : Shell {
  explicit FakeShell(EventLog& log) : events(log) {}

  EventLog& events;

  bool OpenFile(const std::string& path) override {
    events.push_back("OpenFile " + path);
    return true;
  }
};

/// Programs that only exist as far as a test says so. Notes "ActivateWindow <title>" and
/// "Start <path> in <folder>".
struct FakePrograms final : Programs {
  explicit FakePrograms(EventLog& log) : events(log) {}

  EventLog& events;
  std::set<std::string> windows;  // titles that can be brought to the front
  std::string problem;            // why nothing starts

  bool ActivateWindow(const std::string& title) override {
    events.push_back("ActivateWindow " + title);
    return windows.contains(title);
  }
  std::string Start(const std::string& path, const std::string& folder) override {
    events.push_back("Start " + path + " in " + folder);
    return problem;
  }
};

/// Notes "Read <section>/<key>", "Write <section>/<key>" and "Store".
struct MemorySettings final : Settings {
  explicit MemorySettings(EventLog& log) : events(log) {}

  EventLog& events;
  std::map<std::string, std::string> values;  // by "<section>/<key>"
  std::function<void()> onWrite = [] {};
  FileStatus stored;  // what storing comes to

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) override {
    events.push_back("Read " + section + "/" + key);
    const auto found = values.find(section + "/" + key);
    return found == values.end() ? fallback : found->second;
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    events.push_back("Write " + section + "/" + key);
    values[section + "/" + key] = value;
    onWrite();
  }
  FileStatus Store() override {
    events.push_back("Store");
    return stored;
  }
};

}  // namespace vesmora
