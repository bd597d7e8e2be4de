#include <windows.h>

#include "platform/code_page_windows.h"
#include "platform/single_byte_text.h"

namespace vesmora {
namespace {

/// The system's own, as the game uses it.
const CodePage& Ansi() {
  static const CodePage kPage(GetACP());
  return kPage;
}

}  // namespace

std::string ToUtf8(std::string_view singleByte) { return Ansi().ToUtf8(singleByte); }

std::string FromUtf8(std::string_view utf8) { return Ansi().FromUtf8(utf8); }

}  // namespace vesmora
