#include "document/value_checks.h"

#include "document/number_text.h"

namespace vesmora {

bool CheckNumbers(FindingList& findings, const ObjectReference& object,
                  std::initializer_list<NamedValue> values) {
  for (const auto& [name, value, range] : values) {
    if (range.Holds(value)) continue;
    const std::string what = std::string("its ") + name + " is ";
    if (std::isfinite(value)) {
      findings.Error("value-range", object, std::nullopt,
                     what + NumberText(value) + ", which is not between " +
                         NumberText(range.lowest) + " and " + NumberText(range.highest));
    } else {
      findings.Error("not-a-number", object, std::nullopt,
                     what + (std::isnan(value) ? "not a number" : "infinite"));
    }
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
