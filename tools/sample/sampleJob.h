#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "tools/sample/sampleError.h"

namespace kestrin::sample {

/// What a sample job is to be like.
struct SampleOptions {
  /// A name out of SampleProfiles.
  std::string profile = "planter";
  /// Epochs that take part (with the value 8192 in `type`); those that do not come on top.
  /// 0: the profile's own number.
  std::int64_t rows = 0;
  /// The same seed, profile and rows make the same rows in the same order.
  std::uint64_t seed = 1;
  /// Replace a file that is there already.
  bool force = false;
};

struct SampleProfile {
  std::string_view name;
  std::string_view description;
};

/// The profiles there are; each shows other rules of the exports at work.
std::span<const SampleProfile> SampleProfiles();

/// Makes a believable job file in the console's schema. The file appears whole or
/// not at all. Throws SampleError.
void MakeSampleJob(const std::string& path, const SampleOptions& options);

}  // namespace kestrin::sample
