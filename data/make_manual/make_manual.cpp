// Writes the table of the menus' keys into the manual, between two marks:
// make_manual PAGE. make_manual --check PAGE tells instead whether it is there.
#include <algorithm>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>

#include "app/commands.h"
#include "platform/files.h"

namespace vesmora {
namespace {

constexpr std::size_t kReadLimit = 1U << 20U;
constexpr std::string_view kBegin = "<!-- The menus' keys, written by make_manual -->\n";
constexpr std::string_view kEnd = "<!-- end of the menus' keys -->";

/// As it reads in the menu.
std::string PlainCaption(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

std::string KeyCap(std::string_view key) {
  if (key == "Del") return "Delete";
  if (key == "PgUp") return "Page Up";
  if (key == "PgDown") return "Page Down";
  return std::string(key);
}

/// "Ctrl+PgUp" as <kbd>Ctrl</kbd>+<kbd>Page Up</kbd>, one of several as the others.
std::string KeyCaps(std::string_view shortcut) {
  std::string text;
  if (const std::size_t next = shortcut.find("; "); next != std::string_view::npos) {
    return KeyCaps(shortcut.substr(0, next)) + " or " + KeyCaps(shortcut.substr(next + 2));
  }
  while (!shortcut.empty()) {
    const std::size_t end = std::min(shortcut.find('+'), shortcut.size());
    text += (text.empty() ? "<kbd>" : "+<kbd>") + KeyCap(shortcut.substr(0, end)) + "</kbd>";
    shortcut.remove_prefix(std::min(end + 1, shortcut.size()));
  }
  return text;
}

std::string KeyTable() {
  std::string table = "<table>\n<tr><th>Menu</th><th>Command</th><th>Key</th></tr>\n";
  for (const Command& command : Commands()) {
    const auto menu = static_cast<std::size_t>(command.menu);
    table += "<tr><td>" + PlainCaption(MenuCaptions()[menu]) + "</td><td>" +
             PlainCaption(command.caption) + "</td><td>" + KeyCaps(command.shortcut) +
             "</td></tr>\n";
  }
  return table + "</table>\n";
}

int Fail(const std::string& path, const std::string& reason) {
  std::fprintf(stderr, "%s: %s\n", path.c_str(), reason.c_str());
  return 1;
}

int Run(const std::string& path, bool isCheck) {
  const FileContents file = ReadFile(SystemFileCalls(), path, kReadLimit);
  if (!file.status.Ok()) return Fail(path, file.status.reason);
  const std::string page(reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size());
  const std::size_t mark = page.find(kBegin);
  const std::size_t end = page.find(kEnd);
  if (mark == std::string::npos || end == std::string::npos || end < mark) {
    return Fail(path, "The marks for the table are missing.");
  }
  const std::size_t begin = mark + kBegin.size();
  const std::string made = page.substr(0, begin) + KeyTable() + page.substr(end);
  if (isCheck) return made == page ? 0 : Fail(path, "The table of keys is not the menus'.");
  const FileStatus status =
      WriteFileDurably(SystemFileCalls(), path, std::as_bytes(std::span(made)));
  return status.Ok() ? 0 : Fail(path, status.reason);
}

}  // namespace
}  // namespace vesmora

int main(int argc, char** argv) {
  const bool isCheck = argc == 3 && std::string_view(argv[1]) == "--check";
  if (argc != 2 && !isCheck) {
    std::fprintf(stderr, "usage: make_manual [--check] PAGE\n");
    return 2;
  }
  return vesmora::Run(argv[argc - 1], isCheck);
}
