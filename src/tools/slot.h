// Slots of the fixed tables by signed number, as the last indexes count them.
#pragma once

#include <cstddef>

namespace vesmora {

template <typename Table>
auto& SlotAt(Table& table, int slot) {
  return table[static_cast<std::size_t>(slot)];
}

}  // namespace vesmora
