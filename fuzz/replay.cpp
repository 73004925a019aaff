// replay FOLDER COUNT: runs a target, with any compiler, over the inputs of a folder and over
// so many more that are made of them, every time the same.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "fuzz/input.h"

namespace kestrin::fuzz {
namespace {

namespace fs = std::filesystem;

/// Each input in the order of the names.
std::vector<std::string> Inputs(const fs::path& folder) {
  std::vector<fs::path> files{fs::directory_iterator(folder), {}};
  std::sort(files.begin(), files.end());
  std::vector<std::string> inputs;
  for (const fs::path& file : files) {
    std::ifstream in(file, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return inputs;
}

class Mutation {
 public:
  explicit Mutation(const std::vector<std::string>& inputs) : inputs_(inputs) {}

  /// The beginning of one input and the end of another, with a few bytes changed.
  std::string Next() {
    const std::string& one = Any();
    const std::string& other = Any();
    std::string made =
        one.substr(0, Upto(one.size())) + other.substr(other.size() - Upto(other.size()));
    for (std::size_t changes = Upto(3); changes > 0 && !made.empty(); --changes) {
      made[Upto(made.size() - 1)] = static_cast<char>(random_());
    }
    return made;
  }

 private:
  // The distributions of the library differ from one to another.
  std::size_t Upto(std::size_t most) { return random_() % (most + 1); }
  const std::string& Any() { return inputs_[Upto(inputs_.size() - 1)]; }

  const std::vector<std::string>& inputs_;
  std::mt19937 random_;
};

/// Runs one; one that fails is kept, for a second look.
void RunOrKeep(const std::string& input) {
  try {
    Run(input);
  } catch (...) {
    std::ofstream("fuzz-failure", std::ios::binary) << input;
    throw;
  }
}

void Replay(const fs::path& folder, int count) {
  const std::vector<std::string> inputs = Inputs(folder);
  for (const std::string& input : inputs) RunOrKeep(input);
  for (Mutation mutation(inputs); count > 0; --count) RunOrKeep(mutation.Next());
}

}  // namespace
}  // namespace kestrin::fuzz

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: replay FOLDER COUNT\n", stderr);
    return 2;
  }
  try {
    kestrin::fuzz::Replay(argv[1], std::atoi(argv[2]));
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s; the input is in fuzz-failure\n", error.what());
    return 1;
  }
  return 0;
}
