// Reading one key of an INI text, as the simulators' result files need it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace practice {

/// The value of the first such key in the first such section, names regardless of case, without
/// the blanks around it and one pair of quotes; nothing when section or key is absent. Any bytes
/// are taken.
std::optional<std::string> ini_value(std::string_view ini, std::string_view section,
                                     std::string_view key);

}  // namespace practice
