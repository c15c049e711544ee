// An array with entries 0 to N, of which entry 0 is left empty by convention.
#pragma once

#include <array>
#include <cstddef>

#include "platform/values/fault.h"

namespace practice {

template <class T, int N>
class Slots {
 public:
  static constexpr int last = N;

  /// Raises fault 9 for an index outside 0..N.
  constexpr T& operator[](int index) { return entries_[place(index)]; }
  constexpr const T& operator[](int index) const { return entries_[place(index)]; }

  void fill(const T& value) { entries_.fill(value); }

  friend bool operator==(const Slots&, const Slots&) = default;

 private:
  static constexpr std::size_t place(int index) {
    if (index < 0 || index > N) throw Fault::out_of_range();
    return static_cast<std::size_t>(index);
  }

  std::array<T, static_cast<std::size_t>(N) + 1> entries_{};
};

}  // namespace practice
