// What the program ends with.
#pragma once

namespace vesmora::map_tool {

inline constexpr int kSuccess = 0;
inline constexpr int kFound = 1;    // findings, differences, or something to be told of a result
inline constexpr int kTrouble = 2;  // something could not be read, written or understood

}  // namespace vesmora::map_tool
