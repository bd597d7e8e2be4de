// The per-user settings, texts by section and key.
#pragma once

#include <string>

#include "platform/files.h"

namespace vesmora {

class Settings {
 public:
  virtual ~Settings() = default;

  /// `fallback` when the key is absent. Whatever a person wrote there may come back.
  virtual std::string Read(const std::string& section, const std::string& key,
                           const std::string& fallback) = 0;
  virtual void Write(const std::string& section, const std::string& key,
                     const std::string& value) = 0;
  /// Makes what was written last; on failure all is stored as it was before.
  virtual FileStatus Store() = 0;
};

}  // namespace vesmora
