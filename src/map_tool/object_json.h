// Objects and places as JSON.
#pragma once

#include <optional>

#include "document/map_document.h"
#include "document/object_reference.h"
#include "map_tool/outcome.h"

namespace vesmora::map_tool {

/// {"kind": "polygon", "number": 12, "corner": 2}; numbers count from 1. Sectors have "column" and
/// "row" from 0 instead, the map itself and kinds as such have a kind only.
inline Json ObjectJson(const ObjectReference& object) {
  Json json = {{"kind", NameOf(object.kind)}};
  if (object.slot < 0) return json;
  if (object.kind == ObjectKind::kSector) {
    json["column"] = object.slot / kSectorsPerSide;
    json["row"] = object.slot % kSectorsPerSide;
    return json;
  }
  json["number"] = object.slot + 1;
  if (object.corner >= 0) json["corner"] = object.corner + 1;
  return json;
}

/// {"x": 10.5, "y": -20}, or null. What is not a number is null, too.
inline Json PlaceJson(const std::optional<WorldPoint>& place) {
  if (!place) return nullptr;
  return {{"x", place->x}, {"y", place->y}};
}

}  // namespace vesmora::map_tool
