#include "document/map_image.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "document/numbers.h"

namespace vesmora {
namespace {

// Reader and writer share these lists, so they agree item for item.

template <typename Document, typename Count, typename Visit>
void VisitFirstItems(Document& document, Count& polygonCount, Visit visit) {
  for (auto& polygon : document.polygons.slots) visit(polygon.vertices);
  for (auto& polygon : document.polygons.slots) visit(polygon.edges);
  visit(polygonCount);
  visit(document.looseByte1);
  visit(document.looseByte2);
  visit(document.looseByte3);
  visit(document.texture);
  visit(document.spawns.slots);
  visit(document.block);
  visit(document.sectors);
  visit(document.looseByte4);
  visit(document.looseByte5);
}

template <typename Document, typename Visit>
void VisitRemainingItems(Document& document, Visit visit) {
  visit(document.sectorDivision);
  visit(document.backgroundColor1);
  visit(document.backgroundColor2);
  visit(document.sceneries.slots);
  visit(document.randomId);
  visit(document.waypoints.slots);
  visit(document.colliders.slots);
}

template <typename Items, typename Visit>
void VisitUndoItems(Items& items, Visit visit) {
  visit(items.selection);
  visit(items.toolIndex);
}

class ImageWriter {
 public:
  explicit ImageWriter(std::span<std::byte> image) : image_(image) {}

  template <typename Item>
  void Write(const Item& item) {
    std::memcpy(image_.subspan(size_, sizeof(item)).data(), &item, sizeof(item));
    size_ += sizeof(item);
  }
  std::span<const std::byte> Written() const { return image_.first(size_); }

 private:
  std::span<std::byte> image_;
  std::size_t size_ = 0;
};

}  // namespace

ImageReading ReadMapImage(std::span<const std::byte> bytes, MapDocument& document,
                          UndoItems* undo) {
  std::size_t position = 0;
  const auto read = [&](auto& item) {
    const std::size_t present =
        position < bytes.size() ? std::min(sizeof(item), bytes.size() - position) : 0;
    if (present > 0) std::memcpy(&item, bytes.data() + position, present);
    position += sizeof(item);
  };
  ImageReading reading;
  VisitFirstItems(document, reading.polygonCount, read);
  reading.divisionPosition = position;
  VisitRemainingItems(document, read);
  if (undo != nullptr) VisitUndoItems(*undo, read);
  return reading;
}

void WriteMapImage(const MapDocument& document, std::span<std::byte> image) {
  ImageWriter writer(image);
  const auto write = [&writer](const auto& item) { writer.Write(item); };
  const auto polygonCount = static_cast<std::int16_t>(document.polygons.Count());
  VisitFirstItems(document, polygonCount, write);
  VisitRemainingItems(document, write);
}

UndoPieces WriteUndoPieces(const MapDocument& document, const UndoItems& undo,
                           std::span<std::byte> buffer) {
  ImageWriter writer(buffer);
  UndoPieces pieces;
  const auto write = [&]<typename Item>(const Item& item) {
    if constexpr (std::is_same_v<Item, decltype(MapDocument::sectors)>) {
      pieces[0] = writer.Written();
      pieces[1] = std::as_bytes(std::span(item));
    } else {
      writer.Write(item);
    }
  };
  const auto polygonCount = static_cast<std::int16_t>(document.polygons.Count());
  VisitFirstItems(document, polygonCount, write);
  VisitRemainingItems(document, write);
  VisitUndoItems(undo, write);
  pieces[2] = writer.Written().subspan(pieces[0].size());
  return pieces;
}

void WaypointsToFile(MapDocument& document) {
  for (Waypoint& waypoint : document.waypoints.Used()) {
    waypoint.x = RoundToInt32(waypoint.x / 256.0);
    waypoint.y = RoundToInt32(waypoint.y / 256.0);
  }
}

void WaypointsToMemory(MapDocument& document) {
  for (Waypoint& waypoint : document.waypoints.Used()) {
    waypoint.x = ToFixedPoint(waypoint.x);
    waypoint.y = ToFixedPoint(waypoint.y);
  }
}

}  // namespace vesmora
