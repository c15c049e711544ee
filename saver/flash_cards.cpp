// The flash cards: the questions of the bank in random order, each turned over by the same button.
#include <string>

#include "platform/values/text.h"
#include "saver/sec_form.h"
#include "session/fault_patterns.h"
#include "session/helpers.h"

namespace practice {
namespace {

std::string card_heading(int row) {
  return "Question # " + trimmed_text_form(row) + std::string(crlf);
}

}  // namespace

void Security::load_flash_cards() {
  Trap trap{program_, "Security form load()", "sec_form"};
  trap([&] { center_form(program_, *this); });
  trap([&] { shuffle_rows(); });
  flash_position_ = 1;
  trap([&] { show_quest(); });
}

// Nobody is told that the cards have come to an end: behind it they are empty, and Exit is there.
void Security::show_quest() {
  showing_question_ = 1;
  cmd_main.caption = "Show Answer";
  skip([&] { program_.test_run.current_row = row_order_[flash_position_]; });
  skip([&] { text1.text = card_heading(program_.test_run.current_row); });
  skip([&] { text1.text += row_on_show(program_).question_text; });
}

void Security::show_answer() {
  showing_question_ = 0;
  cmd_main.caption = "Show Next Question";
  const Question* shown = nullptr;
  skip([&] { shown = &row_on_show(program_); });
  if (shown == nullptr) return;
  const bool all_are_accepted = is_fill_in(shown->question_type);
  std::string letters;
  for (int i = 1; i <= answer_labels; ++i) {
    const char letter = static_cast<char>('A' + i - 1);
    const bool is_correct = shown->answer_correct[i] == 1;
    if (is_correct) letters.append(" ") += letter;
    if (!is_correct && (!all_are_accepted || trim(shown->answers[i]).empty())) continue;
    text1.text.append(crlf).append(1, letter).append(".) ").append(shown->answers[i]);
  }
  text1.text.append(crlf).append(crlf).append("Correct answer(s): ").append(letters);
  text1.text.append(crlf).append(crlf).append(shown->explanation);
  skip([&] { ++flash_position_; });
}

void Security::turn_card() {
  skip([&] {
    if (showing_question_ != 0) {
      show_answer();
    } else {
      show_quest();
    }
  });
  text1.text = clean_text(text1.text);
}

void Security::skip_card() {
  skip([&] { ++flash_position_; });
  skip([&] { program_.test_run.current_row = row_order_[flash_position_]; });
  if (flash_position_ > program_.catalogue.bank_total) {
    skip([&] {
      program_.platform.messages.show(
          {.text = "All flash cards completed", .title = "Flash Cards Completed"});
    });
    skip([&] { program_.forms.show(Form::pick_a_quiz); });
    skip([&] { program_.forms.unload(Form::Security); });
  }
  skip([&] {
    text1.text = card_heading(program_.test_run.current_row) + row_on_show(program_).question_text;
  });
}

void Security::leave_flash_cards() {
  skip([&] { program_.forms.show(Form::Welcome); });
  skip([&] { program_.handover->return_to_options(); });
  skip([&] { program_.forms.unload(Form::Security); });
}

}  // namespace practice
