// Other programs that only exist as far as a test says so.
#pragma once

#include <set>
#include <string>

#include "platform/programs.h"
#include "support/fakes.h"

namespace vesmora {

class FakePrograms final : public Programs {
 public:
  /// Logs "ActivateWindow <title>" and "Start <path> in <folder>".
  explicit FakePrograms(EventLog& events) : events_(events) {}

  std::set<std::string> windows;  // titles that can be brought to the front
  std::string problem;            // why nothing starts

  bool ActivateWindow(const std::string& title) override {
    events_.push_back("ActivateWindow " + title);
    return windows.contains(title);
  }
  std::string Start(const std::string& path, const std::string& folder) override {
    events_.push_back("Start " + path + " in " + folder);
    return problem;
  }

 private:
  EventLog& events_;
};

}  // namespace vesmora
