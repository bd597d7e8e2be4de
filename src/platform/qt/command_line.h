// What the program was called with.
#pragma once

#include <string>

namespace vesmora {

/// All arguments without the program, with blanks between them, after the toolkit has taken its own
/// out of `argc` and `argv`. UTF-8, or whatever bytes they are where the system passes bytes on.
std::string CommandLine(int argc, char** argv);

}  // namespace vesmora
