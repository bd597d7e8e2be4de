#include "document/map_document.h"

#include <algorithm>

#include "platform/text.h"

namespace vesmora {
namespace {

bool IsMarkedUsed(const SpawnPoint& spawn) { return spawn.active != 0; }
bool IsMarkedUsed(const SceneryObject& scenery) { return scenery.active == 1; }
bool IsMarkedUsed(const Collider& collider) { return collider.active == 1; }
bool IsMarkedUsed(const Waypoint& waypoint) { return waypoint.active == 1; }

template <typename Table>
void FindEnd(Table& table) {
  const auto end = std::ranges::find_if_not(
      table.slots, [](const auto& record) { return IsMarkedUsed(record); });
  table.SetCount(static_cast<int>(end - table.slots.begin()));
}

}  // namespace

TextureName MakeTextureName(const std::string& text) {
  TextureName name{};
  std::copy_n(text.begin(), std::min(text.size(), name.size()), name.begin());
  return name;
}

bool IsEmpty(const MapDocument& document) {
  bool isEmpty = true;
  VisitTables(document, [&isEmpty](const auto& table) { isEmpty = isEmpty && table.Empty(); });
  return isEmpty;
}

void ZeroFreeSlots(MapDocument& document) {
  VisitTables(document, [](auto& table) {
    const auto slots = table.Free();
    std::ranges::fill(slots, typename decltype(slots)::value_type{});
  });
}

void ZeroTables(MapDocument& document) {
  VisitTables(document, [](auto& table) { table = {}; });
}

void ResetToNewMap(MapDocument& document) {
  document.fileName.clear();
  document.author = "New";
  document.texture = MakeTextureName("banana.bmp");
  document.looseByte3 = 10;
  document.sectorDivision = 30;
  document.backgroundColor1 = {255, 255, 255, 255};
  document.backgroundColor2 = {255, 255, 255, 255};
  document.toolIndex = ToolMode::kEdit;
  ZeroTables(document);
}

void FindTableEnds(MapDocument& document) {
  FindEnd(document.spawns);
  FindEnd(document.sceneries);
  FindEnd(document.waypoints);
  FindEnd(document.colliders);
}

std::string ReadAuthor(const MapDocument& document) {
  std::string author;
  for (int slot = 0; slot < kReadAuthorLength; ++slot) {
    const std::uint8_t character = document.colliders[slot].authorChar;
    if (character == 0) break;
    author += static_cast<char>(character);
  }
  return author;
}

void StoreAuthor(MapDocument& document) {
  if (TrimBlanks(document.author).empty()) document.author = "Unknow";
  const int length =
      static_cast<int>(std::min(document.author.size(), std::size_t{kStoredAuthorLength}));
  for (int slot = 0; slot < length; ++slot) {
    document.colliders[slot].authorChar =
        static_cast<std::uint8_t>(document.author[static_cast<std::size_t>(slot)]);
  }
  if (length < kStoredAuthorLength) document.colliders[length].authorChar = 0;
}

}  // namespace vesmora
