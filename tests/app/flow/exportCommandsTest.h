#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "app/flow/exportCommands.h"
#include "tests/app/flow/recordingScreen.h"
#include "tests/support/memoryFiles.h"
#include "tests/support/recordingHost.h"

namespace kestrin::test {

/// The export commands on a window, files and procedures that only record. The
/// procedures make their set unless told otherwise.
class CommandsTest : public testing::Test {
 protected:
  CommandsTest() {
    running_ = this;
    state.jobFolder = "/jobs/";
    state.jobName = "North.Field";
    state.fileSafeName = "North_Field";
    state.dateText = "2006Jun15";
    state.exportFolder = "/data/North_Field/2006Jun15";
    files.names = {"/jobs/North.Field.sqlite"};
    screen.chosen = "/out/a.shp";
  }
  ~CommandsTest() override { running_ = nullptr; }

  /// What happened after the controls were disabled and before they were restored;
  /// both are checked.
  std::vector<std::string> Between() {
    std::vector<std::string> calls = screen.Take();
    if (calls.size() < 3 || calls.front() != "SetControlsEnabled false,true" ||
        calls.back() != "SetControlsEnabled true") {
      ADD_FAILURE() << testing::PrintToString(calls);
      return calls;
    }
    return {calls.begin() + 1, calls.end() - 1};
  }

  using Export = std::function<exports::ExportOutcome(int kind, const std::string& basePath)>;

  flow::ExportState state;
  RecordingScreen screen;
  MemoryFiles files;
  RecordingHost host;
  /// What the procedures do.
  Export onExport = [this](int, const std::string& basePath) {
    files.AddSet(basePath);
    return exports::ExportOutcome{.made = true, .epochs = 9};
  };

 private:
  template <int kind>
  static exports::ExportOutcome Procedure(const std::string& basePath, const std::string& jobPath,
                                          exports::ExportRun& run) {
    EXPECT_EQ(&run.host, &running_->host);
    EXPECT_EQ(&run.files, &running_->files);
    EXPECT_FALSE(run.options.withProjection);
    running_->screen.Add("export " + std::to_string(kind), basePath + " of " + jobPath);
    return running_->onExport(kind, basePath);
  }

  static inline CommandsTest* running_ = nullptr;

 protected:
  flow::ExportCommands::Kinds kinds{{{"wire", "_WIRE", Procedure<0>},
                                     {"boom", "_BOOM", Procedure<1>},
                                     {"poly", "_POLY", Procedure<2>},
                                     {"point", "_POINT", Procedure<3>}}};
  flow::ExportCommands commands{state, screen, files, host, kinds, '/'};
};

}  // namespace kestrin::test
