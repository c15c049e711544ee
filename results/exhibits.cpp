#include "results/exhibits.h"

#include "platform/building.h"
#include "platform/values/text.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {

Exhibit::Exhibit(Program& program) : Screen("Exhibit"), program_(program) {
  list("text1", text1);
  list("Command1", Command1).on_click([this] { close_window(); });
}

void Exhibit::design() {
  static_cast<ExhibitControls&>(*this) = ExhibitControls{};
  caption = "Exhibit";
  bounds = {0, 0, 10125, 5955};
  least_width = 10125;
  least_height = 5955;
  text1 = placed<TextBox>({120, 120, 9855, 5055});
  text1.multi_line = true;
  Command1 = captioned<Button>("&Close", {4080, 5340, 1455, 405});
  Command1.is_default = true;
}

void Exhibit::load() {
  gaps_.take(*this, text1, Command1);
  skip([&] { center_form(program_, *this); });
}

void Exhibit::resize() { gaps_.lay_out(*this, text1, Command1); }

void Exhibit::close_window() { program_.forms.hide(Form::Exhibit); }

void Exhibit::open_exhibit(int number) {
  const std::string& name = program_.current_question.exhibits[number];
  if (name.empty()) return;
  skip([&] { program_.forms.load(Form::Exhibit); });
  skip([&] {
    std::string added;
    const std::string path = program_.catalogue.content_dir + name;
    for (const std::string& line : read_lines(program_.platform.files, path)) {
      added.append(line).append(crlf);
    }
    text1.text += added;
  });
  program_.forms.show(Form::Exhibit);
}

Diagram::Diagram(Program& program) : Screen("Diagram"), program_(program) {
  list("Image1", Image1);
  list("Command1", Command1).on_click([this] { close_window(); });
}

void Diagram::design() {
  static_cast<DiagramControls&>(*this) = DiagramControls{};
  caption = "Diagram";
  bounds = {0, 0, 11040, 7455};
  least_width = 11040;
  least_height = 7455;
  Image1 = placed<HtmlView>({120, 120, 10695, 6375});
  Command1 = captioned<Button>("&Close", {4613, 6800, 1695, 405});
  Command1.is_default = true;
}

void Diagram::load() {
  gaps_.take(*this, Image1, Command1);
  skip([&] { center_form(program_, *this); });
}

void Diagram::resize() { gaps_.lay_out(*this, Image1, Command1); }

void Diagram::close_window() { program_.forms.hide(Form::Diagram); }

void Diagram::open_diagram(int number) {
  const std::string& name = program_.current_question.diagrams[number];
  if (name.empty()) return;
  program_.forms.show(Form::Diagram);
  Image1.view.picture_folder = program_.catalogue.content_dir;
  Image1.view.navigate(program_.catalogue.content_dir + name);
}

}  // namespace practice
