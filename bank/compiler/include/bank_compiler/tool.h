// What the build's tools share: their options, and writing what they make.
#pragma once

#include <filesystem>
#include <map>
#include <ostream>
#include <span>
#include <string_view>

namespace practice::compiler {

/// "--name" to its value.
using Options = std::map<std::string_view, std::string_view>;

/// Empty when something is no option, has no value or stands twice.
Options options_in(std::span<const std::string_view> arguments);

/// Makes the folder too. A file that can not be written is told, and false returned.
bool write_file(const std::filesystem::path& file, std::string_view bytes, std::ostream& err);

/// A result from before a fault must not pass for the present one.
void remove_stale(const std::filesystem::path& file);

}  // namespace practice::compiler
