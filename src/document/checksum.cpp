#include "document/checksum.h"

#include <array>
#include <bit>
#include <cstring>
#include <memory>
#include <vector>

#include "document/map_image.h"

namespace vesmora {
namespace {

constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;  // odd, its bits evenly mixed

/// Several sums side by side: one alone would wait for each multiplication.
using Block = std::array<std::uint64_t, 8>;

/// Rotated, as a product carries differences upwards only.
std::uint64_t Mixed(std::uint64_t sum, std::uint64_t word) {
  return std::rotl(sum ^ word, 29) * kFactor;
}

void Mix(Block& sums, const std::byte* bytes, std::size_t size) {
  Block words{};
  if (size > 0) std::memcpy(words.data(), bytes, size);  // nothing may lie nowhere
  for (std::size_t i = 0; i < words.size(); ++i) sums[i] = Mixed(sums[i], words[i]);
}

}  // namespace

std::uint64_t Checksum(std::span<const std::byte> bytes, std::uint64_t seed) {
  Block sums = {seed, 1, 2, 3, 4, 5, 6, 7};
  const std::size_t rest = bytes.size() % sizeof(Block);
  const std::byte* const end = bytes.data() + bytes.size() - rest;
  for (const std::byte* at = bytes.data(); at != end; at += sizeof(Block)) {
    Mix(sums, at, sizeof(Block));
  }
  Mix(sums, end, rest);
  std::uint64_t sum = bytes.size();
  for (const std::uint64_t part : sums) sum = Mixed(sum, part);
  return sum;
}

std::uint64_t Fingerprint(const MapDocument& document) {
  const auto copy = std::make_unique<MapDocument>(document);  // on the heap: half a megabyte
  ZeroFreeSlots(*copy);
  for (Collider& collider : copy->colliders.slots) collider.authorChar = 0;
  StoreAuthor(*copy);
  WaypointsToFile(*copy);
  copy->randomId = 0;
  std::vector<std::byte> image(kMapFileSize);
  WriteMapImage(*copy, image);
  return Checksum(image);
}

}  // namespace vesmora
