#include "shell/branding.h"

#include <array>

#include "platform/values/text.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::array<std::string_view, 2> partner_codes{"kws", "skq"};
// What stands behind is not looked at, so that no file can hold up the start.
constexpr std::size_t most_bytes = std::size_t{1} << 24;

std::vector<std::string> lines_of(const Files& files, std::string_view path) {
  return split_lines(files.read_start(path, most_bytes));
}

}  // namespace

void read_oem_file(Program& program) {
  constexpr std::string_view name = "oem.oem";
  Branding& branding = program.branding;
  branding.oem_active = 0;
  const Files& files = program.platform.files;
  if (!files.exists(name)) return;
  std::vector<std::string> lines = lines_of(files, name);
  lines.resize(2);
  branding.oem_name = std::move(lines[0]);
  branding.oem_owner = std::move(lines[1]);
  if (upper(trim(branding.oem_owner)) != "MARLO") branding.oem_active = 1;
}

bool scan_partner_file(Program& program) {
  Branding& branding = program.branding;
  branding.partner_found = false;
  const std::string path =
      program.install_dir + replace_all(program.catalogue.data_file, ".dat", ".log");
  const Files& files = program.platform.files;
  if (!files.exists(path)) return false;
  for (const std::string& line : lines_of(files, path)) {
    const std::string lower_line = lower(line);
    for (const std::string_view code : partner_codes) {
      if (!contains(lower_line, "_" + std::string(code))) continue;
      branding.partner_found = true;
      branding.partner_code = code;
      branding.oem_name = code;
      return true;
    }
  }
  return false;
}

}  // namespace practice
