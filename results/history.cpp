// The history file of a student: a growing HTML page, one line per graded test, newest first.
#include <utility>

#include "platform/values/text.h"
#include "results/finalscore.h"
#include "session/helpers.h"
#include "session/student_files.h"

namespace practice {
namespace {

std::string module_table(const std::vector<std::string>& percents,
                         const std::vector<std::string>& names) {
  if (percents.empty()) return {};
  std::string table =
      "<b> Module Results:</b><table border=0 cellpadding=0 cellspacing=0 "
      "style=\"border-collapse: collapse\" bordercolor=#111111 width=50% id=AutoNumber1> <tr> <td "
      "width=50 align=center><u>&nbsp;% </u></td>   <td><u>&nbsp;Exam Module </u></td></tr>";
  for (std::size_t i = 0; i < percents.size(); ++i) {
    table += "<tr><td  align=center>" + percents[i] + "</td><td>" + names[i] + "</td></tr>";
  }
  return table + "</table><p>&nbsp;</p>";
}

// Puts an entry behind the first line of a history. Its other lines stay as they are, whatever
// ends them; a history may be long, so they are moved and not copied.
void insert_behind_first_line(std::string& history, std::string entry) {
  entry += crlf;
  auto place = history.find_first_of("\r\n");
  if (place == std::string::npos) {
    history.append(crlf).append(entry);
    return;
  }
  place += history.compare(place, crlf.size(), crlf) == 0 ? crlf.size() : 1;
  if (history.size() > place && history.back() != '\n' && history.back() != '\r') history += crlf;
  history.insert(place, entry);
}

}  // namespace

std::string history_header(std::string_view student_name, std::string_view exam_title) {
  return std::string("<html><center><h2> History Report for ")
      .append(student_name)
      .append(" </h2><h3> ")
      .append(exam_title)
      .append(
          " </h3></center>Best Possible Result 100%<hr align=left width=100% size=15 NOSHADE "
          "COLOR=RED><hr><p>&nbsp;</p></html>");
}

void FinalScore::save_history() {
  Files& files = program_.platform.files;
  const std::string name = history_file(program_);
  std::string history;
  // An old history that can not be read must not be replaced by a new one.
  if (!skip([&] {
        history = files.exists(name) ? files.read(name)
                                     : history_header(program_.options.student_name,
                                                      program_.catalogue.exam_title) +
                                           std::string(crlf);
      })) {
    return;
  }
  skip([&] { files.write("temp.hist", history); });
  std::string percent = "0";
  skip([&] { percent = trimmed_text_form(percent_of(run_.right_count, run_.question_total)); });
  std::string entry;
  skip([&] {
    entry = "<p><b> " + program_.catalogue.quiz_button_names[run_.selected_quiz] +
            " Results:</b><br>" + percent + "%&nbsp;&nbsp;(" + trimmed_text_form(run_.right_count) +
            "/" + trimmed_text_form(run_.question_total) +
            ")&nbsp;&nbsp;-&nbsp;&nbsp;Date: " + program_.platform.clock.weekday() + " " +
            program_.platform.clock.date_and_time() + "<hr align=left width=" + percent +
            "% size=15 NOSHADE COLOR=NAVY>";
  });
  skip([&] { entry += module_table(percent_texts_, module_names_); });
  skip([&] { insert_behind_first_line(history, std::move(entry)); });
  skip([&] { files.write(name, history); });
}

}  // namespace practice
