#include "document/prefab_file.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace vesmora {
namespace {

constexpr std::string_view kVersion = "1.0";
constexpr std::size_t kAuthorLength = 20;
constexpr std::size_t kHeaderSize = 29;

/// Reads items one after another; false once the bytes have run out.
class Reader {
 public:
  explicit Reader(std::span<const std::byte> bytes) : rest_(bytes) {}

  template <typename Item>
  bool Read(Item& item) {
    if (rest_.size() < sizeof(Item)) return false;
    std::memcpy(&item, rest_.data(), sizeof(Item));
    rest_ = rest_.subspan(sizeof(Item));
    return true;
  }

 private:
  std::span<const std::byte> rest_;
};

template <typename Item>
void AppendBytes(std::vector<std::byte>& bytes, const Item& item) {
  const auto* data = reinterpret_cast<const std::byte*>(&item);
  bytes.insert(bytes.end(), data, data + sizeof(Item));
}

bool CanBe(int count, int capacity) { return count >= 0 && count <= capacity; }

template <typename Record>
bool ReadRecords(Reader& reader, int count, std::vector<Record>& records) {
  records.resize(static_cast<std::size_t>(count));
  return std::ranges::all_of(records, [&](Record& record) { return reader.Read(record); });
}

}  // namespace

PrefabHeader ReadPrefabHeader(std::span<const std::byte> bytes) {
  Reader reader(bytes);
  std::array<char, kVersion.size()> version{};
  std::int16_t lastPolygon = -1;
  std::int16_t lastScenery = -1;
  std::int16_t lastCollider = -1;
  std::array<char, kAuthorLength> author{};
  const bool isWhole = reader.Read(version) && reader.Read(lastPolygon) &&
                       reader.Read(lastScenery) && reader.Read(lastCollider) && reader.Read(author);
  PrefabHeader header;
  header.isKnownVersion = std::ranges::equal(version, kVersion);
  if (!isWhole) return header;
  header.polygonCount = lastPolygon + 1;
  header.sceneryCount = lastScenery + 1;
  header.colliderCount = lastCollider + 1;
  header.author.assign(author.begin(), author.end());
  header.author.erase(header.author.find_last_not_of(' ') + 1);
  return header;
}

bool HasPossibleCounts(const PrefabHeader& header) {
  return CanBe(header.polygonCount, kPolygonCapacity) &&
         CanBe(header.sceneryCount, kSceneryCapacity) &&
         CanBe(header.colliderCount, kColliderCapacity);
}

std::optional<Prefab> ReadPrefab(std::span<const std::byte> bytes) {
  if (bytes.size() < kHeaderSize) return std::nullopt;
  const PrefabHeader header = ReadPrefabHeader(bytes);
  if (!HasPossibleCounts(header)) return std::nullopt;
  Reader reader(bytes.subspan(kHeaderSize));
  Prefab prefab;
  if (!ReadRecords(reader, header.polygonCount, prefab.polygons) ||
      !ReadRecords(reader, header.sceneryCount, prefab.sceneries) ||
      !ReadRecords(reader, header.colliderCount, prefab.colliders)) {
    return std::nullopt;
  }
  // What is there is in use: a record that is not marked so would end its table for the next load.
  for (SceneryObject& scenery : prefab.sceneries) scenery.active = 1;
  for (Collider& collider : prefab.colliders) collider.active = 1;
  return prefab;
}

bool AppendPrefab(MapDocument& document, const Prefab& prefab) {
  const auto append = [](auto& table, const auto& records) {
    return std::ranges::all_of(records, [&](const auto& record) { return table.Append(record); });
  };
  const bool polygonsFit = append(document.polygons, prefab.polygons);
  const bool sceneriesFit = append(document.sceneries, prefab.sceneries);
  const bool collidersFit = append(document.colliders, prefab.colliders);
  return polygonsFit && sceneriesFit && collidersFit;
}

std::vector<std::byte> WritePrefab(const MapDocument& document) {
  std::vector<std::byte> bytes;
  std::array<char, kAuthorLength> author{};
  author.fill(' ');
  std::copy_n(document.author.begin(), std::min(document.author.size(), author.size()),
              author.begin());
  for (const char character : kVersion) AppendBytes(bytes, character);
  AppendBytes(bytes, document.polygons.last);
  AppendBytes(bytes, document.sceneries.last);
  AppendBytes(bytes, document.colliders.last);
  AppendBytes(bytes, author);
  for (const Polygon& polygon : document.polygons.Used()) AppendBytes(bytes, polygon);
  for (const SceneryObject& scenery : document.sceneries.Used()) AppendBytes(bytes, scenery);
  for (const Collider& collider : document.colliders.Used()) AppendBytes(bytes, collider);
  return bytes;
}

}  // namespace vesmora
