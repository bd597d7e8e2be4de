// The desktop's programs through the toolkit.
#pragma once

#include "platform/shell.h"

namespace vesmora {

class QtShell final : public Shell {
 public:
  bool OpenFile(const std::string& path) override;
};

}  // namespace vesmora
