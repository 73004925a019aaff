#pragma once

namespace kestrin::base {

/// The two factors by which angles are converted everywhere, to these digits: results are
/// compared to the byte.
inline constexpr double kDegreesPerRadian = 57.2957795130823;
inline constexpr double kRadiansPerDegree = 0.0174532925199433;

}  // namespace kestrin::base
