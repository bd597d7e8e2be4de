#include "document/undo_file.h"

#include <array>
#include <cstring>
#include <memory>

#include "document/checksum.h"

namespace vesmora {
namespace {

constexpr std::size_t kMarkOffset = kMapFileSize + kSelectionBytes;
constexpr std::size_t kSumOffset = kMarkOffset + 3;
constexpr std::uint32_t kExactBit = 1U << 23U;
static_assert(kSelectionBlockSize - kSelectionBytes == 7, "3 bytes for the mark, 4 for the sum");

/// Kept between writes: getting fresh pages from the system takes as long as writing them.
/// Everything runs on one thread.
std::span<std::byte> PieceBuffer() {
  static std::vector<std::byte> buffer(kUndoFileSize - sizeof(MapDocument::sectors));
  return buffer;
}

/// A sum that tells when pages of an older file stand among those of a new one. It is taken at
/// every step, so it only adds: two sums of every other word, and of these sums.
struct TearSum {
  std::uint64_t even = 0;
  std::uint64_t odd = 0;
  std::uint64_t evenSums = 0;
  std::uint64_t oddSums = 0;
};

TearSum Added(TearSum sum, std::span<const std::byte> bytes) {
  std::array<std::uint64_t, 2> words{};
  const std::byte* at = bytes.data();
  for (std::size_t left = bytes.size() / sizeof(words); left > 0; --left, at += sizeof(words)) {
    std::memcpy(words.data(), at, sizeof(words));
    sum.evenSums += sum.even += words[0];
    sum.oddSums += sum.odd += words[1];
  }
  words = {};
  std::memcpy(words.data(), at, bytes.size() % sizeof(words));
  sum.evenSums += sum.even += words[0];
  sum.oddSums += sum.odd += words[1];
  return sum;
}

/// Of all but the sectors, which only Compile changes, and but itself.
std::uint32_t SumOf(std::span<const std::byte> head, std::span<const std::byte> tail) {
  constexpr std::size_t kBehind = kUndoFileSize - kSumOffset;
  TearSum sum = Added({}, head);
  sum = Added(sum, tail.first(tail.size() - kBehind));
  sum = Added(sum, tail.last(kBehind - sizeof(std::uint32_t)));
  return static_cast<std::uint32_t>(Checksum(std::as_bytes(std::span(&sum, 1))) >> 32U);
}

UndoPieces MarkedPieces(const MapDocument& document, const Selection& selection, UndoMark mark) {
  UndoItems undo{PackSelection(selection, document), static_cast<std::int16_t>(document.toolIndex)};
  const std::uint32_t bits = (static_cast<std::uint32_t>(mark.sequence) & (kExactBit - 1)) |
                             (mark.isExact ? kExactBit : 0);
  std::memcpy(&undo.selection[kSelectionBytes], &bits, 3);
  const std::span<std::byte> buffer = PieceBuffer();
  const UndoPieces pieces = WriteUndoPieces(document, undo, buffer);
  const std::uint32_t sum = SumOf(pieces.front(), pieces.back());
  std::memcpy(&buffer[kSumOffset - pieces[1].size()], &sum, sizeof(sum));
  return pieces;
}

}  // namespace

FileStatus WriteUndoFile(const MapDocument& document, const Selection& selection, UndoMark mark,
                         FileCalls& files, const std::string& path) {
  return WriteFileInPlace(files, path, MarkedPieces(document, selection, mark));
}

std::vector<std::byte> ExactUndoFile(const MapDocument& document, const Selection& selection,
                                     std::int32_t sequence) {
  const auto copy = std::make_unique<MapDocument>(document);  // on the heap: half a megabyte
  StoreAuthor(*copy);
  std::vector<std::byte> bytes;
  bytes.reserve(kUndoFileSize);
  for (const auto piece : MarkedPieces(*copy, selection, {sequence, true})) {
    bytes.insert(bytes.end(), piece.begin(), piece.end());
  }
  return bytes;
}

UndoMark MarkOf(const SelectionBlock& block) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &block[kSelectionBytes], 3);
  return {.sequence = static_cast<std::int32_t>(bits & (kExactBit - 1)),
          .isExact = (bits & kExactBit) != 0};
}

std::optional<UndoMark> MarkOfWhole(std::span<const std::byte> file) {
  if (file.size() < kUndoFileSize) return std::nullopt;
  constexpr std::size_t kTailOffset = kSectorsOffset + sizeof(MapDocument::sectors);
  const auto tail = file.subspan(kTailOffset, kUndoFileSize - kTailOffset);
  std::uint32_t sum = 0;
  std::memcpy(&sum, &file[kSumOffset], sizeof(sum));
  if (sum != SumOf(file.first(kSectorsOffset), tail)) return std::nullopt;
  SelectionBlock block;
  std::memcpy(block.data(), &file[kMapFileSize], block.size());
  return MarkOf(block);
}

}  // namespace vesmora
