#include <windows.h>

#include "platform/console.h"
// After it.
#include <shellapi.h>

#include <algorithm>
#include <array>

#include "platform/wide_text_windows.h"

namespace vesmora {
namespace {

FileStatus Failure() { return {FileFailure::kError, ErrorText(GetLastError())}; }

FileStatus WriteAll(DWORD stream, std::span<const std::byte> bytes) {
  constexpr std::size_t kMostAtOnce = 1U << 20U;
  while (!bytes.empty()) {
    DWORD count = 0;
    const auto size = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
    if (WriteFile(GetStdHandle(stream), bytes.data(), size, &count, nullptr) == 0) return Failure();
    bytes = bytes.subspan(count);
  }
  return {};
}

/// Has the terminal take colours, if it can.
bool IsTerminal(DWORD stream) {
  DWORD mode = 0;
  HANDLE handle = GetStdHandle(stream);
  return GetConsoleMode(handle, &mode) != 0 &&
         SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

class WindowsConsole final : public Console {
 public:
  WindowsConsole() { SetConsoleOutputCP(CP_UTF8); }

  FileContents ReadInput(std::size_t limit) override {
    FileContents contents;
    std::array<std::byte, 65536> part{};
    while (contents.bytes.size() < limit) {
      DWORD count = 0;
      const auto size = static_cast<DWORD>(std::min(part.size(), limit - contents.bytes.size()));
      const bool isRead =
          ::ReadFile(GetStdHandle(STD_INPUT_HANDLE), part.data(), size, &count, nullptr) != 0;
      // The other end of a pipe is closed when there is nothing more.
      if (!isRead && GetLastError() != ERROR_BROKEN_PIPE) contents.status = Failure();
      if (!isRead || count == 0) break;
      contents.bytes.insert(contents.bytes.end(), part.begin(), part.begin() + count);
    }
    contents.size = contents.bytes.size();
    return contents;
  }
  FileStatus Write(std::span<const std::byte> bytes) override {
    return WriteAll(STD_OUTPUT_HANDLE, bytes);
  }
  void Tell(std::string_view text) override {
    WriteAll(STD_ERROR_HANDLE, std::as_bytes(std::span(text)));
  }
  bool OutputIsTerminal() const override { return IsTerminal(STD_OUTPUT_HANDLE); }
  bool ErrorIsTerminal() const override { return IsTerminal(STD_ERROR_HANDLE); }
};

}  // namespace

Console& SystemConsole() {
  static WindowsConsole console;
  return console;
}

std::vector<std::string> ProgramArguments(int /*count*/, char** /*values*/) {
  std::vector<std::string> arguments;
  int count = 0;
  LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8(wide[i]));
  LocalFree(wide);
  return arguments;
}

std::string EnvironmentText(const std::string& name) {
  const wchar_t* text = _wgetenv(Wide(name).c_str());
  return text == nullptr ? std::string() : Utf8(text);
}

}  // namespace vesmora
