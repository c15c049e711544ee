#include "bank_compiler/labs.h"

#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

namespace practice::compiler {
namespace {

namespace fs = std::filesystem;

// Nothing when there is no such file.
std::optional<std::string> text_of(const fs::path& file) {
  std::error_code error;
  if (!fs::is_regular_file(file, error)) return std::nullopt;
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

}  // namespace

Labs read_labs(const fs::path& folder, const std::set<std::string>& labs,
               const std::set<std::string>& exams, Faults& faults) {
  Labs read;
  for (const std::string& name : labs) {
    const fs::path file = folder / (name + ".toml");
    const auto text = text_of(file);
    if (!text) continue;
    read.by_name.emplace(name, parse_lab(*text, file.generic_string(), faults));
    read.files.push_back(file);
  }
  for (const std::string& exam : exams) {
    const fs::path file = folder / (exam + "_drag.toml");
    const auto text = text_of(file);
    if (!text) continue;
    const auto [place, fresh] =
        read.exercises_by_exam.emplace(exam, parse_exercises(*text, file.generic_string(), faults));
    check_exercises(place->second, exam, faults);
    read.files.push_back(file);
  }
  return read;
}

}  // namespace practice::compiler
