#include <algorithm>

#include "bank/catalogue.h"
#include "platform/values/text.h"

namespace practice {
namespace {

constexpr std::string_view not_from_the_menu =
    "Please Run the Practice Test from the Start Menu at Programs->Brightwater Press->Brightwater "
    "JASPER Test.";

std::string content_folder(std::string_view install_dir, std::string_view data_file) {
  return std::string(install_dir) + replace_all(data_file, ".dat", "\\");
}

void set_book(Catalogue& catalogue, std::string_view install_dir, std::string_view name) {
  catalogue.book_file_name = name;
  catalogue.book_file = std::string(install_dir).append(name);
  for (int quiz = 1; quiz <= catalogue.book_files.last; ++quiz) {
    catalogue.book_files[quiz] = catalogue.book_file;
  }
}

void take_exam(const Exam& exam, std::string_view install_dir, Catalogue& catalogue) {
  catalogue.exam_code = exam.code;
  catalogue.exam_settings_key = exam.code;
  catalogue.exam_title = exam.title;
  catalogue.exam_mail_title = exam.title;
  catalogue.test_description = "Cool";
  catalogue.data_file = exam.data_file;
  catalogue.content_dir = content_folder(install_dir, exam.data_file);
  set_book(catalogue, install_dir, exam.book_file_name);
  catalogue.cover_picture = exam.cover_picture;
  catalogue.photo_file = std::string(install_dir).append(exam.photo_file_name);
  catalogue.saver_program = exam.saver_program;
  for (int quiz = 1; quiz <= 3; ++quiz) {
    catalogue.quiz_names[quiz] = exam.quiz_names[quiz - 1];
    catalogue.quiz_button_names[quiz] = exam.quiz_names[quiz - 1];
    catalogue.quiz_notes[quiz] = exam.quiz_notes[quiz - 1];
  }
}

void take_head(const BankHead& head, Catalogue& catalogue) {
  catalogue.author_address = head.author_address;
  if (!head.test_description.empty()) catalogue.test_description = head.test_description;
  catalogue.exam_title = head.exam_title;
  catalogue.exam_version = head.exam_version;
}

void take_categories(const BankHead& head, Catalogue& catalogue) {
  for (int i = 1; i <= catalogue.category_names.last; ++i) catalogue.category_names[i].clear();
  int count = 0;
  for (const std::string_view name : head.categories) catalogue.category_names[++count] = name;
  catalogue.category_count = count;
  catalogue.has_categories = head.has_categories;
}

// The row was reset before, so what the bank leaves empty needs no writing.
void write_row(const BankRow& row, Question& question) {
  question.question_text = row.question_text;
  question.explanation = row.explanation;
  question.question_type = row.question_type;
  question.clue = row.clue;
  question.book_reference = row.book_reference;
  question.category = row.category;
  for (int i = 1; i <= 6; ++i) {
    question.answers[i] = row.answers[i - 1];
    question.answer_correct[i] = row.correct >> (i - 1) & 1;
  }
  for (int i = 1; i <= 3; ++i) {
    question.diagrams[i] = row.diagrams[i - 1];
    question.exhibits[i] = row.exhibits[i - 1];
  }
}

enum class Bank { book, extra, full };

Bank bank_asked_for(const BankRequest& request) {
  std::string number = trimmed_text_form(request.clicked_quiz);
  if (number_in(number) == 0) number = trimmed_text_form(request.selected_quiz);
  if (number == "2") return Bank::extra;
  if (number == "3") return Bank::full;
  return Bank::book;
}

void load(const ExamBanks& banks, Bank bank, Catalogue& catalogue, QuestionTable& table) {
  const BankHead& head = bank == Bank::book    ? banks.book_head
                         : bank == Bank::extra ? banks.extra_head
                                               : banks.full_head;
  take_head(head, catalogue);
  reset_bank_fields(table);
  take_categories(head, catalogue);
  int row = 0;
  if (bank != Bank::extra) {
    for (const BankRow& source : banks.book_rows) write_row(source, table[++row]);
  }
  const int first_extra = row;
  if (bank != Bank::book) {
    for (const BankRow& source : banks.extra_rows) write_row(source, table[++row]);
  }
  if (bank == Bank::full) {
    for (const CategoryChange& change : banks.full_changes) {
      table[first_extra + change.extra_row].category = change.category;
    }
  }
  catalogue.bank_total = row;
}

}  // namespace

std::string exam_code_in(std::string_view command_line) {
  std::string code(trim(command_line));
  std::erase_if(code, [](char letter) { return letter == 'a' || letter == 'p'; });
  return code;
}

bool load_bank(const BankRequest& request, Catalogue& catalogue, QuestionTable& table,
               Messages& messages) {
  catalogue.data_file = "bw_onyx.dat";
  set_book(catalogue, request.install_dir, "book_onyx.bookmarks.pdf");
  catalogue.book_layout = 99;
  catalogue.book_edition = 9090;
  const std::string code = exam_code_in(request.command_line);
  catalogue.content_dir = content_folder(request.install_dir, catalogue.data_file);
  const auto exam = std::ranges::find(exams(), code, &Exam::code);
  if (exam == exams().end()) {
    messages.show({.text = std::string(not_from_the_menu), .title = {}});
    return false;
  }
  take_exam(*exam, request.install_dir, catalogue);
  load(*exam->banks, bank_asked_for(request), catalogue, table);
  return true;
}

}  // namespace practice
