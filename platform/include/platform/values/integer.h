// A 16-bit integer whose arithmetic faults instead of wrapping.
//
// Counts, flags and indices of the program are Integers. A result outside -32768..32767 raises
// fault 6, a division by zero fault 11. Reading one as an int is free; storing an int checks it.
#pragma once

#include "platform/values/fault.h"

namespace practice {

class Integer {
 public:
  static constexpr int lowest = -32768;
  static constexpr int highest = 32767;

  constexpr Integer() = default;
  constexpr Integer(int value) : value_(checked(value)) {}  // NOLINT(google-explicit-constructor)
  constexpr operator int() const { return value_; }         // NOLINT(google-explicit-constructor)

  constexpr Integer& operator+=(Integer other) { return *this = *this + other; }
  constexpr Integer& operator-=(Integer other) { return *this = *this - other; }
  constexpr Integer& operator++() { return *this += 1; }
  constexpr Integer& operator--() { return *this -= 1; }

  friend constexpr Integer operator+(Integer a, Integer b) { return int{a} + int{b}; }
  friend constexpr Integer operator-(Integer a, Integer b) { return int{a} - int{b}; }
  friend constexpr Integer operator*(Integer a, Integer b) { return int{a} * int{b}; }
  friend constexpr Integer operator/(Integer a, Integer b) {
    if (b.value_ == 0) throw Fault::division_by_zero();
    return int{a} / int{b};
  }
  friend constexpr Integer operator%(Integer a, Integer b) {
    if (b.value_ == 0) throw Fault::division_by_zero();
    return int{a} % int{b};
  }
  friend constexpr Integer operator+(Integer a, int b) { return a + Integer{b}; }
  friend constexpr Integer operator+(int a, Integer b) { return Integer{a} + b; }
  friend constexpr Integer operator-(Integer a, int b) { return a - Integer{b}; }
  friend constexpr Integer operator-(int a, Integer b) { return Integer{a} - b; }
  friend constexpr Integer operator*(Integer a, int b) { return a * Integer{b}; }
  friend constexpr Integer operator*(int a, Integer b) { return Integer{a} * b; }
  friend constexpr Integer operator/(Integer a, int b) { return a / Integer{b}; }
  friend constexpr Integer operator/(int a, Integer b) { return Integer{a} / b; }
  friend constexpr Integer operator%(Integer a, int b) { return a % Integer{b}; }
  friend constexpr Integer operator%(int a, Integer b) { return Integer{a} % b; }

 private:
  static constexpr short checked(int value) {
    if (value < lowest || value > highest) throw Fault::overflow();
    return static_cast<short>(value);
  }

  short value_ = 0;
};

}  // namespace practice
