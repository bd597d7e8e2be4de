// The standard streams of a program that is run from a shell or a script.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace vesmora {

class Console {
 public:
  Console() = default;
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;
  virtual ~Console() = default;

  /// At most `limit` bytes of standard input, until its end.
  virtual FileContents ReadInput(std::size_t limit) = 0;
  /// Writes all of it to standard output, as it is.
  virtual FileStatus Write(std::span<const std::byte> bytes) = 0;
  /// Text for people, to standard error.
  virtual void Tell(std::string_view text) = 0;
  /// Whether a person sees the stream as it comes, in a terminal that knows colours.
  virtual bool OutputIsTerminal() const = 0;
  virtual bool ErrorIsTerminal() const = 0;
};

/// The running program's, to the end of it.
Console& SystemConsole();

/// The arguments of the running program in UTF-8, without its own name.
std::vector<std::string> ProgramArguments(int count, char** values);

/// A variable of the environment in UTF-8; empty when it is not set.
std::string EnvironmentText(const std::string& name);

}  // namespace vesmora
