// The form of single parts of a row: files, and the questions that are answered in a
// program of their own.
#pragma once

#include <cstddef>
#include <string_view>

#include "bank_compiler/rules.h"

namespace practice::compiler {

/// Entry `number`, from 1; empty when there is none.
std::string_view entry_of(const TextList& list, std::size_t number);

/// What a simulator's result must have under a key.
struct Condition {
  std::string_view key;
  std::string_view value;
};

/// Of "key=value" and "[key]value"; empty parts when the answer is neither.
Condition condition_in(std::string_view answer);

/// Whether it is planned to have a lab of this name, written or not.
bool is_lab(std::string_view name);

/// Entry 1 of diagrams holds a marker in place of a picture. Two of the four are used by no bank.
bool is_marker(std::string_view diagram);

bool has_explanation(const RowSource& row);

void check_files(const RowSource& row, const ContentFiles& content, const Reporter& report);
void check_drag_and_drop(const RowSource& row, const Reporter& report);
void check_simulator(const RowSource& row, const Reporter& report);

}  // namespace practice::compiler
