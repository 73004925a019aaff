#pragma once

#include <cstdint>

namespace kestrin::flow {

/// Backgrounds of the command buttons, as BGR (0xBBGGRR).
inline constexpr std::uint32_t kWorkingColour = 0xE0FFFF;  ///< pale yellow: its action runs
inline constexpr std::uint32_t kSuccessColour = 0x00FF00;  ///< green
inline constexpr std::uint32_t kFailureColour = 0x0000FF;  ///< red

/// The desktop's own button colour, whatever it is: no BGR value.
inline constexpr std::uint32_t kButtonFace = 0x8000000F;

}  // namespace kestrin::flow
