// The per-user settings, texts by section and key.
#pragma once

#include <string>

namespace vesmora {

class Settings {
 public:
  virtual ~Settings() = default;

  /// `fallback` when the key is absent. Whatever a person wrote there may come back.
  virtual std::string Read(const std::string& section, const std::string& key,
                           const std::string& fallback) = 0;
  /// Does not tell whether it could be stored.
  virtual void Write(const std::string& section, const std::string& key,
                     const std::string& value) = 0;
};

}  // namespace vesmora
