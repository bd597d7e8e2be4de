// Textures of polygons, as the game keeps them: bitmap files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vesmora {

struct Texture {
  int width = 0;  // pixels, at least 1
  int height = 0;
  std::vector<std::uint32_t> pixels;  // as in a picture, from the top row on

  /// Of texture coordinates, which repeat the texture from whole number to whole number.
  std::uint32_t At(double u, double v) const;
};

/// Of an uncompressed bitmap of 8, 24 or 32 bits; nothing for any other file.
std::optional<Texture> ReadBitmap(std::span<const std::byte> file);

}  // namespace vesmora
