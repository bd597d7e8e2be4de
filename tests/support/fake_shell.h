// A desktop that only notes what it should open.
#pragma once

#include <string>

#include "platform/shell.h"
#include "support/event_log.h"

namespace vesmora {

class FakeShell final : public Shell {
 public:
  /// Logs "OpenFile <path>".
  explicit FakeShell(EventLog& events) : events_(events) {}

  bool opens = true;

  bool OpenFile(const std::string& path) override {
    events_.push_back("OpenFile " + path);
    return opens;
  }

 private:
  EventLog& events_;
};

}  // namespace vesmora
