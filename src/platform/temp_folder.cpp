#include "platform/temp_folder.h"

#include <algorithm>
#include <array>

namespace vesmora {
namespace {

#ifdef _WIN32
const std::string kEditorName = "Vesmora";  // the folder serves all of the user's programs
#else
const std::string kEditorName;
#endif
constexpr int kMostEditors = 100;

/// As large as a block of a disk: a full one takes a name, and no bytes.
FileStatus TryToWrite(FileCalls& calls, const std::string& folder) {
  const std::string path = folder + "VesmoraUndo.try";
  const std::array<std::byte, 4096> bytes{};
  const FileStatus status = WriteFileInPlace(calls, path, bytes);
  DeleteFile(calls, path);
  return status;
}

/// The user's own among those of the system's `shared` folder, with a trailing slash; empty, with
/// a status, when there is none.
std::string TakeOwnFolder(FileCalls& calls, const std::string& shared, FileStatus& status) {
  const std::string name = OwnFolderName();
  if (shared.empty()) {
    status = {FileFailure::kError, "The system names none."};
    return "";
  }
  if (name.empty()) {
    status = TryToWrite(calls, shared);
    return status.Ok() ? shared : "";
  }
  // If the usual one is somebody else's, one of a rare name, which nobody can have prepared.
  std::vector<std::string> names;
  calls.ListFolder(shared, names);
  std::erase_if(names, [&](const auto& other) { return !other.starts_with(name + "-"); });
  std::ranges::sort(names);
  names.insert(names.begin(), name);
  names.push_back(name + "-" + UnlikelyName());
  for (const std::string& other : names) {
    const std::string path = shared + other;
    status = CreatePrivateFolder(calls, path);
    if (!status.Ok()) continue;
    status = TryToWrite(calls, path + "/");
    return status.Ok() ? path + "/" : "";
  }
  return "";
}

/// Notes by what the folder is known; false when that cannot be read.
bool Recognise(FileCalls& calls, UndoFolder& folder) {
  FileInfo info;
  if (calls.Info(folder.path, info) < 0) return false;
  folder.device = info.device;
  folder.number = info.number;
  return true;
}

bool Hold(FileCalls& calls, UndoFolder& folder) {
  folder.hold = FolderHold(HoldFolder(folder.path));
  return folder.hold.IsHeld() && Recognise(calls, folder);
}

/// One that no other editor can come upon, nor any later one.
UndoFolder NewFolder(FileCalls& calls, const std::string& tempFolder) {
  const std::string path = tempFolder + kEditorName + "-" + UnlikelyName();
  UndoFolder folder{.temp = tempFolder, .path = path + tempFolder.back()};
  if (CreatePrivateFolder(calls, path).Ok() && Recognise(calls, folder)) return folder;
  return {.temp = tempFolder, .path = ""};
}

}  // namespace

TempFolder PrivateTempFolder(FileCalls& calls, const std::string& last) {
  TempFolder found;
  std::vector<std::string> folders = SystemTempFolders();
  const std::string first = folders.front();
  if (!last.empty()) folders.push_back(last);
  for (const std::string& folder : folders) {
    if (folder == last) CreateFolders(calls, last.substr(0, last.size() - 1));
    FileStatus status;
    found.path = TakeOwnFolder(calls, folder, status);
    if (folder == first && !status.Ok()) {
      found.problem = "The temporary folder '" + first + "' cannot be used: " + status.reason;
    }
    if (!found.path.empty()) break;
  }
  return found;
}

UndoFolder HoldUndoFolder(FileCalls& calls, const std::string& tempFolder) {
  UndoFolder folder{.temp = tempFolder, .path = tempFolder};
  if (tempFolder.empty()) return folder;
  if (IsGone(calls, tempFolder)) {
    CreatePrivateFolder(calls, tempFolder.substr(0, tempFolder.size() - 1));
  }
  if (Hold(calls, folder)) return folder;
  if (!folder.hold.IsPossible()) return NewFolder(calls, tempFolder);
  for (int number = 2; number <= kMostEditors; ++number) {
    const std::string path = tempFolder + kEditorName + std::to_string(number);
    folder.path = path + tempFolder.back();
    if (CreatePrivateFolder(calls, path).Ok() && Hold(calls, folder)) return folder;
  }
  return {.temp = tempFolder, .path = ""};
}

bool IsStillHeld(FileCalls& calls, const UndoFolder& folder) {
  if (folder.path.empty()) return false;
  FileInfo info;
  if (calls.Info(folder.path, info) < 0) return !IsGone(calls, folder.path);
  return info.device == folder.device && info.number == folder.number;
}

std::vector<UndoFolder> HoldAbandonedFolders(FileCalls& calls, const std::string& tempFolder,
                                             const UndoFolder& own) {
  std::vector<std::string> names;
  calls.ListFolder(tempFolder, names);
  std::vector<UndoFolder> abandoned;
  for (int number = 1; number <= kMostEditors; ++number) {
    const std::string name = number > 1 ? kEditorName + std::to_string(number) : "";
    if (number > 1 && std::ranges::find(names, name) == names.end()) continue;
    UndoFolder folder{.temp = tempFolder, .path = tempFolder + name};
    if (number > 1) folder.path += tempFolder.back();
    if (folder.path != own.path && Hold(calls, folder)) abandoned.push_back(std::move(folder));
  }
  return abandoned;
}

FolderHold::~FolderHold() {
  if (IsHeld()) LetFolderGo(handle_);
}

}  // namespace vesmora
