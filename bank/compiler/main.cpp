#include <iostream>
#include <string_view>
#include <vector>

#include "bank_compiler/command_line.h"

int main(int count, char** arguments) {
  const std::vector<std::string_view> texts(arguments + (count > 0 ? 1 : 0), arguments + count);
  return practice::compiler::run(texts, std::cout, std::cerr);
}
