// One thing that is wrong with a map.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "document/object_reference.h"

namespace vesmora {

enum class Severity {
  kHint,   // the game copes, or a save mends it
  kError,  // the game misreads it, or cannot be expected to cope
};

struct Finding {
  std::string_view check;  // the check's name, such as "connection-target"; stays what it is
  Severity severity = Severity::kError;
  ObjectReference object;
  std::optional<WorldPoint> place;  // world units; none of what lies nowhere
  std::string text;                 // in words, without the object's name
};

}  // namespace vesmora
