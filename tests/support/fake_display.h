// A window that only notes what it was asked for.
#pragma once

#include <string>

#include "platform/display.h"
#include "support/event_log.h"

namespace vesmora {

class FakeDisplay final : public Display {
 public:
  /// Logs "RedrawMap", "RefreshInfoPanel" and "SetPointer <number>".
  explicit FakeDisplay(EventLog& events) : events_(events) {}

  PointerShape pointer = PointerShape::kDefault;

  void RedrawMap() override { events_.emplace_back("RedrawMap"); }
  void RefreshInfoPanel() override { events_.emplace_back("RefreshInfoPanel"); }
  void SetPointer(PointerShape shape) override {
    pointer = shape;
    events_.push_back("SetPointer " + std::to_string(static_cast<int>(shape)));
  }

 private:
  EventLog& events_;
};

}  // namespace vesmora
