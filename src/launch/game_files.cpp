#include "launch/game_files.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/single_byte_text.h"
#include "platform/text.h"

namespace vesmora {
namespace {

const std::string kSection = "GAME";
const std::string kStyleKey = "GameStyle";
constexpr std::int32_t kAbsentStyle = 9;
constexpr std::int32_t kFlagStyle = 3;       // capture the flag
constexpr std::size_t kExtensionLength = 4;  // with its dot

std::string CouldNot(const char* what, const std::string& path, const std::string& reason) {
  return "File '" + path + "' could not be " + what + ": " + reason;
}

/// What the game calls a map: without the extension, in its single-byte characters. Empty
/// when nothing is left.
std::string ListedName(std::string_view map) {
  const std::string name = FromUtf8(UpperCase(map));
  return name.size() > kExtensionLength ? name.substr(0, name.size() - kExtensionLength) : "";
}

/// The style to write; none when the game's own choice may stay.
std::optional<std::string> StyleFor(std::string_view map, std::int32_t present) {
  if (EqualsIgnoringCase(map.substr(0, 4), "CTF_")) return std::to_string(kFlagStyle);
  if (present == kFlagStyle) return "0";
  return std::nullopt;
}

/// Gives a file its old content, or no file its place, back.
FileStatus PutBack(FileCalls& files, const std::string& path, const FileContents& old) {
  if (old.status.failure == FileFailure::kMissing) return DeleteFile(files, path);
  return WriteFileDurably(files, path, old.bytes);
}

}  // namespace

std::string GamePath(const GameFolder& game, std::string_view parts) {
  std::string folder = game.path;
  while (true) {
    const std::size_t slash = std::min(parts.find('/'), parts.size());
    std::string name(parts.substr(0, slash));
    FileInfo info;
    if (game.files.Info(folder + name, info) < 0) {
      std::vector<std::string> names;
      game.files.ListFolder(folder, names);
      std::ranges::sort(names);
      const auto found = std::ranges::find(names, LowerCase(name),
                                           [](const auto& other) { return LowerCase(other); });
      if (found != names.end()) name = *found;
    }
    if (slash == parts.size()) return folder + name;
    folder += name + "/";
    parts.remove_prefix(slash + 1);
  }
}

std::string PointGameAt(const GameFolder& game, const std::string& fileName) {
  const std::string_view map = FileNamePart(fileName);
  const std::string name = ListedName(map);
  if (name.empty()) return {};
  const std::string played = GamePath(game, "MAPS/" + std::string(map));
  if (IsGone(game.files, played)) return {};
  FileInfo info;
  if (game.files.Info(played, info) < 0) return CouldNot("read", played, game.files.LastError());
  if (info.kind == FileKind::kFolder) return {};

  const std::string profile = GamePath(game, "soldat.ini");
  const FileContents old = ReadProfile(game.files, profile);
  if (old.status.failure == FileFailure::kError) {
    return CouldNot("read", profile, old.status.reason);
  }
  ProfileFiles profiles(game.files);
  const std::int32_t present = profiles.ReadInt(profile, kSection, kStyleKey, kAbsentStyle);
  const std::optional<std::string> style = StyleFor(map, present);
  if (style) {
    const FileStatus status = profiles.Write(profile, kSection, kStyleKey, *style);
    if (!status.Ok()) return CouldNot("written", profile, status.reason);
  }

  const std::string list = GamePath(game, "mapslist.txt");
  const std::string line = name + "\r\n";
  const FileStatus status = WriteFileDurably(game.files, list, std::as_bytes(std::span(line)));
  if (status.Ok()) return {};
  std::string reason = CouldNot("written", list, status.reason);
  if (style) {
    const FileStatus undone = PutBack(game.files, profile, old);
    if (!undone.Ok()) reason += "\n" + CouldNot("put back as it was", profile, undone.reason);
  }
  return reason;
}

}  // namespace vesmora
