#include "bank_compiler/tool.h"

#include <fstream>
#include <system_error>

namespace practice::compiler {

namespace fs = std::filesystem;

Options options_in(std::span<const std::string_view> arguments) {
  if (arguments.size() % 2 != 0) return {};
  Options options;
  for (std::size_t i = 0; i < arguments.size(); i += 2) {
    if (!arguments[i].starts_with("--") || arguments[i + 1].empty()) return {};
    if (!options.try_emplace(arguments[i], arguments[i + 1]).second) return {};
  }
  return options;
}

bool write_file(const fs::path& file, std::string_view bytes, std::ostream& err) {
  std::error_code error;
  if (file.has_parent_path()) fs::create_directories(file.parent_path(), error);
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << bytes;
  stream.close();
  if (stream) return true;
  err << file.generic_string() << ": the file can not be written\n";
  return false;
}

void remove_stale(const fs::path& file) {
  std::error_code error;
  if (fs::is_regular_file(file, error)) fs::remove(file, error);
}

}  // namespace practice::compiler
