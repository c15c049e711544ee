#include "session/branding.h"

#include "platform/values/text.h"

namespace practice {

bool is_white_label(const Branding& branding) {
  return branding.oem_active == 1 && upper(branding.oem_name) == "ETESTCRAFT";
}

bool has_partner_pictures(const Branding& branding) {
  return branding.partner_found && branding.oem_name == "skq";
}

}  // namespace practice
