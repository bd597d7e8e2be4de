// The desktop's own way of opening things.
#pragma once

#include <string>

namespace vesmora {

class Shell {
 public:
  virtual ~Shell() = default;

  /// Opens a local file with the program the user has for it; false when there is none.
  virtual bool OpenFile(const std::string& path) = 0;
};

}  // namespace vesmora
