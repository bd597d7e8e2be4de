#include "document/rescue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "document/map_file.h"

namespace vesmora {
namespace {

constexpr std::string_view kEnding = ".map";
constexpr std::string_view kLabelMark = "Vesmora rescue 1";
constexpr std::size_t kLongestLabel = 1U << 16U;  // bytes, longer than any path
constexpr int kTimeDigits = 14;

// In the order of RescueCause; part of the files.
constexpr std::array<std::string_view, 6> kCauses = {"new",     "open",  "exit",
                                                     "session", "crash", "undo"};

/// Sorted by their names the files are sorted by time.
std::string FileNameAt(std::int64_t now) {
  std::string digits = std::to_string(std::max<std::int64_t>(now, 0));
  digits.insert(0, kTimeDigits - std::min<std::size_t>(digits.size(), kTimeDigits), '0');
  return digits + "-" + UnlikelyName() + std::string(kEnding);
}

std::string TextOf(const RescueLabel& label) {
  std::string text;
  text.append(kLabelMark).append("\n");
  text.append(kCauses[static_cast<std::size_t>(label.cause)]).append("\n");
  text.append(std::to_string(label.time)).append("\n");
  return text.append(label.mapPath);
}

std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = std::min(text.find('\n'), text.size());
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line;
}

RescueLabel ReadLabel(std::string_view text) {
  RescueLabel label;
  if (TakeLine(text) != kLabelMark) return label;
  const auto cause = std::ranges::find(kCauses, TakeLine(text));
  if (cause != kCauses.end()) label.cause = static_cast<RescueCause>(cause - kCauses.begin());
  const std::string_view time = TakeLine(text);
  std::from_chars(time.data(), time.data() + time.size(), label.time);
  label.mapPath = text;
  return label;
}

std::string_view AsText(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

FileStatus KeepRescued(FileCalls& files, const std::string& folder,
                       std::span<const std::byte> undoFile, const RescueLabel& label,
                       std::int64_t now) {
  FileStatus status = CreateFolders(files, folder.substr(0, folder.size() - 1));
  if (!status.Ok()) return status;
  std::vector<std::byte> bytes(undoFile.begin(), undoFile.end());
  const std::string text = TextOf(label);
  std::ranges::copy(std::as_bytes(std::span(text)), std::back_inserter(bytes));
  status = WriteFileDurably(files, folder + FileNameAt(now), bytes);
  if (!status.Ok()) return status;
  SweepLeftOvers(files, folder);
  const std::vector<std::string> kept = ListRescued(files, folder);
  for (std::size_t i = kRescuedMaps; i < kept.size(); ++i) DeleteFile(files, kept[i]);
  return status;
}

std::vector<std::string> ListRescued(FileCalls& files, const std::string& folder) {
  std::vector<std::string> names;
  files.ListFolder(folder, names);
  std::erase_if(names, [](const std::string& name) {
    return name.size() < kTimeDigits || !name.ends_with(kEnding) ||
           name.find_first_not_of("0123456789") < kTimeDigits;
  });
  std::ranges::sort(names, std::ranges::greater());
  for (std::string& name : names) name.insert(0, folder);
  return names;
}

std::optional<RescuedMap> ReadRescued(FileCalls& files, const std::string& path) {
  RescuedMap rescued{.label = {}, .map = std::make_unique<MapDocument>()};
  Selection selection;
  const LoadReport report = LoadMap(*rescued.map, selection, files, path, true);
  if (report.outcome != LoadOutcome::kLoaded) return std::nullopt;
  const FileContents file = ReadFile(files, path, kUndoFileSize + kLongestLabel);
  if (!file.status.Ok() || file.bytes.size() < kUndoFileSize) return std::nullopt;
  rescued.label = ReadLabel(AsText(std::span(file.bytes).subspan(kUndoFileSize)));
  return rescued;
}

}  // namespace vesmora
