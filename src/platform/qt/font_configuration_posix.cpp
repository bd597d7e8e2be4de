#include <fontconfig/fontconfig.h>

#include "platform/qt/font_configuration.h"

namespace vesmora {

void ReadFontConfiguration() { FcInit(); }

}  // namespace vesmora
