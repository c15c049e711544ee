// What the saver shows, second by second: the question, its answers, the correct ones in green, and
// the way back to black.
#include <algorithm>
#include <optional>

#include "platform/values/text.h"
#include "saver/sec_form.h"
#include "session/fault_patterns.h"

namespace practice {
namespace {

constexpr unsigned black = 0x000000;
constexpr unsigned white = 0xFFFFFF;
constexpr unsigned green = 0x00CC00;
/// Of the question behind its fade in and of the answers behind their last change.
constexpr int lead = 3;
constexpr std::size_t long_text = 50;

constexpr unsigned grey(unsigned level) { return level << 16 | level << 8 | level; }

// Texts of up to 50 characters count as having none.
std::size_t counted_length(std::string_view text) {
  const std::size_t length = character_count(text);
  return length > long_text ? length : 0;
}

// Points by the class of the screen and the length of the text; nothing for a screen without a
// class, whose letters keep their size.
std::optional<double> letter_size(int resolution_class, std::size_t length) {
  constexpr std::size_t very_long_text = 140;
  constexpr double sizes[3][3] = {{14, 12, 10}, {16, 14, 12}, {26, 24, 18}};
  if (resolution_class < 1 || resolution_class > 3) return std::nullopt;
  const std::size_t column = length < long_text ? 0 : length < very_long_text ? 1 : 2;
  return sizes[resolution_class - 1][column];
}

// Letters of either case, as ASCII has them.
std::string replace_any_case(std::string_view text, std::string_view what, std::string_view with) {
  const auto same = [](char a, char b) {
    return (a >= 'A' && a <= 'Z' ? a + ('a' - 'A') : a) == b;
  };
  std::string result;
  for (;;) {
    const auto found = std::ranges::search(text, what, same);
    result.append(text.begin(), found.begin());
    if (found.empty()) return result;
    result += with;
    text = {found.end(), text.end()};
  }
}

}  // namespace

std::string clean_text(std::string_view text) {
  const std::string broken = replace_any_case(text, "<br>", crlf);
  return replace_any_case(replace_any_case(broken, "&gt;", ">"), "&lt;", "<");
}

void Security::fit(Label& label) {
  const TextSize size =
      program_.platform.stage.text_size(label.caption, label.letters.font, label.bounds.width);
  label.bounds.height = size.height;
}

void Security::tick() {
  skip([&] { ++tick_count_; });
  if (tick_count_ > cycle_length_) {
    tick_count_ = 0;
    go_to_next_row();
    skip([&] { show_question(); });
    skip([&] { place_answers(); });
  }
  // Wider than the delays, whose sum no short integer holds.
  const int answers_at = int{answer_delay_} + lead;
  if (tick_count_ == lead) {
    fade_in();
    if (tick_count_ != answers_at) return;
  }
  if (tick_count_ == answers_at) {
    const Question* row = nullptr;
    skip([&] { row = &program_.question_table[saver_row_]; });
    for (int i = 1; row != nullptr && i <= answer_labels && !row->answers[i].empty(); ++i) {
      answer_label(i).letters.fore_rgb = white;
    }
    skip([&] { show_answers(); });
  } else if (tick_count_ == answers_at + int{correct_delay_}) {
    skip([&] { light_correct_answers(); });
  } else if (tick_count_ == cycle_length_) {
    fade_out();
  }
}

void Security::go_to_next_row() {
  if (random_questions_ == 0) {
    skip([&] { ++saver_row_; });
  } else {
    skip([&] { ++order_index_; });
    skip([&] { saver_row_ = row_order_[order_index_]; });
    // A shuffled run shows every other entry of the order, so that the next one differs.
    skip([&] { ++order_index_; });
  }
  const int count = program_.catalogue.bank_total;
  if (saver_row_ > count) saver_row_ = 1;
  if (order_index_ > count) order_index_ = 1;
}

void Security::show_question() {
  Question& row = program_.question_table[saver_row_];
  const auto points = letter_size(resolution_class_, counted_length(row.question_text));
  if (points) lblQuestnum.letters.font.points = lblQuestion.letters.font.points = *points;
  lblQuestnum.caption = trimmed_text_form(saver_row_) + ". ";
  lblQuestnum.bounds.height =
      program_.platform.stage.text_size(lblQuestnum.caption, lblQuestnum.letters.font, 0).height;
  row.question_text = clean_text(row.question_text);
  lblQuestion.caption = row.question_text;
  keep_question_on_the_screen();
  fit(lblQuestion);
}

// The question's place stays from row to row, so the longest number in the largest letters has to
// fit in front of it.
void Security::make_room_for_the_number() {
  const std::string longest = trimmed_text_form(program_.catalogue.bank_total) + ". ";
  TextFont font = lblQuestnum.letters.font;
  font.points = letter_size(resolution_class_, 0).value_or(font.points);
  lblQuestnum.bounds.width = program_.platform.stage.text_size(longest, font, 0).width;
}

void Security::keep_question_on_the_screen() {
  const double width = program_.platform.stage.width();
  Bounds& question = lblQuestion.bounds;
  if (question.left + question.width > width) question.width = width - question.left - 100;
}

void Security::show_answers() {
  const Question& row = program_.question_table[saver_row_];
  std::size_t longest = 0;
  for (int i = 1; i <= answer_labels && !row.answers[i].empty(); ++i) {
    const char letter = static_cast<char>('A' + i - 1);
    answer_label(i).caption = std::string{letter} + ".  " + clean_text(row.answers[i]);
    longest = std::max(longest, counted_length(row.answers[i]));
  }
  if (const auto points = letter_size(resolution_class_, longest)) {
    for (Label& label : lblAnswer) label.letters.font.points = *points;
  }
  place_answers();
}

void Security::place_answers() {
  double top = lblQuestion.bounds.top + lblQuestion.bounds.height + 500;
  for (Label& label : lblAnswer) {
    fit(label);
    label.bounds.top = top;
    top += label.bounds.height + 300;
  }
}

void Security::light_correct_answers() {
  const Question& row = program_.question_table[saver_row_];
  for (int i = 1; i <= answer_labels; ++i) {
    if (row.answer_correct[i] == 1) answer_label(i).letters.back_rgb = green;
  }
}

void Security::paint_question(unsigned rgb) {
  lblQuestion.letters.fore_rgb = rgb;
  lblQuestnum.letters.fore_rgb = rgb;
}

// From black over red and yellow to white.
void Security::fade_in() {
  paint_question(black);
  for (const unsigned shift : {16u, 8u, 0u}) {
    const unsigned before = shift == 16 ? 0 : white & ~((1u << (shift + 8)) - 1);
    for (unsigned level = 0; level <= 255; ++level) {
      paint_question(before | level << shift);
      program_.platform.stage.paint_step(*this);
    }
  }
}

void Security::fade_out() {
  for (unsigned level = 0; level <= 255; ++level) {
    paint_question(grey(255 - level));
    for (Label& label : lblAnswer) {
      label.letters.fore_rgb = grey(255 - level);
      if (label.letters.back_rgb == green) label.letters.back_rgb = black;
    }
    program_.platform.stage.paint_step(*this);
  }
}

void Security::crawl() {
  Picture1.bounds.left -= 5;
  if (Picture1.bounds.left <= -Picture1.bounds.width) Picture1.bounds.left = bounds.width;
}

}  // namespace practice
