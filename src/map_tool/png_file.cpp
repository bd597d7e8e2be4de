// The format's frame is written here, as no library for all of it can be had for both systems;
// what is hard about it, compression and check sums, is zlib's.
#include "map_tool/png_file.h"

#include <zlib.h>

#include <new>
#include <span>
#include <string_view>

namespace vesmora::map_tool {
namespace {

using Bytes = std::vector<std::byte>;

constexpr std::size_t kPixelBytes = 3;

void Append(Bytes& bytes, std::string_view text) {
  const auto added = std::as_bytes(std::span(text));
  bytes.insert(bytes.end(), added.begin(), added.end());
}

/// The highest byte first.
void AppendNumber(Bytes& bytes, std::uint32_t number) {
  for (unsigned shift = 32; shift > 0;) {
    shift -= 8;
    bytes.push_back(static_cast<std::byte>(number >> shift));
  }
}

void AppendChunk(Bytes& file, std::string_view type, std::span<const std::byte> content) {
  AppendNumber(file, static_cast<std::uint32_t>(content.size()));
  const std::size_t start = file.size();
  Append(file, type);
  file.insert(file.end(), content.begin(), content.end());
  const auto* checked = reinterpret_cast<const Bytef*>(file.data() + start);
  AppendNumber(file, static_cast<std::uint32_t>(crc32_z(0, checked, file.size() - start)));
}

Bytes HeaderOf(const Picture& picture) {
  Bytes header;
  AppendNumber(header, static_cast<std::uint32_t>(picture.width));
  AppendNumber(header, static_cast<std::uint32_t>(picture.height));
  // 8 bits, red, green and blue, the only methods there are, rows in their order.
  for (const int value : {8, 2, 0, 0, 0}) header.push_back(static_cast<std::byte>(value));
  return header;
}

/// Rows from the top, each behind the byte that says that it is written as it is.
Bytes RowsOf(const Picture& picture) {
  const auto width = static_cast<std::size_t>(picture.width);
  Bytes rows((1 + kPixelBytes * width) * static_cast<std::size_t>(picture.height));
  std::byte* next = rows.data();
  for (int y = 0; y < picture.height; ++y) {
    *next++ = std::byte{0};
    for (const std::uint32_t pixel : std::span(picture.first + y * picture.stride, width)) {
      *next++ = static_cast<std::byte>(pixel >> 16U);
      *next++ = static_cast<std::byte>(pixel >> 8U);
      *next++ = static_cast<std::byte>(pixel);
    }
  }
  return rows;
}

Bytes Compressed(const Bytes& bytes) {
  auto size = compressBound(static_cast<uLong>(bytes.size()));
  Bytes compressed(size);
  const int result = compress2(reinterpret_cast<Bytef*>(compressed.data()), &size,
                               reinterpret_cast<const Bytef*>(bytes.data()),
                               static_cast<uLong>(bytes.size()), Z_DEFAULT_COMPRESSION);
  if (result != Z_OK) throw std::bad_alloc();  // there is no other reason
  compressed.resize(size);
  return compressed;
}

}  // namespace

std::vector<std::byte> EncodePng(const Picture& picture) {
  const Bytes compressed = Compressed(RowsOf(picture));
  Bytes file;
  Append(file, "\x89PNG\r\n\x1a\n");
  AppendChunk(file, "IHDR", HeaderOf(picture));
  AppendChunk(file, "IDAT", compressed);
  AppendChunk(file, "IEND", {});
  return file;
}

}  // namespace vesmora::map_tool
