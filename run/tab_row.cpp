#include <array>
#include <string_view>

#include "platform/values/slots.h"
#include "platform/values/text.h"
#include "run/question_page.h"

namespace practice {
namespace {

constexpr int tab_places = 20;

constexpr std::array<std::string_view, 12> tab_names{
    "Question.gif",   "Diagram_1.gif",  "Diagram_2.gif",   "Diagram_3.gif",
    "Exhibit_1.gif",  "Exhibit_2.gif",  "Exhibit_3.gif",   "explanation.gif",
    "Web_Link_1.gif", "Web_Link_2.gif", "Onlinetutor.gif", "clue.gif"};

std::string tab_image_path(const Program& program, std::string_view name) {
  return program.catalogue.content_dir + std::string(name);
}

}  // namespace

std::string build_tab_row(const Program& program, int active) {
  Slots<bool, tab_places> shown;
  // The design has room for the others; questions show the one.
  shown[1] = true;
  std::string images;
  for (int i = 1; i <= static_cast<int>(tab_names.size()); ++i) {
    if (!shown[i]) continue;
    std::string name(tab_names[static_cast<std::size_t>(i - 1)]);
    if (i == active) name.replace(name.size() - 4, 4, "_active.gif");
    images.append("<img  align=top onclick=\"tabclick(")
        .append(trimmed_text_form(i))
        .append(")\" src=\"")
        .append(tab_image_path(program, name))
        .append("\">");
  }
  return "<tr><td align=top height=2>" + images + "</td></tr>";
}

}  // namespace practice
