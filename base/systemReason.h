#pragma once

#include <cstdint>
#include <string>

/// Windows only.

namespace kestrin::base {

/// What the system says about one of its error codes, in the user's language, in
/// UTF-8 and without the end of the sentence.
std::string ReasonOf(std::uint32_t code);

}  // namespace kestrin::base
