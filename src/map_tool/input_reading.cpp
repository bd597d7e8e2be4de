#include "map_tool/input_reading.h"

#include <utility>

#include "document/map_file.h"

namespace vesmora::map_tool {
namespace {

/// Reads a file of the size of the one before into the same memory: fresh memory is zeroed first,
/// which takes half as long as reading a map. False when that cannot be done, for whatever reason.
bool ReadSameSize(FileCalls& files, const std::string& path, FileContents& file) {
  if (file.bytes.empty()) return false;
  const int handle = files.OpenToRead(path);
  if (handle < 0) return false;
  FileInfo info;
  const auto size = static_cast<std::int64_t>(file.bytes.size());
  const bool isRead = files.InfoOfHandle(handle, info) >= 0 && info.kind == FileKind::kRegular &&
                      info.size == file.bytes.size() && files.Read(handle, file.bytes) == size;
  files.Close(handle);
  if (isRead) file = {.status = {}, .bytes = std::move(file.bytes), .size = info.size};
  return isRead;
}

}  // namespace

void ReadInput(FileCalls& files, Console& console, const Input& input, FileContents& file) {
  if (!input.problem.empty()) {
    file = {.status = {FileFailure::kError, input.problem}, .bytes = {}};
  } else if (input.path == kStandardStream) {
    file = console.ReadInput(kMapReadLimit);
  } else if (!ReadSameSize(files, input.path, file)) {
    file = ReadFile(files, input.path, kMapReadLimit);
  }
}

std::string ReadPrefabFile(FileCalls& files, const std::string& path,
                           std::optional<Prefab>& prefab) {
  const FileContents file = ReadFile(files, path, kPrefabReadLimit);
  if (file.status.failure == FileFailure::kMissing) return "not found";
  if (!file.status.Ok()) return "could not be read: " + file.status.reason;
  if (!ReadPrefabHeader(file.bytes).isKnownVersion) return "is no prefab of this version";
  prefab = ReadPrefab(file.bytes);
  return prefab ? std::string() : "is damaged";
}

}  // namespace vesmora::map_tool
