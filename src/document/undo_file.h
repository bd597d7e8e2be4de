// Undo files: a map with its selection and tool, and a mark by which files of one editor are put
// in order and torn ones are known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "document/map_image.h"
#include "platform/files.h"

namespace vesmora {

/// Stands in spare bytes of the selection block.
struct UndoMark {
  std::int32_t sequence = 0;  // counts the files that one editor has written; 23 bits
  bool isExact = false;       // waypoints lie as in memory, not at whole units
};

/// Writes the map as it stands, in place and without syncing. A failure may leave the file partly
/// written.
[[nodiscard]] FileStatus WriteUndoFile(const MapDocument& document, const Selection& selection,
                                       UndoMark mark, FileCalls& files, const std::string& path);

/// The same bytes, with nothing rounded and nothing drawn anew: what is read back is the map as it
/// is.
std::vector<std::byte> ExactUndoFile(const MapDocument& document, const Selection& selection,
                                     std::int32_t sequence);

UndoMark MarkOf(const SelectionBlock& block);

/// Of a whole file; none when it is shorter than an undo file or not the bytes that were written.
std::optional<UndoMark> MarkOfWhole(std::span<const std::byte> file);

}  // namespace vesmora
