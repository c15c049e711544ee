// The hosts and mail addresses that the program sends a student to, in one place. All lie under
// the reserved example domains until the product has real ones.
#pragma once

#include <string_view>

namespace practice::addresses {

/// Ends in the path of the tutor's videos.
inline constexpr std::string_view tutor_server = "http://tutor.marlo.example/tests/";
inline constexpr std::string_view media_player_download = "http://player.marlo.example/download";
inline constexpr std::string_view pdf_reader_download = "http://reader.marlo.example/download";
inline constexpr std::string_view survey_page = "http://www.marlo.example/survey/survey.asp";
/// Mails a report on a question for a student without a mail program.
inline constexpr std::string_view mail_script =
    "http://www.marlo.example/promo/email/marlomail.asp";
inline constexpr std::string_view support_mail = "support@marlo.example";
inline constexpr std::string_view publisher = "http://www.brightwater.example";
/// The version that is offered for download, one line of text.
inline constexpr std::string_view version_file = "http://www.marlo.example/Version.txt";
/// Where a newer version is to be had, by the number of the exam.
inline constexpr std::string_view sister_site = "http://www.sister.example/updates";
inline constexpr std::string_view featured_tests = "http://www.marlo.example/featured";
inline constexpr std::string_view end_user_terms = "http://www.marlo.example/terms";

}  // namespace practice::addresses
