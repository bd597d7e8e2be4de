#include "document/value_checks.h"

namespace vesmora {

bool CheckNumbers(FindingList& findings, const ObjectReference& object,
                  std::initializer_list<NamedValue> values) {
  for (const auto& [name, value] : values) {
    if (std::isfinite(value)) continue;
    const char* what = std::isnan(value) ? " is not a number" : " is infinite";
    findings.Error("not-a-number", object, std::nullopt, std::string("its ") + name + what);
    return false;
  }
  return true;
}

bool CheckPlace(FindingList& findings, const ObjectReference& object, WorldPoint place) {
  if (IsWithinReach(place)) return true;
  findings.Error("far-outside", object, place, "lies farther out than the game can reach");
  return false;
}

}  // namespace vesmora
