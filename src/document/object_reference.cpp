#include "document/object_reference.h"

#include "document/map_document.h"
#include "document/number_text.h"

namespace vesmora {

std::string_view NameOf(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::kPolygon:
      return "polygon";
    case ObjectKind::kSpawn:
      return "spawn";
    case ObjectKind::kScenery:
      return "scenery";
    case ObjectKind::kCollider:
      return "collider";
    case ObjectKind::kWaypoint:
      return "waypoint";
    case ObjectKind::kSector:
      return "sector";
    case ObjectKind::kMap:
      break;
  }
  return "map";
}

std::string Describe(const ObjectReference& object) {
  std::string text(NameOf(object.kind));
  if (object.slot < 0) return text;
  if (object.kind == ObjectKind::kSector) {
    return text + " " + std::to_string(object.slot / kSectorsPerSide) + "," +
           std::to_string(object.slot % kSectorsPerSide);
  }
  text += " " + std::to_string(object.slot + 1);
  if (object.corner >= 0) text += ", corner " + std::to_string(object.corner + 1);
  return text;
}

std::string PlaceText(WorldPoint place) { return NumberText(place.x) + "," + NumberText(place.y); }

}  // namespace vesmora
