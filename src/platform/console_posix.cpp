#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "platform/console.h"

namespace vesmora {
namespace {

FileStatus Failure() { return {FileFailure::kError, std::generic_category().message(errno)}; }

/// Repeats a call that a signal cut off.
template <typename Call>
ssize_t Uninterrupted(Call call) {
  ssize_t result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

FileStatus WriteAll(int stream, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t count =
        Uninterrupted([&] { return ::write(stream, bytes.data(), bytes.size()); });
    if (count < 0) return Failure();
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

bool IsTerminal(int stream) {
  const char* kind = std::getenv("TERM");
  return ::isatty(stream) == 1 && kind != nullptr && std::string_view(kind) != "dumb";
}

class PosixConsole final : public Console {
 public:
  FileContents ReadInput(std::size_t limit) override {
    FileContents contents;
    std::array<std::byte, 65536> part{};
    while (contents.bytes.size() < limit) {
      const ssize_t count = Uninterrupted([&] {
        return ::read(STDIN_FILENO, part.data(),
                      std::min(part.size(), limit - contents.bytes.size()));
      });
      if (count < 0) contents.status = Failure();
      if (count <= 0) break;
      contents.bytes.insert(contents.bytes.end(), part.begin(), part.begin() + count);
    }
    contents.size = contents.bytes.size();
    return contents;
  }
  FileStatus Write(std::span<const std::byte> bytes) override {
    return WriteAll(STDOUT_FILENO, bytes);
  }
  void Tell(std::string_view text) override {
    WriteAll(STDERR_FILENO, std::as_bytes(std::span(text)));
  }
  bool OutputIsTerminal() const override { return IsTerminal(STDOUT_FILENO); }
  bool ErrorIsTerminal() const override { return IsTerminal(STDERR_FILENO); }
};

}  // namespace

Console& SystemConsole() {
  static PosixConsole console;
  return console;
}

std::vector<std::string> ProgramArguments(int count, char** values) {
  return {values + std::min(count, 1), values + count};
}

std::string EnvironmentText(const std::string& name) {
  const char* text = std::getenv(name.c_str());
  return text == nullptr ? std::string() : text;
}

}  // namespace vesmora
