// The forms and patterns of a lab: what an argument may be, and how a key or a value is built of
// such arguments. All texts are in lower case, as a result is compared without regard to case.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace practice::compiler {

/// Both ends belong to it.
struct NumberRange {
  std::int64_t first = 0;
  std::int64_t last = 0;
};

/// Of "1-4094"; nothing when there are not two numbers.
std::optional<NumberRange> range_of(std::string_view text);

/// A whole number as a lab writes it: digits without a leading zero.
std::optional<std::int64_t> number_of(std::string_view text);

/// `form` as in the table [form] of a lab, such as "number 1-4094" or "one of on off". Of a form
/// that is not known here, and of "interface", every text is that is not blank.
bool is_of_form(std::string_view text, std::string_view form);

/// Text that stands as it is, or a slot for a variable. A slot without a name is for anything.
struct PatternPart {
  bool is_slot = false;
  std::string text{};
};

/// "{dev}_vlan{vlan}_name" is the slot dev, "_vlan", the slot vlan and "_name".
using Pattern = std::vector<PatternPart>;

/// Slots are {name}, {name:9} and <name>, and $(...) without a name.
Pattern pattern_of(std::string_view text);

/// Whether a text, which is never empty, can stand in the slot of this name.
using SlotTakes = std::function<bool(std::string_view name, std::string_view text)>;

bool fits(const Pattern& pattern, std::string_view text, const SlotTakes& takes);

}  // namespace practice::compiler
