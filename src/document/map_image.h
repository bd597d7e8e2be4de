// The map file byte for byte: the document's items one after another, no header
// and no padding. Undo files have two further items at the end.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "document/map_document.h"
#include "document/selection.h"

namespace vesmora {

inline constexpr std::size_t kMapFileSize = 502112;
inline constexpr std::size_t kUndoFileSize = kMapFileSize + kSelectionBlockSize + 2;
/// Where the texture's name and the number that every save draws anew lie.
inline constexpr std::size_t kTextureOffset = 48005;
inline constexpr std::size_t kRandomIdOffset = 444060;
/// Where the second table of items, from the sector division on, must begin.
inline constexpr std::size_t kDivisionOffset = 434868;
/// Where the sectors begin; the two loose bytes behind them end the first table of items.
inline constexpr std::size_t kSectorsOffset = kDivisionOffset - 2 - sizeof(MapDocument::sectors);

/// The two items that undo files carry behind the map.
struct UndoItems {
  SelectionBlock selection{};
  std::int16_t toolIndex = 0;
};

struct ImageReading {
  std::int16_t polygonCount = 0;  // as stored: a damaged file may hold anything
  std::size_t divisionPosition = 0;
};

/// Fills the document's tables and properties from a file's bytes, unscaled.
/// Items past the end of a short file stay as they were; `undo`, when given, is
/// read too.
ImageReading ReadMapImage(std::span<const std::byte> bytes, MapDocument& document, UndoItems* undo);

/// Writes a map's items as they stand to the first kMapFileSize bytes of `image`.
void WriteMapImage(const MapDocument& document, std::span<std::byte> image);

/// What an undo file consists of, in its order. The largest item, the sectors, is not copied: the
/// second piece is the document's own.
using UndoPieces = std::array<std::span<const std::byte>, 3>;

/// The items as they stand; `buffer`, large enough for all but the sectors, keeps what is copied.
UndoPieces WriteUndoPieces(const MapDocument& document, const UndoItems& undo,
                           std::span<std::byte> buffer);

/// Waypoints are whole world units in files and 1/256 units in memory.
void WaypointsToFile(MapDocument& document);
void WaypointsToMemory(MapDocument& document);

}  // namespace vesmora
