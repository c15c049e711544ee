// The ways to the student's mail. The program sends nothing itself: it hands a prepared message to
// the desktop's mail program, or leads to a mail page on the web.
#pragma once

#include <string>

#include "session/program.h"

namespace practice {

/// The history report as plain text, and the subject of its mail.
struct HistoryText {
  /// Begins with a blank.
  std::string subject;
  std::string text;
};

/// Reads the report out of a history page, its lines joined. Raises fault 5 when the page has lost
/// its headings.
HistoryText history_text(std::string_view page);

/// Prepares a mail with the student's history report, to whomever the student chooses. Without a
/// history it only says so.
void mail_history_report(Program& program);

/// Prepares a report on the question on show, to the author of the questions.
void mail_question_report(Program& program);

}  // namespace practice
