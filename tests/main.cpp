#include <gtest/gtest.h>

#include <cstdio>
#include <locale>
#include <stdexcept>

// In the language of the environment, as a host with a window would load the libraries: where
// decimals have commas, capital letters other small ones, and digits are others.
int main(int argc, char** argv) {
  try {
    std::locale::global(std::locale(""));
  } catch (const std::runtime_error&) {
    std::fputs("The language of the environment is not installed; tested in plain C\n", stderr);
  }
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
