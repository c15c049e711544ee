#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "bank_compiler/rules.h"
#include "bank_compiler/text_form.h"

namespace practice::compiler {
namespace {

// Fewer questions than these say nothing about the habits of an author.
constexpr std::size_t fewest_questions = 60;
constexpr std::size_t positions = 4;

struct Choice {
  /// Of the right answer, from 0.
  std::size_t right = 0;
  /// In characters.
  std::vector<std::size_t> lengths{};
};

std::optional<Choice> choice_in(const RowSource& row) {
  const auto& correct = row.correct.entries;
  if (kind_of(row) != RowKind::choice || correct.size() != 1 || !correct[0].value) return {};
  Choice choice;
  for (const TextEntry& answer : row.answers.entries) {
    if (!answer.value) return std::nullopt;
    choice.lengths.push_back(character_count(shown_text(*answer.value)));
  }
  const std::int64_t position = *correct[0].value;
  if (position < 1 || position > static_cast<std::int64_t>(choice.lengths.size())) return {};
  choice.right = static_cast<std::size_t>(position) - 1;
  return choice;
}

bool is_longest(const Choice& choice) {
  for (std::size_t i = 0; i < choice.lengths.size(); ++i) {
    if (i != choice.right && choice.lengths[i] >= choice.lengths[choice.right]) return false;
  }
  return true;
}

struct Limits {
  std::size_t least;
  std::size_t most;
};

// What chance alone stays within in all but one of twenty cases: two standard deviations to either
// side of the mean, in whole questions.
Limits limits_of(double mean, double variance) {
  const double width = 2 * std::sqrt(variance);
  return {.least = static_cast<std::size_t>(std::ceil(std::max(0.0, mean - width))),
          .most = static_cast<std::size_t>(std::floor(mean + width))};
}

// "18, 12 %"
std::string with_share(std::size_t count, std::size_t all) {
  return std::to_string(count) + ", " + std::to_string((200 * count + all) / (2 * all)) + " %";
}

void check_positions(const std::vector<Choice>& choices, const Reporter& report) {
  std::array<std::size_t, positions> counts{};
  std::size_t all = 0;
  for (const Choice& choice : choices) {
    if (choice.lengths.size() != positions) continue;
    ++counts[choice.right];
    ++all;
  }
  if (all == 0) return;
  constexpr double chance = 1.0 / positions;
  const auto questions = static_cast<double>(all);
  const auto [least, most] = limits_of(questions * chance, questions * chance * (1 - chance));
  for (std::size_t i = 0; i < positions; ++i) {
    if (counts[i] >= least && counts[i] <= most) continue;
    report(0,
           "of " + std::to_string(all) +
               " questions with four choices, each position is right in " + std::to_string(least) +
               " to " + std::to_string(most),
           "position " + std::to_string(i + 1) + " in " + with_share(counts[i], all));
  }
}

void check_lengths(const std::vector<Choice>& choices, const Reporter& report) {
  std::size_t longest = 0;
  double mean = 0;
  double variance = 0;
  for (const Choice& choice : choices) {
    if (is_longest(choice)) ++longest;
    const double chance = 1.0 / static_cast<double>(choice.lengths.size());
    mean += chance;
    variance += chance * (1 - chance);
  }
  const std::size_t most = limits_of(mean, variance).most;
  if (longest <= most) return;
  report(0,
         "of " + std::to_string(choices.size()) +
             " questions with one right choice, it is the longest in at most " +
             std::to_string(most),
         with_share(longest, choices.size()));
}

}  // namespace

void check_evenness(const BankSource& bank, Faults& faults) {
  const Reporter report(bank.file, faults);
  std::vector<Choice> choices;
  for (const RowSource& row : bank.rows) {
    if (const auto choice = choice_in(row)) choices.push_back(*choice);
  }
  if (choices.size() < fewest_questions) return;
  check_positions(choices, report);
  check_lengths(choices, report);
}

}  // namespace practice::compiler
