#include "bank_compiler/lab_form.h"

#include <algorithm>
#include <charconv>
#include <ranges>
#include <span>

#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

using Words = std::vector<std::string_view>;

constexpr std::string_view digits = "0123456789";

Words split(std::string_view text, char separator) {
  Words parts;
  while (true) {
    const auto end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == text.npos) return parts;
    text.remove_prefix(end + 1);
  }
}

bool is_in(std::string_view text, const std::optional<NumberRange>& range) {
  const auto number = number_of(text);
  return number && range && *number >= range->first && *number <= range->last;
}

// "number 0-61440 step 4096"
bool is_number(std::string_view text, const Words& form) {
  const auto range = form.size() > 1 ? range_of(form[1]) : std::nullopt;
  if (!is_in(text, range)) return false;
  if (form.size() < 4) return true;
  const auto step = number_of(form[3]);
  return step && *step > 0 && (*number_of(text) - range->first) % *step == 0;
}

std::optional<std::uint32_t> address_of(std::string_view text) {
  const Words parts = split(text, '.');
  if (parts.size() != 4) return std::nullopt;
  std::uint32_t address = 0;
  for (const std::string_view part : parts) {
    if (!is_in(part, NumberRange{0, 255})) return std::nullopt;
    address = address << 8 | static_cast<std::uint32_t>(*number_of(part));
  }
  return address;
}

// Ones, then zeros.
bool is_mask(std::string_view text) {
  const auto address = address_of(text);
  return address && (~*address & (~*address + 1)) == 0;
}

// "0200.0000.3550"
bool is_mac(std::string_view text) {
  const Words parts = split(text, '.');
  return parts.size() == 3 && std::ranges::all_of(parts, [](std::string_view part) {
           return part.size() == 4 && part.find_first_not_of("0123456789abcdef") == part.npos;
         });
}

// "any", "host 10.1.1.1" or an address and a wildcard
bool is_endpoint(std::string_view text) {
  const Words parts = split(text, ' ');
  if (parts.size() == 1) return parts[0] == "any";
  return parts.size() == 2 && (parts[0] == "host" || address_of(parts[0])) && address_of(parts[1]);
}

// A value with a name is kept by that name.
bool is_dscp(std::string_view text) {
  const auto digit_in = [&](std::size_t place, char last) {
    return text[place] >= '1' && text[place] <= last;
  };
  if (text == "default" || text == "ef" || text == "cs0") return true;
  if (text.size() == 3 && text.starts_with("cs")) return digit_in(2, '7');
  if (text.size() == 4 && text.starts_with("af")) return digit_in(2, '4') && digit_in(3, '3');
  if (!is_in(text, NumberRange{0, 63})) return false;
  const std::int64_t number = *number_of(text);
  const bool assured = number >= 10 && number <= 38 && number % 2 == 0;
  return number % 8 != 0 && number != 46 && !assured;
}

// "1,10-12,40": sorted, and three or more in a row as a run, for so the lab writes it. Another
// spelling of the same numbers would never be equal to the result.
bool is_list(std::string_view text, const std::optional<NumberRange>& range) {
  std::vector<NumberRange> runs;
  for (const std::string_view part : split(text, ',')) {
    const bool one = is_in(part, range);
    const auto run = one ? NumberRange{*number_of(part), *number_of(part)} : range_of(part);
    if (!run || !range || run->first < range->first || run->last > range->last) return false;
    if (!one && run->last < run->first + 2) return false;
    if (!runs.empty() && run->first <= runs.back().last) return false;
    if (!runs.empty() && run->first == runs.back().last + 1) {
      runs.back().last = run->last;
    } else {
      runs.push_back(*run);
    }
  }
  std::string written;
  for (const auto& [first, last] : runs) {
    if (!written.empty()) written += ',';
    written += std::to_string(first);
    if (last > first) written += (last > first + 1 ? '-' : ',') + std::to_string(last);
  }
  return written == text;
}

// "numbers 8 0-63"
bool are_numbers(std::string_view text, const Words& form) {
  if (form.size() < 3) return false;
  const Words numbers = split(text, ' ');
  const auto range = range_of(form[2]);
  return std::to_string(numbers.size()) == form[1] &&
         std::ranges::all_of(numbers,
                             [&](std::string_view number) { return is_in(number, range); });
}

