// The format version of a job, which may be any text.

#include <string>

#include "app/flow/formatVersion.h"
#include "base/text.h"
#include "fuzz/input.h"

namespace kestrin::fuzz {
namespace {

constexpr auto kCompatible = flow::FormatAge::kCompatible;

/// What a text is said to be; nothing where it is refused.
const char* Said(std::string_view version) {
  try {
    const flow::FormatAge age = flow::CompareFormat(version);
    return age == kCompatible ? "compatible" : age == flow::FormatAge::kNewer ? "newer" : "unknown";
  } catch (const flow::FormatNumberError&) {
    return "";
  }
}

}  // namespace

void Run(std::string_view bytes) {
  const std::string_view version = base::TrimmedBlanks(bytes);
  Require(base::TrimmedBlanks(version) == version, "trimmed blanks are all gone");
  const std::string_view said = Said(version);
  std::string upper(version);
  for (char& letter : upper) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  }
  Require(Said(upper) == said, "letters' case does not count");
  Require((said == "unknown") == (version.find('-') != version.rfind('-') ||
                                  version.find('-') >= version.size() - 1) ||
              version.empty(),
          "unknown is what has no dash, more than one, or nothing behind it");
  Require(flow::CompareFormat(flow::kOwnFormat) == kCompatible, "the own format is compatible");
}

}  // namespace kestrin::fuzz
