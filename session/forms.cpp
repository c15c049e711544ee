#include "session/forms.h"

namespace practice {

void Forms::enlist(Form form, Screen& screen) {
  screens_[static_cast<std::size_t>(form)] = &screen;
}

Screen* Forms::find(Form form) const { return screens_[static_cast<std::size_t>(form)]; }

Screen* Forms::find(std::string_view name) const {
  for (Screen* screen : screens_) {
    if (screen != nullptr && screen->form_name == name) return screen;
  }
  return nullptr;
}

bool Forms::is_loaded(Form form) const {
  const Screen* screen = find(form);
  return screen != nullptr && screen->loaded;
}

void Forms::load(Form form) {
  Screen* screen = find(form);
  if (screen == nullptr || screen->loaded) return;
  screen->loaded = true;
  ++screen->generation;
  screen->visible = false;
  screen->modal = false;
  screen->window_state = WindowState::normal;
  screen->pointer = Pointer::normal;
  screen->design();
  screen->load();
}

void Forms::show(Form form) {
  load(form);
  Screen* screen = find(form);
  // A screen's load may have sent the student elsewhere.
  if (screen == nullptr || !screen->loaded) return;
  screen->visible = true;
  screen->ask_for_front();
  came_to_front(*screen);
}

void Forms::show_modal(Form form) {
  load(form);
  Screen* screen = find(form);
  if (screen == nullptr || !screen->loaded) return;
  screen->modal = true;
  screen->visible = true;
  screen->ask_for_front();
  came_to_front(*screen);
  stage_.run_modal(*screen);
  screen->modal = false;
}

void Forms::hide(Form form) {
  Screen* screen = find(form);
  if (screen == nullptr || !screen->loaded) return;
  screen->visible = false;
  leave_front(*screen);
}

void Forms::unload(Form form) {
  Screen* screen = find(form);
  if (screen == nullptr || !screen->loaded) return;
  // Before its unload event, which may come back here.
  screen->loaded = false;
  screen->unload();
  screen->visible = false;
  leave_front(*screen);
}

void Forms::came_to_front(Screen& screen) {
  if (in_front_ == &screen || !screen.visible) return;
  in_front_ = &screen;
  screen.activate();
}

void Forms::leave_front(Screen& screen) {
  if (in_front_ == &screen) in_front_ = nullptr;
}

}  // namespace practice
