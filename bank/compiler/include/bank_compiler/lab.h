// A lab of the command-line simulator, as far as questions are held against it: the keys of the
// result that it hands over, and the values that each of them can have. What the commands of a lab
// do is for the simulator to know.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "bank_compiler/fault.h"
#include "bank_compiler/lab_form.h"

namespace practice::compiler {

/// Interfaces of a device that differ in the last part of their number only.
struct LabInterfaces {
  std::string kind{};
  /// "v3550_fa{n}", where a slash of the number is an underscore.
  Pattern key{};
  /// "fa{n}"
  Pattern short_name{};
  /// "0/" of the numbers 0/1 to 0/24.
  std::string number_start{};
  NumberRange range{};
};

struct LabKey {
  Pattern key{};
  /// The interfaces that {if} stands for; of all kinds when there is none.
  std::vector<std::string> kinds{};
  std::vector<Pattern> values{};
  /// The interfaces whose name or number a value tells; of all kinds when there is none.
  std::vector<std::string> value_kinds{};
  /// A value is a list of `values`.
  bool is_list = false;
  /// Between the entries of a list.
  std::string separator{};
  /// Three or more in a row are written as 1-3.
  bool runs = false;
};

/// All texts in lower case.
struct Lab {
  /// False when the file could not be read: then nothing is held against it.
  bool whole = false;
  std::vector<std::string> devices{};
  std::vector<LabInterfaces> interfaces{};
  /// Those that belong to the result.
  std::vector<LabKey> keys{};
  /// By name.
  std::map<std::string, std::string, std::less<>> forms{};
};

/// What is no TOML is a fault. Of a lab whose parts have another form than expected here, these
/// parts are left out: the simulator is the judge of them.
Lab parse_lab(std::string_view text, const std::string& file, Faults& faults);

enum class ResultVerdict { no_such_key, no_such_value, possible };

/// Whether the result can have this value under this key; case, and blanks at the ends, do not
/// matter.
ResultVerdict verdict_on(std::string_view key, std::string_view value, const Lab& lab);

}  // namespace practice::compiler
