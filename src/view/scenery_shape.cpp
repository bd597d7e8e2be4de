#include "view/scenery_shape.h"

#include "document/scenery_types.h"

namespace vesmora {

ScenerySides SidesOf(const SceneryObject& scenery) {
  const SceneryType& type = SceneryTypeOf(scenery.type);
  return {PolarToOffset(scenery.rotation, scenery.scaleX * static_cast<float>(type.width), false),
          PolarToOffset(scenery.rotation, scenery.scaleY * static_cast<float>(type.height), true)};
}

}  // namespace vesmora
