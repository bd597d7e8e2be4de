// The toolkit's texts are UTF-16, the program's are UTF-8.
#pragma once

#include <QString>
#include <string_view>

namespace vesmora {

/// What is no valid UTF-8 becomes U+FFFD.
inline QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace vesmora
