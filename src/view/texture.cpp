#include "view/texture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vesmora {
namespace {

constexpr std::int32_t kLargestSide = 4096;
constexpr std::size_t kFileHeader = 14;
constexpr std::size_t kInfoHeader = 40;
constexpr std::uint32_t kOpaque = 0xFF000000U;

/// The number at a place of a file; 0 behind its end.
template <typename Number>
Number NumberAt(std::span<const std::byte> file, std::size_t at) {
  Number number = 0;
  if (at <= file.size() && file.size() - at >= sizeof(Number)) {
    std::memcpy(&number, file.data() + at, sizeof(Number));
  }
  return number;
}

struct Header {
  std::int32_t width;
  std::int32_t height;  // negative when the top row comes first
  std::uint16_t bits;
  std::size_t pixels;   // where they start
  std::size_t palette;  // likewise
};

std::optional<Header> ReadHeader(std::span<const std::byte> file) {
  if (file.size() < kFileHeader + kInfoHeader || NumberAt<std::uint16_t>(file, 0) != 0x4D42) {
    return std::nullopt;
  }
  const Header header{.width = NumberAt<std::int32_t>(file, 18),
                      .height = NumberAt<std::int32_t>(file, 22),
                      .bits = NumberAt<std::uint16_t>(file, 28),
                      .pixels = NumberAt<std::uint32_t>(file, 10),
                      .palette = kFileHeader + NumberAt<std::uint32_t>(file, 14)};
  const bool isPlain = NumberAt<std::uint32_t>(file, 30) == 0;
  const bool isKnown = header.bits == 8 || header.bits == 24 || header.bits == 32;
  const auto isSide = [](std::int32_t side) { return side >= 1 && side <= kLargestSide; };
  const std::int32_t rows = header.height < -kLargestSide ? 0 : std::abs(header.height);
  if (!isPlain || !isKnown || !isSide(header.width) || !isSide(rows)) return std::nullopt;
  return header;
}

/// The place in 0..count - 1 of a coordinate that goes round.
int Wrapped(double coordinate, int count) {
  const double part = coordinate - std::floor(coordinate);
  if (!(part >= 0 && part < 1)) return 0;
  return std::min(static_cast<int>(part * count), count - 1);
}

}  // namespace

std::uint32_t Texture::At(double u, double v) const {
  return pixels[static_cast<std::size_t>(Wrapped(v, height)) * static_cast<std::size_t>(width) +
                static_cast<std::size_t>(Wrapped(u, width))];
}

std::optional<Texture> ReadBitmap(std::span<const std::byte> file) {
  const auto header = ReadHeader(file);
  if (!header) return std::nullopt;
  Texture texture{.width = header->width, .height = std::abs(header->height), .pixels = {}};
  const std::size_t pixelBytes = header->bits / 8U;
  const std::size_t rowBytes = (static_cast<std::size_t>(texture.width) * pixelBytes + 3) / 4 * 4;
  const auto rows = static_cast<std::size_t>(texture.height);
  if (header->pixels > file.size() || file.size() - header->pixels < rowBytes * rows) {
    return std::nullopt;
  }
  texture.pixels.reserve(static_cast<std::size_t>(texture.width) * rows);
  for (std::size_t row = 0; row < rows; ++row) {
    const std::size_t stored = header->height < 0 ? row : rows - 1 - row;
    for (std::size_t x = 0; x < static_cast<std::size_t>(texture.width); ++x) {
      std::size_t at = header->pixels + stored * rowBytes + x * pixelBytes;
      if (header->bits == 8) {
        at = header->palette + 4 * std::size_t{NumberAt<std::uint8_t>(file, at)};
      }
      const std::uint32_t color = NumberAt<std::uint8_t>(file, at + 2) * 0x10000U +
                                  NumberAt<std::uint8_t>(file, at + 1) * 0x100U +
                                  NumberAt<std::uint8_t>(file, at);
      texture.pixels.push_back(kOpaque | color);
    }
  }
  return texture;
}

}  // namespace vesmora
