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
  bool isRead = false;  // one that cannot be read now may hold the map all the same
  bool isWhole = false;
  std::int32_t sequence = 0;
  std::int64_t time = 0;

  bool operator<(const Candidate& other) const {
    return std::tie(isWhole, sequence, time) < std::tie(other.isWhole, other.sequence, other.time);
  }
};

/// Where lost maps go.
struct Rescue {
  FileCalls& files;
  const std::string& folder;
  std::int64_t now;
};

/// None when it certainly holds no map.
std::optional<Candidate> LookAt(FileCalls& files, const std::string& folder,
                                const std::string& name) {
  const FileContents file = ReadFile(files, folder + name, kUndoFileSize);
  if (file.status.Ok() && file.bytes.size() < kUndoFileSize) return std::nullopt;
  if (file.status.failure == FileFailure::kMissing) return std::nullopt;
  FileInfo info;
  files.Info(folder + name, info);
  const auto mark = MarkOfWhole(file.bytes);
  return Candidate{.name = name,
                   .isRead = file.status.Ok(),
                   .isWhole = mark.has_value(),
                   .sequence = mark ? mark->sequence : 0,
                   .time = info.modified};
}

/// False when the folder cannot be read.
bool FindCandidates(FileCalls& files, const std::string& folder, std::string_view prefix,
                    std::vector<Candidate>& candidates) {
  std::vector<std::string> names;
  if (files.ListFolder(folder, names) < 0) return false;
  for (const std::string& name : names) {
    if (!name.starts_with(prefix) || name == kNoteName) continue;
    if (const auto candidate = LookAt(files, folder, name)) candidates.push_back(*candidate);
  }
  return true;
}

/// The file of the map as it was when the editor died, as far as it was filed; none when that was
/// just as it was noted to be saved.
std::optional<Candidate> NewestOf(const std::vector<Candidate>& candidates, FileCalls& files,
                                  const std::string& folder, const Note& note) {
  if (candidates.empty()) return std::nullopt;
  const Candidate newest = *std::max_element(candidates.begin(), candidates.end());
  if (!newest.isWhole || newest.sequence > note.sequence) return newest;
  if (note.file.empty()) return std::nullopt;
  return LookAt(files, folder, note.file).value_or(newest);
}

/// False when it could not be kept.
bool KeepLost(const Rescue& rescue, const std::string& path, std::int64_t time, const Note& note) {
  const auto map = std::make_unique<MapDocument>();
  Selection selection;
  const LoadReport report = LoadMap(*map, selection, rescue.files, path, true);
  if (report.outcome != LoadOutcome::kLoaded) return false;
  if (IsEmpty(*map) || Fingerprint(*map) == note.savedMap) return true;
  const FileContents file = ReadFile(rescue.files, path, kUndoFileSize);
  const RescueLabel label{.cause = RescueCause::kCrash, .time = time, .mapPath = note.mapPath};
  return file.status.Ok() &&
         KeepRescued(rescue.files, rescue.folder, file.bytes, label, rescue.now).Ok();
}

/// Those that an earlier start could not keep.
void KeepEarlierLost(const Rescue& rescue, const std::string& temp) {
  std::vector<Candidate> found;
  FindCandidates(rescue.files, temp, kLostPrefix, found);
  for (const Candidate& lost : found) {
    if (KeepLost(rescue, temp + lost.name, lost.time, {})) {
      DeleteFile(rescue.files, temp + lost.name);
    }
  }
}

/// Out of the way of the editor that will have the folder. False when that failed.
bool MoveAside(FileCalls& files, const UndoFolder& folder, const Candidate& candidate) {
  const std::string lost = folder.temp + std::string(kLostPrefix) + "-" + UnlikelyName() + ".tmp";
  return MoveFileOver(files, folder.path + candidate.name, lost).Ok();
}

/// Keeps what a dead editor has left in `folder` and empties it. False when something is still
/// there: the folder must not be used then.
bool KeepLostOf(const Rescue& rescue, const UndoFolder& folder) {
  FileCalls& files = rescue.files;
  const Note note = ReadNote(files, folder.path);
  std::vector<Candidate> candidates;
  if (!FindCandidates(files, folder.path, kStepPrefix, candidates)) return false;
  const auto newest = NewestOf(candidates, files, folder.path, note);
  if (newest && !KeepLost(rescue, folder.path + newest->name, newest->time, note) &&
      !MoveAside(files, folder, *newest)) {
    return false;
  }
  for (const Candidate& candidate : candidates) {
    const bool isElsewhere = newest && newest->name == candidate.name;
    if (!candidate.isRead && !isElsewhere && !MoveAside(files, folder, candidate)) return false;
  }
  DeleteSnapshotFiles(folder, files);
  return true;
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

bool RescueLostMaps(FileCalls& files, const UndoFolder& own, const std::string& rescueFolder,
                    std::int64_t now) {
  if (own.path.empty()) return true;
  KeepEarlierLost({.files = files, .folder = rescueFolder, .now = now - 1}, own.temp);
  const Rescue rescue{.files = files, .folder = rescueFolder, .now = now};
  for (UndoFolder& folder : HoldAbandonedFolders(files, own)) {
    const std::string path = folder.path;
    const bool isEmptied = KeepLostOf(rescue, folder);
    LetGo(folder);
    if (isEmptied && path != own.temp) files.RemoveFolder(path.substr(0, path.size() - 1));
  }
  return KeepLostOf(rescue, own);
}

}  // namespace vesmora
