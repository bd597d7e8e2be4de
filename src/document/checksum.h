// Sums that tell whether bytes, or a map, are what they were. Not against forgers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "document/map_document.h"

namespace vesmora {

/// `seed` is the sum of the bytes that come before.
std::uint64_t Checksum(std::span<const std::byte> bytes, std::uint64_t seed = 0);

/// Of what an edit can change and a file keeps: neither the free slots nor what every save draws
/// anew, and waypoints by the whole units that files have.
std::uint64_t Fingerprint(const MapDocument& document);

}  // namespace vesmora
