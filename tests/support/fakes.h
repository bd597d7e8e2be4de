// What stands in for window, desktop and settings. Each notes in the test's one log what it was
// asked for, in a few words and in order.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/window_port.h"
#include "platform/settings.h"
#include "platform/shell.h"

namespace vesmora {

using EventLog = std::vector<std::string>;

class FakeWindow final : public WindowPort {
 public:
  /// As in the real window nothing is drawn while `redrawSuppressed` is true.
  explicit FakeWindow(EventLog& events, const bool* redrawSuppressed = nullptr)
      : events_(events), redrawSuppressed_(redrawSuppressed) {}

  PointerShape pointer = PointerShape::kDefault;
  WindowPlacement placement;
  std::string chosenPrefab;              // in the Import dialog; empty is Cancel
  std::function<void()> before = [] {};  // runs ahead of every note
  std::function<void()> onRedraw = [] {};
  std::function<void()> onRefresh = [] {};

  void RedrawMap() override {
    if (redrawSuppressed_ != nullptr && *redrawSuppressed_) return;
    Note("RedrawMap");
    onRedraw();
  }
  void RefreshInfoPanel() override {
    Note("RefreshInfoPanel");
    onRefresh();
  }
  void SetPointer(PointerShape shape) override {
    pointer = shape;
    Note("SetPointer " + std::to_string(static_cast<int>(shape)));
  }
  void Unload() override { Note("Unload"); }
  void ShowAbout() override { Note("ShowAbout"); }
  std::string ShowImport() override {
    Note("ShowImport");
    return chosenPrefab;
  }
  void RestorePlacement() override { Note("RestorePlacement"); }
  WindowPlacement Placement() const override { return placement; }
  void Minimize() override { Note("Minimize"); }
  void Unminimize() override { Note("Unminimize"); }
  void RunPendingEvents() override { Note("RunPendingEvents"); }
  void LayOut() override { Note("LayOut"); }

 private:
  void Note(const std::string& event) {
    before();
    events_.push_back(event);
  }

  EventLog& events_;
  const bool* redrawSuppressed_;
};

/// Notes "OpenFile <path>".
class FakeShell final : public Shell {
 public:
  explicit FakeShell(EventLog& events) : events_(events) {}

  bool opens = true;

  bool OpenFile(const std::string& path) override {
    events_.push_back("OpenFile " + path);
    return opens;
  }

 private:
  EventLog& events_;
};

/// Notes "Read <section>/<key>" and "Write <section>/<key>".
class MemorySettings final : public Settings {
 public:
  explicit MemorySettings(EventLog& events) : events_(events) {}

  std::map<std::string, std::string> values;  // by "<section>/<key>"
  std::function<void()> onWrite = [] {};

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) override {
    events_.push_back("Read " + section + "/" + key);
    const auto found = values.find(section + "/" + key);
    return found == values.end() ? fallback : found->second;
  }
  void Write(const std::string& section, const std::string& key,
             const std::string& value) override {
    events_.push_back("Write " + section + "/" + key);
    values[section + "/" + key] = value;
    onWrite();
  }

 private:
  EventLog& events_;
};

}  // namespace vesmora
