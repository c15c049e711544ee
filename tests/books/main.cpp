#include <QGuiApplication>

#include <gtest/gtest.h>

#include "book_setting/command_line.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  practice::books::prepare_process();
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
