#include "document/map_image.h"

#include <algorithm>
#include <cstring>

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

void WriteMapImage(const MapDocument& document, const UndoItems* undo, std::span<std::byte> image) {
  std::size_t position = 0;
  const auto write = [&](const auto& item) {
    std::memcpy(image.subspan(position, sizeof(item)).data(), &item, sizeof(item));
    position += sizeof(item);
  };
  const auto polygonCount = static_cast<std::int16_t>(document.polygons.Count());
  VisitFirstItems(document, polygonCount, write);
  VisitRemainingItems(document, write);
  if (undo != nullptr) VisitUndoItems(*undo, write);
}

}  // namespace vesmora
