#include "tests/support/tempFolder.h"

#include <atomic>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace kestrin::test {

TempFolder::TempFolder() {
  static std::atomic<unsigned> counter{std::random_device{}()};
  do {
    path_ = std::filesystem::temp_directory_path() / ("kestrin-test-" + std::to_string(++counter));
  } while (!std::filesystem::create_directory(path_));
}

TempFolder::~TempFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string FileBytes(const std::string& path) {
  std::ifstream in(base::PathOf(path), std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + path);
  std::ostringstream bytes;
  // Nothing to read is a failure of this operator, so an empty file never gets there.
  if (in.peek() != std::ifstream::traits_type::eof()) bytes << in.rdbuf();
  return bytes.str();
}

}  // namespace kestrin::test
