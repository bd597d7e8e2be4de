// Which object of one table is which of another: first those that are alike, then those that have
// been moved, then those that have changed where they lie.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace vesmora {

/// By slot the slot of the partner in the other table, -1 for none.
struct Matching {
  std::vector<int> partnerOfBefore;
  std::vector<int> partnerOfAfter;

  Matching(int countBefore, int countAfter)
      : partnerOfBefore(static_cast<std::size_t>(countBefore), -1),
        partnerOfAfter(static_cast<std::size_t>(countAfter), -1) {}

  bool BothFree(int before, int after) const {
    return partnerOfBefore[static_cast<std::size_t>(before)] < 0 &&
           partnerOfAfter[static_cast<std::size_t>(after)] < 0;
  }
  void Pair(int before, int after) {
    partnerOfBefore[static_cast<std::size_t>(before)] = after;
    partnerOfAfter[static_cast<std::size_t>(after)] = before;
  }
  /// Of the objects in both, whether they still come in the same order.
  bool KeepsOrder() const {
    int last = -1;
    for (const int partner : partnerOfBefore) {
      if (partner < 0) continue;
      if (partner < last) return false;
      last = partner;
    }
    return true;
  }
};

/// Pairs the slots that have both no partner yet and the same number.
template <typename Accept>
void PairSameSlots(Matching& matching, Accept accept) {
  const std::size_t count =
      std::min(matching.partnerOfBefore.size(), matching.partnerOfAfter.size());
  for (int slot = 0; slot < static_cast<int>(count); ++slot) {
    if (matching.BothFree(slot, slot) && accept(slot, slot)) matching.Pair(slot, slot);
  }
}

/// Pairs each slot with the first one that is accepted, in order. Quadratic in what has no partner.
template <typename Accept>
void PairFirst(Matching& matching, Accept accept) {
  for (int before = 0; before < static_cast<int>(matching.partnerOfBefore.size()); ++before) {
    for (int after = 0; after < static_cast<int>(matching.partnerOfAfter.size()); ++after) {
      if (!matching.BothFree(before, after) || !accept(before, after)) continue;
      matching.Pair(before, after);
      break;
    }
  }
}

/// Pairs what has equal keys, in order.
inline void PairByKey(Matching& matching, const std::vector<std::string>& before,
                      const std::vector<std::string>& after) {
  PairSameSlots(matching, [&](int a, int b) {
    return before[static_cast<std::size_t>(a)] == after[static_cast<std::size_t>(b)];
  });
  std::unordered_map<std::string, std::vector<int>> slots;
  for (int slot = static_cast<int>(after.size()) - 1; slot >= 0; --slot) {
    const auto at = static_cast<std::size_t>(slot);
    if (matching.partnerOfAfter[at] < 0) slots[after[at]].push_back(slot);
  }
  for (int slot = 0; slot < static_cast<int>(before.size()); ++slot) {
    const auto at = static_cast<std::size_t>(slot);
    if (matching.partnerOfBefore[at] >= 0) continue;
    const auto found = slots.find(before[at]);
    if (found == slots.end() || found->second.empty()) continue;
    matching.Pair(slot, found->second.back());
    found->second.pop_back();
  }
}

}  // namespace vesmora
