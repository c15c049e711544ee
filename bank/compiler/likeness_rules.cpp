#include <algorithm>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "bank_compiler/row_form.h"
#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

constexpr std::size_t words_of_a_shingle = 3;
// Shingles that both have, of those that one of them has. Two short questions that open alike and
// offer the same names of things in an exhibit come near to four tenths; a question whose every
// twelfth word was changed still shares this much with its origin.
constexpr double alike = 0.6;

using Shingles = std::set<std::string>;

struct Question {
  const std::string* file;
  int line;
  Shingles shingles;
};

void add_words(std::string_view html, std::vector<std::string>& words) {
  bool in_word = false;
  for (const char c : in_lower_case(shown_text(html))) {
    const bool letter = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || (c & 0x80) != 0;
    if (c == ' ') in_word = false;
    // Punctuation is dropped without ending the word, so that an address is one.
    if (!letter) continue;
    if (!in_word) words.emplace_back();
    words.back() += c;
    in_word = true;
  }
}

// Runs of three words; a text of fewer words is one shingle.
Shingles shingles_of(const RowSource& row) {
  std::vector<std::string> words;
  add_words(*row.question.value, words);
  const RowKind kind = kind_of(row);
  if (kind == RowKind::choice || kind == RowKind::fill_in) {
    for (const TextEntry& answer : row.answers.entries) add_words(answer.value.value_or(""), words);
  }
  Shingles shingles;
  if (words.empty()) return shingles;
  for (std::size_t begin = 0; begin == 0 || begin + words_of_a_shingle <= words.size(); ++begin) {
    std::string shingle;
    const std::size_t end = std::min(begin + words_of_a_shingle, words.size());
    for (std::size_t i = begin; i < end; ++i) shingle += words[i] + ' ';
    shingles.insert(std::move(shingle));
  }
  return shingles;
}

std::vector<Question> questions_of(const std::vector<ExamSource>& exams) {
  std::vector<Question> questions;
  for (const ExamSource& exam : exams) {
    for (const BankSource* bank : {&exam.book, &exam.extra}) {
      for (const RowSource& row : bank->rows) {
        if (!row.question.value) continue;
        questions.push_back({&bank->file, row.question.line, shingles_of(row)});
      }
    }
  }
  return questions;
}

}  // namespace

void check_likeness(const std::vector<ExamSource>& exams, Faults& faults) {
  const std::vector<Question> questions = questions_of(exams);
  std::unordered_map<std::string_view, std::vector<std::size_t>> earlier_with;
  for (std::size_t i = 0; i < questions.size(); ++i) {
    const Shingles& own = questions[i].shingles;
    std::unordered_map<std::size_t, std::size_t> shared_with;
    for (const std::string& shingle : own) {
      std::vector<std::size_t>& earlier = earlier_with[shingle];
      for (const std::size_t other : earlier) ++shared_with[other];
      earlier.push_back(i);
    }
    // The most alike of all, and of these the first.
    double most = 0;
    std::size_t nearest = i;
    for (const auto& [other, shared] : shared_with) {
      const std::size_t all = own.size() + questions[other].shingles.size() - shared;
      const double likeness = static_cast<double>(shared) / static_cast<double>(all);
      if (likeness < alike || likeness < most || (likeness == most && other > nearest)) continue;
      most = likeness;
      nearest = other;
    }
    if (nearest == i) continue;
    Reporter(*questions[i].file, faults)(
        questions[i].line, "two questions are nearly the same",
        *questions[nearest].file + ":" + std::to_string(questions[nearest].line));
  }
}

}  // namespace practice::compiler
