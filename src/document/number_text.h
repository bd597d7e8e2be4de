// Numbers in words: decimal point whatever the locale.
#pragma once

#include <string>

namespace vesmora {

/// The shortest text that reads back as the same single.
std::string NumberText(float value);

}  // namespace vesmora
