#include "document/lost_maps.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "document/checksum.h"
#include "document/map_file.h"
#include "document/rescue.h"
#include "document/snapshot.h"

namespace vesmora {
namespace {

const std::string kNoteName = "VesmoraUndo.map";
constexpr std::string_view kStepPrefix = "VesmoraUndo";
constexpr std::string_view kLostPrefix = "VesmoraLost";
constexpr std::size_t kLongestNote = 1U << 16U;  // bytes

struct Note {
  std::int32_t sequence = 0;   // of the newest file when it was written
  std::uint64_t savedMap = 0;  // its fingerprint
  std::string file;            // the map as it was then, in the same folder
  std::string mapPath;
};

/// Fields end with NUL, which no path holds, and behind the last one may lie the rest of an older,
/// longer note.
std::string TextOf(const Note& note) {
  std::string text;
  for (const std::string& field :
       {std::to_string(note.sequence), std::to_string(note.savedMap), note.file, note.mapPath}) {
    text.append(field).push_back('\0');
  }
  return text;
}

std::string_view TakeField(std::string_view& text) {
  const std::size_t end = std::min(text.find('\0'), text.size());
  const std::string_view field = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return field;
}

template <typename Number>
void ReadNumber(std::string_view field, Number& number) {
  std::from_chars(field.data(), field.data() + field.size(), number);
}

Note ReadNote(FileCalls& files, const std::string& folder) {
  const FileContents contents = ReadFile(files, folder + kNoteName, kLongestNote);
  std::string_view text(reinterpret_cast<const char*>(contents.bytes.data()),
                        contents.bytes.size());
  Note note;
  ReadNumber(TakeField(text), note.sequence);
  ReadNumber(TakeField(text), note.savedMap);
  note.file = TakeField(text);
  note.mapPath = TakeField(text);
  return note;
}

/// A file with a map in it.
struct Candidate {
  std::string name;
  bool isWhole = false;
  std::int32_t sequence = 0;
  std::int64_t time = 0;

  bool operator<(const Candidate& other) const {
    return std::tie(isWhole, sequence, time) < std::tie(other.isWhole, other.sequence, other.time);
  }
};

std::optional<Candidate> LookAt(FileCalls& files, const std::string& folder,
                                const std::string& name) {
  const FileContents file = ReadFile(files, folder + name, kUndoFileSize);
  FileInfo info;
  if (file.bytes.size() < kUndoFileSize || files.Info(folder + name, info) < 0) return std::nullopt;
  const auto mark = MarkOfWhole(file.bytes);
  return Candidate{.name = name,
                   .isWhole = mark.has_value(),
                   .sequence = mark ? mark->sequence : 0,
                   .time = info.modified};
}

/// The file of the map as it was when the editor died, as far as it was filed; none when that was
/// just as it was noted to be saved.
std::optional<Candidate> NewestOf(FileCalls& files, const std::string& folder, const Note& note) {
  std::vector<std::string> names;
  files.ListFolder(folder, names);
  std::optional<Candidate> newest;
  for (const std::string& name : names) {
    if (!name.starts_with(kStepPrefix) || name == kNoteName) continue;
    const auto candidate = LookAt(files, folder, name);
    if (candidate && (!newest || *newest < *candidate)) newest = candidate;
  }
  const bool isFiledLater = newest && newest->sequence > note.sequence;
  if (isFiledLater || (newest && !newest->isWhole)) return newest;
  if (note.file.empty()) return std::nullopt;
  const auto noted = LookAt(files, folder, note.file);
  return noted ? noted : newest;
}

/// False when it could not be kept.
bool KeepLost(FileCalls& files, const std::string& folder, const std::string& rescueFolder,
              const Candidate& candidate, const Note& note) {
  const std::string path = folder + candidate.name;
  const auto map = std::make_unique<MapDocument>();
  Selection selection;
  if (LoadMap(*map, selection, files, path, true).outcome != LoadOutcome::kLoaded) return false;
  if (IsEmpty(*map) || Fingerprint(*map) == note.savedMap) return true;
  const FileContents file = ReadFile(files, path, kUndoFileSize);
  return file.status.Ok() &&
         KeepRescued(
             files, rescueFolder, file.bytes,
             {.cause = RescueCause::kCrash, .time = candidate.time, .mapPath = note.mapPath})
             .Ok();
}

/// Those that an earlier call could not keep.
void KeepEarlierLost(FileCalls& files, const std::string& folder, const std::string& rescueFolder) {
  std::vector<std::string> names;
  files.ListFolder(folder, names);
  for (const std::string& name : names) {
    if (!name.starts_with(kLostPrefix)) continue;
    const auto lost = LookAt(files, folder, name);
    if (!lost || KeepLost(files, folder, rescueFolder, *lost, {})) DeleteFile(files, folder + name);
  }
}

/// Keeps what a dead editor has left in `folder` and empties it.
void RescueLostMap(FileCalls& files, const UndoFolder& folder, const std::string& rescueFolder) {
  KeepEarlierLost(files, folder.path, rescueFolder);
  const Note note = ReadNote(files, folder.path);
  const auto newest = NewestOf(files, folder.path, note);
  if (newest && !KeepLost(files, folder.path, rescueFolder, *newest, note)) {
    const std::string lost = folder.temp + std::string(kLostPrefix) + "-" + UnlikelyName() + ".tmp";
    if (!MoveFileOver(files, folder.path + newest->name, lost).Ok()) return;
  }
  DeleteSnapshotFiles(folder, files);
}

}  // namespace

void NoteOpenMap(const EditedMap& map, FileCalls& files, const std::string& file) {
  const std::string& folder = map.journal.folder.path;
  if (folder.empty()) return;
  const std::string text = TextOf({.sequence = map.journal.sequence,
                                   .savedMap = map.savedMap,
                                   .file = file.substr(std::min(file.size(), folder.size())),
                                   .mapPath = map.document.fileName});
  static_cast<void>(WriteFileInPlace(files, folder + kNoteName, std::as_bytes(std::span(text))));
}

void RescueLostMaps(FileCalls& files, const UndoFolder& own, const std::string& rescueFolder) {
  if (own.path.empty()) return;
  RescueLostMap(files, own, rescueFolder);
  for (UndoFolder& folder : HoldAbandonedFolders(files, own)) {
    RescueLostMap(files, folder, rescueFolder);
    const std::string path = folder.path;
    LetGo(folder);
    if (path != own.temp) files.RemoveFolder(path.substr(0, path.size() - 1));
  }
}

}  // namespace vesmora
