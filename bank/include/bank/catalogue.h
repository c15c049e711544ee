// The exam catalogue: which exam this program run serves, and what the loaded bank is called.
//
// Everything here is written by load_bank() and holds until the next call of it. The exam comes
// from the command line and never changes during a run; the bank does, with each quiz clicked.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "bank/question.h"
#include "bank/tables.h"
#include "platform/platform.h"
#include "platform/values/integer.h"
#include "platform/values/slots.h"

namespace practice {

struct Catalogue {
  /// Five digits.
  std::string exam_code;
  std::string exam_settings_key;
  std::string exam_title;
  std::string exam_version;
  /// The title in reports by mail, whatever the bank is called.
  std::string exam_mail_title;
  /// One line naming the loaded bank.
  std::string test_description;
  std::string author_address;
  /// "bw_falco.dat"
  std::string data_file;
  /// Folder of the exam's pictures and exhibits, with its trailing backslash.
  std::string content_dir;
  Slots<std::string, 3> quiz_names;
  Slots<std::string, 3> quiz_notes;
  /// By quiz number; entries 4 and 5 stay empty.
  Slots<std::string, 5> quiz_button_names;
  std::string book_file;
  std::string book_file_name;
  /// By quiz number, for banks of several books; here each quiz has the exam's one book.
  Slots<std::string, 5> book_files;
  std::string cover_picture;
  std::string photo_file;
  /// Empty for FALCO.
  std::string saver_program;
  Slots<std::string, 150> category_names;
  Integer category_count;
  bool has_categories = false;
  Integer bank_total;
  /// 9090 is the book edition, which this program always is.
  Integer book_edition;
  /// 99 is the layout with the book's cover on the welcome screen.
  Integer book_layout;

  bool is_book_edition() const { return book_edition == 9090; }
  bool has_cover_layout() const { return book_layout == 99; }
};

/// What is fixed of an exam before any bank is loaded.
struct Exam {
  std::string_view code;
  /// "FALCO"
  std::string_view name;
  std::string_view title;
  std::string_view data_file;
  std::string_view book_file_name;
  std::string_view cover_picture;
  std::string_view photo_file_name;
  std::string_view saver_program;
  /// Book, extra, full.
  std::string_view quiz_names[3];
  std::string_view quiz_notes[3];
  const ExamBanks* banks;
};

/// The seven exams, by rising code.
std::span<const Exam> exams();

/// The exam code of a command line: trimmed, without lower-case "a" and "p".
std::string exam_code_in(std::string_view command_line);

struct BankRequest {
  std::string_view command_line;
  /// Quiz clicked last on the options screen, 0 before the first click.
  Integer clicked_quiz;
  /// Quiz of the last test, 0 before the first.
  Integer selected_quiz;
  /// The program's folder with a trailing backslash.
  std::string_view install_dir;
};

/// Fills catalogue and table for the exam and quiz asked for. A command line that names no exam
/// shows a message and leaves the table, the exam's names and the counts as they are. Returns
/// whether a bank was loaded.
bool load_bank(const BankRequest& request, Catalogue& catalogue, QuestionTable& table,
               Messages& messages);

}  // namespace practice
