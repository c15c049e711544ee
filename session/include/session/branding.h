// Which sales channel a copy of the program belongs to. Start-up finds it out from small files
// beside the program; it changes pictures and words, never the questions.
#pragma once

#include <string>

#include "platform/values/integer.h"

namespace practice {

struct Branding {
  /// 8080 is the partner publisher's edition, which no build of today sets.
  Integer partner_edition;
  /// 1 when oem.oem names another owner than the maker.
  Integer oem_active;
  /// The reseller's word, or the code of the partner that was found.
  std::string oem_name;
  std::string oem_owner;
  bool partner_found = false;
  /// "kws" or "skq".
  std::string partner_code;
  /// Words in front of "Practice Test for:".
  std::string brand_prefix;
  /// Asks once whether a student really wants no name; on in no edition of today.
  bool asks_for_a_name = false;
};

inline constexpr int partner_publisher = 8080;

/// The reseller whose name stands in front of the test's.
bool is_white_label(const Branding& branding);

/// The partner whose pictures stand on the screens.
bool has_partner_pictures(const Branding& branding);

}  // namespace practice
