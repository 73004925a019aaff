#include "base/temporaryName.h"

#include <cstdint>
#include <random>

#include "base/paths.h"

namespace kestrin::base {
namespace {

constexpr std::string_view kFolderEnds = kSeparator == '\\' ? "\\/:" : "/";

void AppendHex(std::string& text, std::uint32_t value) {
  for (int shift = 28; shift >= 0; shift -= 4) text += "0123456789abcdef"[(value >> shift) & 15];
}

}  // namespace

std::string TemporaryNameBeside(std::string_view target) {
  // npos + 1 is 0: the current folder.
  std::string name(target.substr(0, target.find_last_of(kFolderEnds) + 1));
  name += "kestrin-";
  std::random_device random;
  AppendHex(name, static_cast<std::uint32_t>(random()));
  AppendHex(name, static_cast<std::uint32_t>(random()));
  return name += ".tmp";
}

}  // namespace kestrin::base
