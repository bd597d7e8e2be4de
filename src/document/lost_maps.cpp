#include "document/lost_maps.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <tuple>
#include <vector>

#include "document/checksum.h"
#include "document/map_file.h"
#include "document/session_note.h"
#include "document/snapshot.h"

namespace vesmora {
namespace {

constexpr std::string_view kLostPrefix = "VesmoraLost";

/// A file that may hold the lost map.
struct Candidate {
  std::string name;
  FileContents contents;
  std::int32_t sequence = -1;  // of a whole file only
  std::int64_t time = 0;       // milliseconds since 1970

  auto Order() const { return std::tie(sequence, time); }
};

/// None when it certainly holds no map.
std::optional<Candidate> LookAt(FileCalls& files, const std::string& folder,
                                const std::string& name) {
  Candidate candidate{.name = name, .contents = ReadFile(files, folder + name, kUndoFileSize)};
  const FileStatus& status = candidate.contents.status;
  if (status.failure == FileFailure::kMissing) return std::nullopt;
  if (status.Ok() && candidate.contents.bytes.size() < kUndoFileSize) return std::nullopt;
  if (const auto mark = MarkOfWhole(candidate.contents.bytes)) candidate.sequence = mark->sequence;
  FileInfo info;
  files.Info(folder + name, info);
  candidate.time = info.modified;
  return candidate;
}

/// The newest first. False when the folder cannot be read.
template <typename IsWanted>
bool FindCandidates(FileCalls& files, const std::string& folder, IsWanted isWanted,
                    std::vector<Candidate>& candidates) {
  std::vector<std::string> names;
  if (files.ListFolder(folder, names) < 0) return false;
  for (const std::string& name : names) {
    if (!isWanted(name)) continue;
    if (auto candidate = LookAt(files, folder, name)) candidates.push_back(std::move(*candidate));
  }
  std::ranges::sort(candidates, std::ranges::greater(), &Candidate::Order);
  return true;
}

/// Leaves only those that may hold the map as it was when the editor died, the most likely first.
void DropOlderThanNote(std::vector<Candidate>& candidates, FileCalls& files,
                       const std::string& folder, const SessionNote& note) {
  if (candidates.empty() || candidates.front().sequence < 0) return;  // nothing is whole
  auto noted = note.file.empty() ? std::nullopt : LookAt(files, folder, note.file);
  if (!note.file.empty() && !noted) return;  // it has gone: the newest is the next best
  std::erase_if(candidates, [&](const Candidate& c) { return c.sequence <= note.sequence; });
  if (noted) candidates.push_back(std::move(*noted));
}

/// A kill in the middle of an earlier rescue has left it to be done again.
bool IsKeptAlready(const RescueFolder& rescue, std::uint64_t map) {
  const std::vector<std::string> paths = ListRescued(rescue.files, rescue.path);
  if (paths.empty()) return false;
  const auto newest = ReadRescued(rescue.files, paths.front());
  return newest && Fingerprint(*newest->map) == map;
}

enum class Rescued { kDone, kEmpty, kFailed };

/// What was saved is no loss, and what is empty may have been written after it.
Rescued KeepLost(const RescueFolder& rescue, const Candidate& candidate, const SessionNote& note,
                 FileStatus& problem) {
  const auto map = std::make_unique<MapDocument>();
  Selection selection;
  const LoadReport report = TakeMapFile(*map, selection, candidate.contents, candidate.name, true);
  if (report.outcome != LoadOutcome::kLoaded) {
    if (problem.Ok()) problem = candidate.contents.status;
    return Rescued::kFailed;
  }
  if (IsEmpty(*map)) return Rescued::kEmpty;
  const std::uint64_t present = Fingerprint(*map);
  if (present == note.savedMap || IsKeptAlready(rescue, present)) return Rescued::kDone;
  const RescueLabel label{
      .cause = RescueCause::kCrash, .time = candidate.time, .mapPath = note.mapPath};
  std::string kept;
  const FileStatus status = KeepRescued(rescue, candidate.contents.bytes, label, "", kept);
  if (problem.Ok()) problem = status;
  return status.Ok() ? Rescued::kDone : Rescued::kFailed;
}

/// Out of the way of the editor that will have the folder. False when that failed.
bool MoveAside(FileCalls& files, const UndoFolder& folder, const Candidate& candidate) {
  const std::string lost = folder.temp + std::string(kLostPrefix) + "-" + UnlikelyName() + ".tmp";
  return MoveFileOver(files, folder.path + candidate.name, lost).Ok();
}

/// Those that an earlier start could not keep.
void KeepEarlierLost(const RescueFolder& rescue, const std::string& temp, FileStatus& problem) {
  std::vector<Candidate> found;
  FindCandidates(
      rescue.files, temp, [](const auto& name) { return name.starts_with(kLostPrefix); }, found);
  for (const Candidate& lost : found) {
    if (KeepLost(rescue, lost, {}, problem) == Rescued::kFailed) continue;
    DeleteFile(rescue.files, temp + lost.name);
  }
}

/// Keeps what a dead editor has left in `folder` and empties it. False when something is still
/// there: the folder must not be used then.
bool KeepLostOf(const RescueFolder& rescue, const UndoFolder& folder, FileStatus& problem) {
  FileCalls& files = rescue.files;
  const SessionNote note = ReadSessionNote(files, folder.path);
  std::vector<Candidate> candidates;
  if (!FindCandidates(files, folder.path, IsFileOfUndo, candidates)) return false;
  for (const Candidate& candidate : candidates) {
    const bool isUnread = !candidate.contents.status.Ok();
    if (isUnread && !MoveAside(files, folder, candidate)) return false;
  }
  std::erase_if(candidates, [](const Candidate& c) { return !c.contents.status.Ok(); });
  DropOlderThanNote(candidates, files, folder.path, note);
  for (const Candidate& candidate : candidates) {
    const Rescued rescued = KeepLost(rescue, candidate, note, problem);
    if (rescued == Rescued::kEmpty) continue;
    if (rescued == Rescued::kFailed && !MoveAside(files, folder, candidate)) return false;
    break;
  }
  DeleteSnapshotFiles(folder, files);
  return true;
}

}  // namespace

FileStatus RescueLostMaps(const RescueFolder& rescue, UndoFolder& own,
                          const std::vector<std::string>& temps) {
  FileStatus problem;
  FileCalls& files = rescue.files;
  for (const std::string& temp : temps) {
    KeepEarlierLost(rescue, temp, problem);
    for (UndoFolder& folder : HoldAbandonedFolders(files, temp, own)) {
      const std::string path = folder.path;
      const bool isEmptied = KeepLostOf(rescue, folder, problem);
      folder = {};
      if (isEmptied && path != temp) files.RemoveFolder(path.substr(0, path.size() - 1));
    }
  }
  if (!own.path.empty() && own.hold.IsHeld() && !KeepLostOf(rescue, own, problem)) {
    own = HoldFolderWithoutSteps(files, own.temp);
  }
  return problem;
}

}  // namespace vesmora
