#include "document/rescue.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "document/map_file.h"
#include "platform/text.h"

namespace vesmora {
namespace {

constexpr std::string_view kEnding = ".map";
constexpr std::string_view kLabelMark = "Vesmora rescue 1";
constexpr std::size_t kLongestLabel = 1U << 16U;  // bytes, longer than any path
constexpr int kTimeDigits = 14;

// In the order of RescueCause; part of the files.
constexpr std::array<std::string_view, 7> kCauses = {"new",   "open", "exit",  "session",
                                                     "crash", "undo", "undone"};

/// Files sorted by their names are in the order in which they were kept, whatever the clock says.
std::string NameBehind(const std::vector<std::string>& kept, std::int64_t now) {
  std::int64_t last = -1;
  if (!kept.empty()) {
    const std::string_view name = FileNamePart(kept.front());
    std::from_chars(name.data(), name.data() + kTimeDigits, last);
  }
  std::string digits = std::to_string(std::max(now, last + 1));
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

RescueLabel ReadLabel(std::string_view text) {
  RescueLabel label;
  if (TakeUpTo(text, '\n') != kLabelMark) return label;
  const auto cause = std::ranges::find(kCauses, TakeUpTo(text, '\n'));
  if (cause != kCauses.end()) label.cause = static_cast<RescueCause>(cause - kCauses.begin());
  const std::string_view time = TakeUpTo(text, '\n');
  std::from_chars(time.data(), time.data() + time.size(), label.time);
  label.mapPath = text;
  return label;
}

std::string_view AsText(std::span<const std::byte> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

FileStatus KeepRescued(const RescueFolder& folder, std::span<const std::byte> undoFile,
                       const RescueLabel& label, const std::string& spared, std::string& kept) {
  FileCalls& files = folder.files;
  FileStatus status = CreateFolders(files, folder.path.substr(0, folder.path.size() - 1));
  if (!status.Ok()) return status;
  std::vector<std::byte> bytes(undoFile.begin(), undoFile.end());
  const std::string text = TextOf(label);
  std::ranges::copy(std::as_bytes(std::span(text)), std::back_inserter(bytes));
  std::vector<std::string> paths = ListRescued(files, folder.path);
  kept = folder.path + NameBehind(paths, folder.now);
  status = WriteFileDurably(files, kept, bytes);
  if (!status.Ok()) return status;
  SweepLeftOvers(files, folder.path);
  const std::size_t others = kRescuedMaps - 1 - std::erase(paths, spared);
  for (std::size_t i = others; i < paths.size(); ++i) DeleteFile(files, paths[i]);
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
  const FileContents file = ReadFile(files, path, kUndoFileSize + kLongestLabel);
  RescuedMap rescued{.label = {}, .map = std::make_unique<MapDocument>()};
  Selection selection;
  const LoadReport report = TakeMapFile(*rescued.map, selection, file, path, true);
  if (report.outcome != LoadOutcome::kLoaded) return std::nullopt;
  ZeroFreeSlots(*rescued.map);  // previews and clipboard belonged to the editor that is gone
  rescued.label = ReadLabel(AsText(std::span(file.bytes).subspan(kUndoFileSize)));
  return rescued;
}

}  // namespace vesmora
