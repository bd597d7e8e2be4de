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
enum class RescueCause { kNew, kOpen, kExit, kSessionEnd, kCrash, kLostUndo };

struct RescueLabel {
  RescueCause cause = RescueCause::kCrash;
  std::int64_t time = 0;  // at which the map was last seen, milliseconds since 1970
  std::string mapPath;    // of the map's file; empty for one that had none
};

struct RescuedMap {
  RescueLabel label;
  std::unique_ptr<MapDocument> map;
};

/// Keeps a map, given as an undo file's bytes, in `folder`, which is made when it is missing. Of
/// more than ten those go that were kept first; `now` is in milliseconds since 1970. On failure
/// nothing has changed.
[[nodiscard]] FileStatus KeepRescued(FileCalls& files, const std::string& folder,
                                     std::span<const std::byte> undoFile, const RescueLabel& label,
                                     std::int64_t now);

/// Paths, the one that was kept last first.
std::vector<std::string> ListRescued(FileCalls& files, const std::string& folder);

/// None when it cannot be read.
std::optional<RescuedMap> ReadRescued(FileCalls& files, const std::string& path);

}  // namespace vesmora
