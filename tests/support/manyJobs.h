#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf8Path.h"
#include "tools/sample/sampleJob.h"

/// For tests of many jobs.

namespace kestrin::test {

/// A profile's name for GoogleTest, which takes no hyphens.
inline std::string TestName(std::string_view profile) {
  std::string name(profile);
  std::erase(name, '-');
  return name;
}

inline std::string NameOfProfile(const testing::TestParamInfo<sample::SampleProfile>& profile) {
  return TestName(profile.param.name);
}

/// Jobs of real machines, which are no part of the sources: those in the folder that KESTRIN_JOBS
/// names. None where it names no folder, and the test is to be skipped; it fails in one that has
/// no job.
inline std::vector<std::string> RecordedJobs() {
  const char* folder = std::getenv("KESTRIN_JOBS");
  if (folder == nullptr) return {};
  std::vector<std::string> jobs;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().extension() == ".sqlite") jobs.push_back(base::Utf8Of(entry.path()));
  }
  EXPECT_FALSE(jobs.empty()) << "no job in " << folder;
  return jobs;
}

}  // namespace kestrin::test
