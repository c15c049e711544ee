// Finding out which sales channel a copy belongs to, from the files beside it.
#pragma once

#include "session/program.h"

namespace practice {

/// Reads the reseller from oem.oem in the working folder. Without the file there is none.
void read_oem_file(Program& program);

/// Looks for a partner's code in the exam's .log file in the program's folder. Needs the bank to be
/// selected.
bool scan_partner_file(Program& program);

}  // namespace practice
