#include "run/page_writing.h"

#include "session/fault_patterns.h"

namespace practice {

void show_blank_page(Program& program, html::View& view) {
  program.pages.page_loaded = false;
  view.picture_folder = program.catalogue.content_dir;
  skip([&] { view.navigate("FILE://" + program.catalogue.content_dir + "blank.htm"); });
  const Clock& clock = program.platform.clock;
  const auto start = clock.seconds();
  while (!program.pages.page_loaded && clock.seconds() - start < 2) program.platform.stage.pump();
}

void write_page(Program& program, html::View& view, std::string_view page) {
  html::Document& document = view.document;
  skip([&] {
    document.clear();
    document.open();
    document.clear();
  });
  // Between open and close nothing may come in, or the page would be cut.
  skip([&] {
    document.open();
    document.write(std::string(program.pages.page_scripts).append(page).append("</body></html>"));
    document.close();
    view.busy = true;
  });
}

void note_completion(Program& program, html::View& view) {
  view.document_complete = [&program] { program.pages.page_loaded = true; };
  view.navigate_complete = view.document_complete;
}

}  // namespace practice
