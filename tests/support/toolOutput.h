#pragma once

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/shapeReader.h"

/// What command-line tools make of a file.

namespace kestrin::test {

inline bool Installed(const std::string& tool) {
  return std::system(("command -v " + tool + " >/dev/null 2>&1").c_str()) == 0;
}

/// What a command prints in plain English, warnings included.
inline std::string Output(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(
      popen(("export LC_ALL=C.UTF-8; " + command + " 2>&1").c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> part{};
  while (const std::size_t size = fread(part.data(), 1, part.size(), pipe.get())) {
    output.append(part.data(), size);
  }
  return output;
}

/// What stands behind each occurrence of a mark, up to the end of its line.
inline std::vector<std::string> Behind(const std::string& mark, const std::string& text) {
  std::vector<std::string> found;
  for (std::size_t at = text.find(mark); at != std::string::npos; at = text.find(mark, at)) {
    at += mark.size();
    found.push_back(Trimmed(text.substr(at, text.find('\n', at) - at)));
  }
  return found;
}

}  // namespace kestrin::test
