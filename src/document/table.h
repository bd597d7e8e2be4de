// Table: records in fixed slots, used from slot 0 on without a gap.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vesmora {

/// `last` is the last used slot, -1 when there is none. The slots behind it are free; tools
/// keep previews there and the clipboard its records, so they are not garbage.
template <typename Record, int kSlots>
struct Table {
  static constexpr int kCapacity = kSlots;

  std::array<Record, static_cast<std::size_t>(kSlots)> slots{};
  std::int16_t last = -1;

  int Count() const { return last + 1; }
  bool Empty() const { return last < 0; }
  bool Full() const { return Count() == kSlots; }
  /// Whether the slot is used; any number may be asked for.
  bool Has(int slot) const { return slot >= 0 && slot <= last; }

  /// `slot` is 0 to kCapacity - 1, used or free; a debug build stops at any other.
  Record& operator[](int slot) { return slots[static_cast<std::size_t>(slot)]; }
  const Record& operator[](int slot) const { return slots[static_cast<std::size_t>(slot)]; }
  /// The last used record; the table is not empty.
  Record& Last() { return (*this)[last]; }
  const Record& Last() const { return (*this)[last]; }

  // Not of a temporary: the spans would outlive it in a range-based for.
  std::span<Record> Used() & { return std::span(slots).first(static_cast<std::size_t>(Count())); }
  std::span<const Record> Used() const& {
    return std::span(slots).first(static_cast<std::size_t>(Count()));
  }
  std::span<Record> Free() & { return std::span(slots).subspan(static_cast<std::size_t>(Count())); }
  std::span<const Record> Used() const&& = delete;

  void SetCount(int count) { last = static_cast<std::int16_t>(count - 1); }
  void Clear() { last = -1; }
  /// Uses the first free slot as it is; the table is not full.
  Record& TakeSlot() { return (*this)[++last]; }
  /// Leaves the last record where it is, in a slot that is free now; the table is not empty.
  void DropLast() { --last; }
  /// False, with nothing changed, when the table is full.
  bool Append(const Record& record) {
    if (Full()) return false;
    TakeSlot() = record;
    return true;
  }
};

}  // namespace vesmora
