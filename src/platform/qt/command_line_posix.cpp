#include "platform/qt/command_line.h"

namespace vesmora {

// As they are: the toolkit's are cut to what the locale can tell.
std::string CommandLine(int argc, char** argv) {
  std::string line;
  for (int i = 1; i < argc; ++i) line.append(i > 1 ? " " : "").append(argv[i]);
  return line;
}

}  // namespace vesmora
