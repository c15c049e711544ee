#include "bank_compiler/reference.h"

#include <algorithm>
#include <array>

namespace practice::compiler {

std::optional<ReferenceForm> reference_form_of(std::string_view name) {
  constexpr std::array<std::string_view, 4> names{"heading", "blank", "page", "none"};
  const auto place = std::ranges::find(names, name);
  if (place == names.end()) return std::nullopt;
  return static_cast<ReferenceForm>(place - names.begin());
}

std::string reference_of(const RowSource& row, const Chapters& chapters) {
  if (!row.section.value) return {};
  const std::string& heading = *row.section.value;
  const auto section = chapters.sections.find(heading);
  const int page = section == chapters.sections.end() ? 1 : section->second.page;
  const std::string start = std::to_string(page) + "##";
  switch (reference_form_of(row.reference_form.value.value_or("heading"))
              .value_or(ReferenceForm::heading)) {
    case ReferenceForm::heading:
      return start + heading;
    case ReferenceForm::blank:
      return start + " " + heading;
    case ReferenceForm::page:
      return start;
    case ReferenceForm::none:
      break;
  }
  return {};
}

}  // namespace practice::compiler
