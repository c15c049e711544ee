#include "session/fault_patterns.h"

#include <string>

#include "platform/values/text.h"

namespace practice {

void log_error(Program& program, std::string_view routine, std::string_view source,
               const Fault& fault) noexcept {
  skip([&] {
    std::string line = program.platform.clock.date_and_time();
    line.append(" - ").append(routine).append(" - ").append(source);
    line.append(std::to_string(fault.number())).append(" - ").append(fault.text());
    line.append(" - ").append(crlf);
    program.platform.files.append("error.log", line);
  });
}

}  // namespace practice
