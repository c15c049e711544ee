#include "results/book.h"

#include "platform/values/text.h"
#include "session/addresses.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr int no_program_for_the_file = 31;

void offer_pdf_reader(Program& program) {
  const Answer answer = program.platform.messages.show(
      {.text = "Adobe Acrobat Reader is required to view PDF files.  Would you like to visit Adobe "
               "to install Acrobat Reader?",
       .title = "Adobe Acrobat not Found",
       .buttons = Buttons::yes_no,
       .icon = Icon::question});
  if (answer == Answer::yes) {
    open_document(program, addresses::pdf_reader_download, WindowShow::maximised);
  }
}

bool find_pdf_association(const Program& program, std::string_view extension,
                          std::string_view class_name) {
  return program.platform.shell.class_of(extension) == class_name;
}

// An exam may have a book for each quiz, and the final exam's questions name theirs.
void choose_book(Program& program) {
  Catalogue& catalogue = program.catalogue;
  const int quiz = program.test_run.clicked_quiz;
  const std::string& book = program.current_question.exhibits[3];
  if (quiz >= 1 && quiz <= 5) catalogue.book_file = catalogue.book_files[quiz];
  if (quiz == 5 && book == "heron") catalogue.book_file = catalogue.book_files[1];
  if (quiz == 5 && book == "falco") catalogue.book_file = catalogue.book_files[2];
  if (book == "new") catalogue.book_file = catalogue.book_files[5];
}

std::string make_pdf_page(Program& program, std::string_view page, const std::string& file) {
  std::string name = file + ".hta";
  const std::string_view edition =
      program.catalogue.is_book_edition() ? "Brightwater Press " : std::string_view();
  program.platform.files.write(name, pdf_page(page, file, edition) + std::string(crlf));
  return name;
}

}  // namespace

std::string pdf_page(std::string_view page, std::string_view file, std::string_view edition) {
  const std::string text = "\r\n<html><head><title>" + std::string(edition) +
                           "PDF Viewer   </title></head>"
                           "\r\n<body bgcolor='#FFFFFF'><OBJECT id=PDF height=100% width=100% "
                           "classid='clsid:CA8A9780-280D-11CF-A24D-444553540000'>"
                           "\r\n<PARAM NAME='SRC' VALUE='ZZFILE'>"
                           "\r\n</OBJECT> <script language=javascript>"
                           "\r\nPDF.setLayoutMode('PDFLayoutOneColumn');"
                           "\r\nPDF.setZoom('100');"
                           "\r\nPDF.setShowScrollbars(true);"
                           "\r\nPDF.setCurrentPage(ZZPAGENUM);"
                           "\r\n</script></body></html>";
  return replace_all(replace_all(text, "ZZPAGENUM", trim(page)), "ZZFILE", file);
}

void open_book(Program& program) {
  if (!find_pdf_association(program, ".pdf", "AcroExch.Document")) {
    offer_pdf_reader(program);
    return;
  }
  choose_book(program);
  const std::string& book = program.catalogue.book_file;
  if (!program.platform.files.exists(book)) {
    program.platform.messages.show({.text = "Could not find " + book, .title = {}});
    return;
  }
  // A page number of four digits or more is not read.
  const std::string& reference = program.current_question.book_reference;
  const auto place = reference.find("##");
  const bool is_read =
      place == std::string::npos || character_count(reference.substr(0, place)) < 4;
  if (is_read) program.pages.book_page = page_of(reference);
  if (program.pages.book_page.empty()) return;
  std::string page = book + ".hta";
  skip([&] { page = make_pdf_page(program, program.pages.book_page, book); });
  int code = 0;
  skip([&] { code = open_document_in(program, page, {}); });
  if (code == no_program_for_the_file) {
    offer_pdf_reader(program);
  } else if (code < 33) {
    shell_error_text(program, code, true);
  }
}

}  // namespace practice