bool is_not_longer(std::string_view text, const Words& form) {
  const auto most = form.size() > 1 ? number_of(form[1]) : std::nullopt;
  return !most || character_count(text) <= static_cast<std::size_t>(*most);
}

bool is_name(std::string_view text) {
  return text.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789.-") == text.npos;
}

bool fits_from(std::span<const PatternPart> parts, std::string_view text, const SlotTakes& takes) {
  if (parts.empty()) return text.empty();
  const PatternPart& part = parts.front();
  const auto rest = parts.subspan(1);
  if (!part.is_slot) {
    return text.starts_with(part.text) && fits_from(rest, text.substr(part.text.size()), takes);
  }
  // The last one takes all that is left.
  for (std::size_t size = rest.empty() ? std::max<std::size_t>(text.size(), 1) : 1;
       size <= text.size(); ++size) {
    if (takes(part.text, text.substr(0, size)) && fits_from(rest, text.substr(size), takes)) {
      return true;
    }
  }
  return false;
}

// Where the parenthesis that opens at `place` is closed again.
std::size_t closing(std::string_view text, std::size_t place) {
  int open = 0;
  for (; place < text.size(); ++place) {
    if (text[place] == '(') ++open;
    if (text[place] == ')' && --open == 0) return place;
  }
  return text.npos;
}

}  // namespace

std::optional<std::int64_t> number_of(std::string_view text) {
  const bool leading_zero = text.size() > 1 && text.front() == '0';
  if (text.empty() || leading_zero || text.find_first_not_of(digits) != text.npos) return {};
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  return number;
}

std::optional<NumberRange> range_of(std::string_view text) {
  const auto dash = text.find('-');
  if (dash == text.npos) return std::nullopt;
  const auto first = number_of(text.substr(0, dash));
  const auto last = number_of(text.substr(dash + 1));
  if (!first || !last) return std::nullopt;
  return NumberRange{*first, *last};
}

bool is_of_form(std::string_view text, std::string_view form) {
  const Words words = split(form, ' ');
  const std::string_view kind = words.front();
  if (kind == "number") return is_number(text, words);
  if (kind == "list") return is_list(text, words.size() > 1 ? range_of(words[1]) : std::nullopt);
  if (kind == "numbers") return are_numbers(text, words);
  if (kind == "one") return std::ranges::find(words | std::views::drop(2), text) != words.end();
  if (kind == "address") return address_of(text).has_value();
  if (kind == "mask") return is_mask(text);
  if (kind == "mac") return is_mac(text);
  if (kind == "endpoint") return is_endpoint(text);
  if (kind == "dscp") return is_dscp(text);
  if (is_blank(text)) return false;
  if (kind == "name") return is_name(text) && is_not_longer(text, words);
  if (kind == "word") return text.find(' ') == text.npos && is_not_longer(text, words);
  if (kind == "text") return is_not_longer(text, words);
  return true;
}

Pattern pattern_of(std::string_view text) {
  Pattern pattern;
  const auto add = [&](bool is_slot, std::string_view part) {
    if (!is_slot && !pattern.empty() && !pattern.back().is_slot) {
      pattern.back().text += part;
    } else {
      pattern.push_back({is_slot, std::string(part)});
    }
  };
  while (!text.empty()) {
    const bool counted = text.starts_with("$(");
    const auto end = counted                 ? closing(text, 1)
                     : text.starts_with('{') ? text.find('}')
                     : text.starts_with('<') ? text.find('>')
                                             : text.npos;
    if (end == text.npos) {
      add(false, text.substr(0, 1));
      text.remove_prefix(1);
      continue;
    }
    const std::string_view name = counted ? "" : text.substr(1, end - 1);
    add(true, name.substr(0, name.find(':')));
    text.remove_prefix(end + 1);
  }
  return pattern;
}

bool fits(const Pattern& pattern, std::string_view text, const SlotTakes& takes) {
  return fits_from(pattern, text, takes);
}

}  // namespace practice::compiler
