// The hosts and mail addresses that the program sends a student to, in one place. All lie under
// the reserved example domains until the product has real ones.
#pragma once

#include <string_view>

namespace practice::addresses {

/// Ends in the path of the tutor's videos.
inline constexpr std::string_view tutor_server = "http://tutor.marlo.example/tests/";
inline constexpr std::string_view media_player_download = "http://player.marlo.example/download";
inline constexpr std::string_view pdf_reader_download = "http://reader.marlo.example/download";

}  // namespace practice::addresses
