#include <gtest/gtest.h>

#include <clocale>

// In the language of the environment, as a desktop would run it, but for numbers: what the tests
// themselves read and print of those is in plain C. (export/languages_posix_test.cpp is not.)
int main(int argc, char** argv) {
  std::setlocale(LC_ALL, "");
  std::setlocale(LC_NUMERIC, "C");
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
