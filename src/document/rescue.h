// Maps that were open and never saved, kept beside the settings: each one file, an undo file with a
// label behind it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/map_document.h"
#include "platform/files.h"

namespace vesmora {

inline constexpr std::size_t kRescuedMaps = 10;

/// What ended a map.
enum class RescueCause { kNew, kOpen, kExit, kSessionEnd, kCrash, kLostUndo, kUndone };

struct RescueLabel {
  RescueCause cause = RescueCause::kCrash;
  std::int64_t time = 0;  // at which the map was last seen, milliseconds since 1970
  std::string mapPath;    // of the map's file; empty for one that had none
};

struct RescuedMap {
  RescueLabel label;
  std::unique_ptr<MapDocument> map;
};

/// Where rescued maps go.
struct RescueFolder {
  FileCalls& files;
  std::string path;      // ends with a slash; made when it is missing
  std::int64_t now = 0;  // milliseconds since 1970
};

/// Keeps a map, given as an undo file's bytes, and writes the path of its file to `kept`. Of more
/// than ten those go that were kept first, but not `spared`. On failure nothing has changed.
[[nodiscard]] FileStatus KeepRescued(const RescueFolder& folder,
                                     std::span<const std::byte> undoFile, const RescueLabel& label,
                                     const std::string& spared, std::string& kept);

/// Paths, the one that was kept last first.
std::vector<std::string> ListRescued(FileCalls& files, const std::string& folder);

/// None when it cannot be read.
std::optional<RescuedMap> ReadRescued(FileCalls& files, const std::string& path);

}  // namespace vesmora
