#include "results/mail.h"

#include "platform/values/text.h"
#include "session/addresses.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"
#include "session/student_files.h"

namespace practice {
namespace {

constexpr std::string_view web = "web";

/// Walks a page from place to place; a text that is not there is a fault.
class Finder {
 public:
  explicit Finder(std::string_view page) : page_(page) {}

  /// Moves behind the next `mark`.
  void skip_to(std::string_view mark) { until(mark); }
  /// The text up to the next `mark`; moves behind it.
  std::string_view until(std::string_view mark) {
    const auto found = page_.find(mark, place_);
    if (found == std::string_view::npos) throw Fault::invalid_call();
    const std::string_view text = page_.substr(place_, found - place_);
    place_ = found + mark.size();
    return text;
  }
  /// Moves in front of the next `mark`, if there is one.
  bool find(std::string_view mark) {
    const auto found = page_.find(mark, place_);
    if (found == std::string_view::npos) return false;
    place_ = found;
    return true;
  }

 private:
  std::string_view page_;
  std::size_t place_ = 0;
};

// The student pastes the report, as no address of a web page can carry it.
void lead_to_web_mail(Program& program, const std::string& report) {
  Platform& platform = program.platform;
  constexpr std::string_view title = "Web Based Email";
  constexpr std::string_view instructions = "instructions.htm";
  platform.messages.show({.text = "We will now launch a web browser.  Please go to your email "
                                  "service provider and log into your email account.",
                          .title = std::string(title)});
  platform.files.write(
      instructions,
      "<html><head><title>Web Based Email Intructions</title></head><body><p><font "
      "color=\"#0000FF\">Marlo Software Web Based Email Instructions</p><p>1. Please go to your "
      "email service provider and log into your email account.</p><p>2. You will then have to "
      "create an email to your instructor. Click in the text area of your message and select the "
      "Paste option under the edit menu. This will paste your score into your email. </p><p>3. "
      "Make sure you have entered your instructors email address in the to field.</p><p>4. Click "
      "Send and you are finished!</font></p></body></html>\r\n");
  open_document(program, instructions, WindowShow::normal);
  platform.messages.show(
      {.text = "You will now have to create an email to your instructor. Click in the text area of "
               "your message and select the Paste option under the edit menu. This will paste your "
               "score into your email.  Make sure you have entered your instructors email address "
               "in the to field.  Click Send and you are finished!",
       .title = std::string(title)});
  platform.clipboard.clear();
  platform.clipboard.set_text(report);
}

}  // namespace

// A line is found only by the word "Quiz", so names of quizzes without it are left out.
HistoryText history_text(std::string_view page) {
  Finder finder(page);
  HistoryText report;
  finder.skip_to("<h2>");
  report.subject = finder.until("</h2>");
  report.text = report.subject + std::string(crlf);
  finder.skip_to("<h3>");
  report.text.append(trim(finder.until("</h3>"))).append(crlf);
  finder.skip_to("</center>");
  report.text.append(finder.until("<hr")).append(crlf).append(crlf);
  while (finder.find("Quiz")) report.text.append(finder.until("<br>")).append(crlf);
  return {report.subject, report.text.append(crlf).append("End of History Report")};
}

void mail_history_report(Program& program) {
  Platform& platform = program.platform;
  const std::string file = history_file(program);
  if (!platform.files.exists(file)) {
    platform.messages.show(
        {.text = "  You currently do not have a history file.  This can happen if you\r\n"
                 " have not yet taken a practice test, or you do not have the correct name below.",
         .title = "No History File"});
    return;
  }
  std::string page;
  for (const std::string& line : read_lines(platform.files, file)) page += line;
  const HistoryText report = history_text(page);
  if (program.options.mail_kind == web) {
    lead_to_web_mail(program, report.text);
    return;
  }
  // The percent signs first, or those of the line ends would be escaped too.
  const std::string body = replace_all(replace_all(report.text, "%", "%25"), crlf, "%0d%0a");
  open_document(program, "mailto:?subject=" + report.subject + "&BODY=" + body, WindowShow::normal);
}

void mail_question_report(Program& program) {
  const Catalogue& catalogue = program.catalogue;
  const std::string subject =
      catalogue.exam_code + " " + catalogue.exam_mail_title +
      " QuestionID=" + trimmed_text_form(program.current_question.question_id) + "  (v" +
      catalogue.exam_version + ") ";
  if (program.options.mail_kind == "outlook") {
    // Nobody gets a copy in this edition.
    constexpr std::string_view feedback_cc;
    open_document(program,
                  "mailto:" + catalogue.author_address + "?subject=" + subject +
                      "&cc=" + std::string(feedback_cc) +
                      "&BODY=Remember that answers are listed in random order.",
                  WindowShow::normal);
    return;
  }
  std::string student;
  skip([&] { student = stored_mail_address(program); });
  open_document(program,
                replace_all(std::string(addresses::mail_script) + "?author=" +
                                catalogue.author_address + "&email=" + student + "&subj=" + subject,
                            "#", "_"),
                WindowShow::normal);
}

}  // namespace practice
