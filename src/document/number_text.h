// Numbers in words: decimal point whatever the locale.
#pragma once

#include <cstddef>
#include <string>

namespace vesmora {

/// The shortest text that reads back as the same single.
std::string NumberText(float value);

/// "1 polygon", "2 polygons"
std::string Counted(std::size_t count, const std::string& one, const std::string& several);

}  // namespace vesmora
