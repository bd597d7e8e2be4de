#include "platform/settings_file.h"

#include <algorithm>
#include <string_view>

#include "platform/text.h"

namespace vesmora {
namespace {

constexpr std::size_t kLimit = std::size_t{1} << 20U;  // bytes; no settings are near it

std::string_view TakeLine(std::string_view& text) {
  std::string_view line = TakeUpTo(text, '\n');
  if (line.ends_with('\r')) line.remove_suffix(1);
  return TrimBlanks(line);
}

/// Values stand in quotes where blanks or separators count in them; quotes, backslashes and line
/// ends follow a backslash.
std::string Decoded(std::string_view value) {
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool isEscape = value[i] == '\\' && i + 1 < value.size();
    if (isEscape) ++i;
    const bool isLineEnd = isEscape && (value[i] == 'n' || value[i] == 'r');
    text += isLineEnd ? (value[i] == 'n' ? '\n' : '\r') : value[i];
  }
  return text;
}

std::string Encoded(std::string_view text) {
  std::string value;
  for (const char c : text) {
    const bool isLineEnd = c == '\n' || c == '\r';
    if (isLineEnd || c == '"' || c == '\\') value += '\\';
    value += isLineEnd ? (c == '\n' ? 'n' : 'r') : c;
  }
  const bool needsQuotes =
      TrimBlanks(text) != text || text.find_first_of(";,=") != std::string_view::npos;
  return needsQuotes ? '"' + value + '"' : value;
}

}  // namespace

SettingsFile::Values SettingsFile::ValuesIn(std::string_view text) {
  Values values;
  std::string section;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    const std::size_t sign = line.find('=');
    if (line.starts_with('[') && line.ends_with(']')) {
      section = line.substr(1, line.size() - 2);
    } else if (!line.starts_with(';') && sign != std::string_view::npos) {
      const std::string key(TrimBlanks(line.substr(0, sign)));
      values[{section, key}] = Decoded(TrimBlanks(line.substr(sign + 1)));
    }
  }
  return values;
}

std::string SettingsFile::TextOf(const Values& values) {
  std::string text;
  std::string section;
  for (const auto& [name, value] : values) {
    if (name.first != section) {
      section = name.first;
      text += (text.empty() ? "[" : "\n[") + section + "]\n";
    }
    text += name.second + "=" + Encoded(value) + "\n";
  }
  return text;
}

SettingsFile::SettingsFile(FileCalls& files, std::string path)
    : files_(files), path_(std::move(path)) {
  Load(values_);  // one that cannot be read is not written over, and that is told at the end
}

FileStatus SettingsFile::Load(Values& values) const {
  const FileContents file = ReadFile(files_, path_, kLimit);
  if (file.status.failure == FileFailure::kMissing) return {};
  if (file.size > kLimit) return {FileFailure::kError, "The file is too large."};
  values = ValuesIn({reinterpret_cast<const char*>(file.bytes.data()), file.bytes.size()});
  return file.status;
}

std::string SettingsFile::Read(const std::string& section, const std::string& key,
                               const std::string& fallback) {
  for (const Values& values : {std::cref(changed_), std::cref(values_)}) {
    const auto found = values.find({section, key});
    if (found != values.end()) return found->second;
  }
  return fallback;
}

void SettingsFile::Write(const std::string& section, const std::string& key,
                         const std::string& value) {
  changed_[{section, key}] = value;
}

/// Onto what the file holds now: another editor may have written to it.
FileStatus SettingsFile::Store() {
  Values values;
  FileStatus status = Load(values);
  if (!status.Ok()) return status;
  const Values before = values;
  for (const auto& [name, value] : changed_) values[name] = value;
  if (values == before) return {};
  const std::string folder(FolderPart(path_));
  status = CreateFolders(files_, folder.substr(0, folder.size() - 1));
  if (!status.Ok()) return status;
  SweepLeftOvers(files_, folder);
  const std::string text = TextOf(values);
  return WriteFileDurably(files_, path_, std::as_bytes(std::span(text)));
}

}  // namespace vesmora
