#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "export/setNames.h"
#include "tests/support/tempFolder.h"
#include "tests/tools/exporter/command.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::test {

/// Runs the real kestrin-export in a folder of its own, in UTC and in English.
class ExportCommand : public ::testing::Test {
 protected:
  CommandResult Run(std::vector<std::string> arguments,
                    std::vector<std::string> environment = {}) const {
    arguments.insert(arguments.begin(), KESTRIN_EXPORT);
    environment.insert(environment.begin(), {"TZ=UTC", "LC_ALL=C"});
    CommandResult result = RunCommand(arguments, folder_.Path().string(), environment);
    // So that the tests tell of paths in one way on every system.
    for (std::string* text : {&result.out, &result.err}) {
      std::replace(text->begin(), text->end(), base::kSeparator, '/');
    }
    return result;
  }

  /// A small sample job; the name may lead through folders, which are made.
  std::string Sample(const std::string& name, std::int64_t rows = 600,
                     const std::string& profile = "planter") const {
    const std::string path = folder_ / name;
    std::filesystem::create_directories(base::PathOf(path).parent_path());
    sample::MakeSampleJob(path, {.profile = profile, .rows = rows});
    return path;
  }

  bool HasSet(const std::string& base) const {
    return Exists(base + ".shp") && Exists(base + ".shx") && Exists(base + ".dbf");
  }
  bool Exists(const std::string& name) const {
    return std::filesystem::exists(base::PathOf(folder_ / name));
  }
  /// How many files lie below a folder, folders not counted.
  int FilesBelow(const std::string& name) const {
    int files = 0;
    if (!Exists(name)) return 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(base::PathOf(folder_ / name))) {
      files += entry.is_regular_file() ? 1 : 0;
    }
    return files;
  }

  TempFolder folder_;
};

}  // namespace kestrin::test
