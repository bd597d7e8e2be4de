// Settings that live as long as the test.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/settings.h"
#include "support/event_log.h"

namespace vesmora {

class MemorySettings final : public Settings {
 public:
  /// Logs "Read <section>/<key>" and "Write <section>/<key>".
  explicit MemorySettings(EventLog& events) : events_(events) {}

  std::map<std::string, std::string> values;  // by "<section>/<key>"
  std::function<void()> onWrite = [] {};

  std::string Read(const std::string& section, const std::string& key,
                   const std::string& fallback) override {
    const std::string name = section + "/" + key;
    events_.push_back("Read " + name);
    const auto found = values.find(name);
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
