#include "app/flow/formatVersion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>
#include <string>

#include "base/text.h"
#include "export/setNames.h"

namespace kestrin::flow {
namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, {}, Lower, Lower);
}

/// A number as people write it, blanks around it and a sign included, to the nearest
/// whole one.
std::int32_t NumberOf(std::string_view text) {
  text = base::TrimmedBlanks(text);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) throw FormatNumberError();
  number = std::nearbyint(number);
  // Written so that NaN fails it.
  if (!(number >= std::numeric_limits<std::int32_t>::min() &&
        number <= std::numeric_limits<std::int32_t>::max())) {
    throw FormatNumberError();
  }
  return static_cast<std::int32_t>(number);
}

struct FormatNumbers {
  std::int32_t format = 0;
  std::int32_t release = 0;

  friend auto operator<=>(const FormatNumbers&, const FormatNumbers&) = default;
};

/// `dash` is where the text's "-" stands.
FormatNumbers NumbersOf(std::string_view version, std::size_t dash) {
  return {NumberOf(base::Without(version.substr(0, dash), ".")),
          NumberOf(version.substr(dash + 1))};
}

}  // namespace

FormatAge CompareFormat(std::string_view jobVersion) {
  if (EqualIgnoringCase(jobVersion, kOwnFormat)) return FormatAge::kCompatible;
  const std::size_t dash = jobVersion.find('-');
  if (dash == std::string_view::npos || jobVersion.find('-', dash + 1) != std::string_view::npos ||
      dash + 1 == jobVersion.size()) {
    return FormatAge::kUnknown;
  }
  const FormatNumbers own = NumbersOf(kOwnFormat, kOwnFormat.find('-'));
  return NumbersOf(jobVersion, dash) > own ? FormatAge::kNewer : FormatAge::kCompatible;
}

}  // namespace kestrin::flow
