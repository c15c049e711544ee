#include <QGuiApplication>
#include <iostream>
#include <string_view>
#include <vector>

#include "book_setting/command_line.h"

int main(int count, char** arguments) {
  practice::books::prepare_process();
  const QGuiApplication application(count, arguments);
  const std::vector<std::string_view> texts(arguments + (count > 0 ? 1 : 0), arguments + count);
  return practice::books::run(texts, std::cout, std::cerr);
}
