#include "shell/branding.h"

#include <array>
#include <string>
#include <string_view>

#include "platform/values/text.h"

namespace practice {
namespace {

constexpr std::array<std::string_view, 2> partner_codes{"kws", "skq"};
// What stands behind is not looked at, so that no file can hold up the start.
constexpr std::size_t most_bytes = std::size_t{1} << 24;

// Takes the next line off the front of a text, without its end. A list of all lines could be many
// times as large as the file.
std::string_view take_line(std::string_view& text) {
  const auto end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

void read_oem_file(Program& program) {
  constexpr std::string_view name = "oem.oem";
  Branding& branding = program.branding;
  branding.oem_active = 0;
  const Files& files = program.platform.files;
  if (!files.exists(name)) return;
  const std::string content = files.read_start(name, most_bytes);
  std::string_view rest = content;
  branding.oem_name = take_line(rest);
  branding.oem_owner = take_line(rest);
  if (upper(trim(branding.oem_owner)) != "MARLO") branding.oem_active = 1;
}

bool scan_partner_file(Program& program) {
  Branding& branding = program.branding;
  branding.partner_found = false;
  const std::string path =
      program.install_dir + replace_all(program.catalogue.data_file, ".dat", ".log");
  const Files& files = program.platform.files;
  if (!files.exists(path)) return false;
  const std::string content = files.read_start(path, most_bytes);
  for (std::string_view rest = content; !rest.empty();) {
    const std::string lower_line = lower(take_line(rest));
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
