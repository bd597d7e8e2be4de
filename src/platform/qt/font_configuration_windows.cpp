#include "platform/qt/font_configuration.h"

namespace vesmora {

void ReadFontConfiguration() {}  // the system keeps it ready

}  // namespace vesmora
