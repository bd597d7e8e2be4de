#include "document/value_checks.h"

#include "document/number_text.h"

namespace vesmora {

void TellWrongNumber(FindingList& findings, const ObjectReference& object,
                     const NamedValue& value) {
  const auto& [name, number, range] = value;
  const std::string what = std::string("its ") + name + " is ";
  if (std::isfinite(number)) {
    findings.Error("value-range", object, std::nullopt,
                   what + NumberText(number) + ", which is not between " +
                       NumberText(range.lowest) + " and " + NumberText(range.highest));
  } else {
    findings.Error("not-a-number", object, std::nullopt,
                   what + (std::isnan(number) ? "not a number" : "infinite"));
  }
}

bool CheckPlace(FindingList& findings, const ObjectReference& object, WorldPoint place) {
  if (IsWithinReach(place)) return true;
  findings.Error("far-outside", object, place, "lies farther out than the game can reach");
  return false;
}

}  // namespace vesmora
