#include "session/student_files.h"

#include "platform/values/text.h"

namespace practice {

std::string cleaned_name(std::string_view name) {
  const std::string capitals = upper(name);
  std::string cleaned;
  for (std::string_view rest = capitals; !rest.empty();) {
    const std::string_view letter = first_characters(rest, 1);
    rest.remove_prefix(letter.size());
    const char c = letter[0];
    const bool stays =
        letter.size() == 1 && (c == ' ' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z'));
    cleaned += stays ? c : ' ';
  }
  return cleaned;
}

std::string results_file(const Program& program) {
  return program.catalogue.exam_code + "." + cleaned_name(program.options.student_name) +
         ".results";
}

std::string history_file(const Program& program) {
  const std::string name = cleaned_name(program.options.student_name);
  return "history." + program.catalogue.exam_settings_key + "." + std::string(trim(name)) + ".htm";
}

}  // namespace practice
