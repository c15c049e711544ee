#include "run/question_page.h"

#include <algorithm>

#include "platform/values/text.h"
#include "session/addresses.h"
#include "session/helpers.h"

namespace practice {
namespace {

constexpr std::string_view notice =
    "<br><center><b>Please Scroll Down to See Exhibits and/or Diagrams";
constexpr std::string_view tutor_notice = "<br><center><b>Please Scroll Down to See Online Tutor";

constexpr std::string_view focus_script =
    "<script language=vbscript>\r\n"
    "On Error Resume Next\r\n"
    "dim myDoc\r\n"
    "myDoc = document.frm.elements(0).type\r\n"
    "if myDoc = \"button\" then \r\n"
    "document.frm.NEXT.focus\r\n"
    "else\r\n"
    "document.frm.elements(0).focus\r\n"
    "end if\r\n"
    "</script>";

// What an exhibit link calls in a view without the program behind it.
constexpr std::string_view link_script =
    "<script language=javascript>\r\n"
    "Function myfunction()\r\n"
    "{\r\n"
    "return 0;\r\n"
    "};\r\n"
    "</script>\r\n";

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string access_key_of(int entry) { return quoted(lower(answer_label(entry).substr(0, 1))); }

/// The inputs of a page and the line that tells the student what to do.
struct Block {
  std::string inputs;
  std::string instruction;
};

std::string kind_script(std::string_view count, std::string_view type) {
  return std::string("<SCRIPT LANGUAGE=VBScript>\r\nvarcount=")
      .append(count)
      .append("\r\n questiontype=")
      .append(quoted(type))
      .append(" </SCRIPT>\r\n");
}

Block radio_block(const Program& program, const Question& question) {
  const int count = program.test_run.answer_count;
  Block block{kind_script(trimmed_text_form(count), "radio"), program.options.show_answer_count == 0
                                                                  ? "Select the correct answer."
                                                                  : "Select the 1 Best Answer."};
  for (int i = 1; i <= count; ++i) {
    block.inputs.append(crlf)
        .append("<input ")
        .append(question.answer_chosen[i] == 1 ? "checked" : "")
        .append(" type=radio accesskey=")
        .append(access_key_of(i))
        .append(" ")
        .append(" name=\"radio1\" value=V")
        .append(trimmed_text_form(i))
        .append(">")
        .append(answer_label(i))
        .append(question.answers[i])
        .append("</option><br>");
  }
  return block;
}

Block check_box_block(const Program& program, const Question& question) {
  const int count = program.test_run.answer_count;
  Block block{kind_script(trimmed_text_form(count), "multiple"), "Select the correct answers."};
  if (program.options.show_answer_count != 0) {
    block.instruction =
        "Select the " + trimmed_text_form(program.test_run.correct_count) + " Best Answers.";
  }
  for (int i = 1; i <= count; ++i) {
    block.inputs.append("<input type=checkbox accesskey=")
        .append(access_key_of(i))
        .append(" ")
        .append(question.answer_chosen[i] == 1 ? "checked" : "")
        .append(" name=ans")
        .append(trimmed_text_form(i))
        .append(" value=")
        .append(trimmed_text_form(i))
        .append(">")
        .append(answer_label(i))
        .append(question.answers[i])
        .append("</option><br>")
        .append(crlf);
  }
  return block;
}

Block fill_in_block(const Question& question) {
  const std::string typed = replace_all(replace_all(question.typed_answer, "\"", ""), "'", "");
  return {kind_script("1 ", "fill") +
              "<p>&nbsp;</p>"
              "<p align=center><input type=text name=txt_fill size=40 value=" +
              quoted(typed) +
              "></p onblur=alert(\"hi\")>"
              "<p align=center><b>Please Type Answer In Box Above</b></p><br>",
          "Type the answer into the box"};
}

Block block_of_the_kind(const Program& program, const Question& question) {
  const std::string& question_kind = program.test_run.question_kind;
  if (question_kind == kind::radio_button) return radio_block(program, question);
  if (question_kind == kind::check_box) return check_box_block(program, question);
  if (question_kind == kind::fill_in) return fill_in_block(question);
  if (question_kind == kind::drag_drop) return {{}, "Click the Next button when finished"};
  return {{}, "Complete the Task Using the Simulator"};
}

/// What stands below the question's table, and the notice that tells of it.
struct Attachments {
  std::string notice;
  std::string html;
};

Attachments attachments_of(const Program& program, const Question& question) {
  Attachments result;
  if (const std::string& exhibit = question.exhibits[1];
      !trim(exhibit).empty() && contains(upper(exhibit), ".TXT")) {
    result.notice = notice;
    result.html
        .append("<hr><a href=\"javascript:; void(' ');\"id=\"Exhibit1\"onclick=myfunction()>")
        .append("Exhibit # ")
        .append(text_form(1))
        .append(" Click Here</a><br>");
  }
  for (int i = 1; i <= 3; ++i) {
    const std::string& diagram = question.diagrams[i];
    if (!is_page_diagram(diagram)) continue;
    result.notice = notice;
    result.html.append("<hr>Diagram ")
        .append(text_form(i))
        .append("<br><img src=")
        .append(quoted(program.catalogue.content_dir + diagram))
        .append("><p>");
  }
  if (!trim(question.tutor_file).empty()) {
    result.notice += tutor_notice;
    result.html +=
        tutor_html(program, tutor_address(program, question.tutor_file, {".WMV", ".WAV", ".MP3"}));
  }
  return result;
}

}  // namespace

std::string answer_label(int entry) { return {static_cast<char>('A' + entry - 1), '.', '\t'}; }

std::string read_page_header(const Program& program) {
  const std::string path = program.install_dir + "q_bottom.ini";
  std::string header;
  if (!program.platform.files.exists(path)) return header;
  for (const std::string& line : read_lines(program.platform.files, path)) {
    header.append(crlf).append(line);
  }
  return header;
}

void add_picture_folder(std::string& text, std::string_view content_dir) {
  const auto picture = text.find("<img src");
  if (picture == std::string::npos) return;
  const auto quote = text.find('"', picture + std::string_view("<img src").size());
  if (quote == std::string::npos) return;
  text.insert(quote + 1, content_dir);
}

bool is_page_diagram(std::string_view diagram) {
  return !trim(diagram).empty() && diagram != "1900" && diagram != "2950" &&
         !is_simulator_marker(diagram);
}

std::string tutor_address(const Program& program, std::string_view tutor_file,
                          std::initializer_list<std::string_view> media_endings) {
  std::string address(addresses::tutor_server);
  address.append(program.catalogue.exam_code).append("/").append(tutor_file);
  const std::string name = upper(tutor_file);
  if (std::ranges::none_of(media_endings, [&](auto ending) { return contains(name, ending); })) {
    address += ".wmv";
  }
  return address;
}

std::string media_object_html(std::string_view url) {
  return std::string(
             "<center>\r\n"
             "<object classid=\"clsid:22D6F312-B0F6-11D0-94AB-0080C74C7E95\" "
             "id=\"MediaPlayer1\">\r\n"
             "  <param name=\"AutoStart\" value=\"0\">\r\n"
             "  <param name=\"Filename\" value=")
      .append(quoted(url))
      .append(">\r\n</object>\r\n</center>\r\n");
}

std::string tutor_html(const Program& program, std::string_view url) {
  if (program.options.embed_media != 0) {
    return "<hr>Click the Play Button to Start the Online Tutor<br><br>\r\n" +
           media_object_html(url) + "\r\n<br><p align=\"center\">\r\n<a target=\"_blank\" href=" +
           quoted(addresses::media_player_download) +
           ">\r\nClick Here</a> If You Cannot See the Online Tutor</p>\r\n";
  }
  return "<hr>\r\n<a target=\"_blank\" href=" + quoted(url) +
         "> \r\nClick Here to View the Online Tutor</a>\r\n";
}

std::string style_block(Options& options) {
  if (options.font_size <= 0) options.font_size = 12;
  const std::string size = "{font-size:" + text_form(options.font_size) + " pt}\r\n";
  return "<style>\r\nBODY" + size + "TABLE" + size + "BODY{font-family:" + options.font_name +
         "}\r\n</style>";
}

std::string build_question_page(Program& program, Question& question) {
  add_picture_folder(question.question_text, program.catalogue.content_dir);
  for (int i = 1; i <= 6; ++i) {
    add_picture_folder(question.answers[i], program.catalogue.content_dir);
  }
  const std::string style = style_block(program.options);
  const Block block = block_of_the_kind(program, question);
  const Attachments attachments = attachments_of(program, question);

  std::string page(crlf);
  page.append(style)
      .append(crlf)
      .append("<table border=0 cellpadding=0 cellspacing=0 width=100% height=100% >")
      .append(build_tab_row(program, 1))
      .append("<tr><td valign=top>")
      .append(text_form(program.test_run.question_position))
      .append(".) ")
      .append(question.question_text)
      .append("<p>")
      .append(block.inputs)
      .append("</td></tr>")
      .append("<tr><td ><p align=center>")
      .append(block.instruction)
      .append(attachments.notice)
      .append("<zzexplanation>")
      .append("</td></tr>")
      .append("</td></tr></table>")
      .append(crlf)
      .append(focus_script)
      .append(link_script)
      .append(crlf)
      .append(attachments.html)
      .append("</BODY>");
  return page;
}

}  // namespace practice
