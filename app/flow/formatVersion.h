#pragma once

#include <stdexcept>
#include <string_view>

namespace kestrin::flow {

/// The job format this program was made for.
inline constexpr std::string_view kOwnFormat = "3.2.8-1";

/// How a job's format stands to the program's own.
enum class FormatAge { kCompatible, kNewer, kUnknown };

/// A part of a format version that is no 32-bit number.
class FormatNumberError : public std::runtime_error {
 public:
  FormatNumberError() : std::runtime_error("Not a format number") {}
};

/// Compares a job's format version with the program's own, letters without regard
/// to case. Digits and dots before the one "-" make a single number: "3.2.10-1" is
/// newer than "3.2.8-1" and "4.0-1" older, as consoles have always been numbered.
/// Blanks around the text must be gone.
/// Throws FormatNumberError.
FormatAge CompareFormat(std::string_view jobVersion);

}  // namespace kestrin::flow
