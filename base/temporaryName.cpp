#include "base/temporaryName.h"

#include <cstdint>
#include <random>

#include "base/paths.h"

namespace kestrin::base {
namespace {

constexpr std::string_view kBegin = "kestrin-";
constexpr std::string_view kEnd = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr std::size_t kDigitCount = 16;

constexpr std::string_view kFolderEnds = kSeparator == '\\' ? "\\/:" : "/";

void AppendHex(std::string& text, std::uint32_t value) {
  for (int shift = 28; shift >= 0; shift -= 4) text += kDigits[(value >> shift) & 15];
}

}  // namespace

std::string TemporaryNameBeside(std::string_view target) {
  // npos + 1 is 0: the current folder.
  std::string name(target.substr(0, target.find_last_of(kFolderEnds) + 1));
  name += kBegin;
  std::random_device random;
  AppendHex(name, static_cast<std::uint32_t>(random()));
  AppendHex(name, static_cast<std::uint32_t>(random()));
  return name += kEnd;
}

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kBegin) || !name.ends_with(kEnd)) return false;
  name.remove_prefix(kBegin.size());
  return name.size() == kDigitCount + kEnd.size() && name.find_first_not_of(kDigits) == kDigitCount;
}

}  // namespace kestrin::base
