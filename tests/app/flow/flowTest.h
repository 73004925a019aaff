#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "app/flow/mainFlow.h"
#include "tests/app/flow/recordingWindow.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/memoryFiles.h"
#include "tests/support/recordingPicture.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// Adds a version, a reference location and two epochs on the first day of week 0.
JobBuilder& FillJob(JobBuilder& job, const std::string& version = "3.2.8-1");

/// All procedures of the window on one that only records, version 1.2.3, started in
/// "/opt/kestrin/". Job files are real, everything else is not.
///
/// Week 0 of the jobs begins on 22 August 1999.
class FlowTest : public testing::Test {
 protected:
  FlowTest();

  /// Completes the job and chooses it in the open dialog.
  std::string Choose(JobBuilder& job);

  /// Selects a fresh job of version 3.2.8-1 with two epochs and forgets the calls.
  std::string Select(const std::string& name);

  TempFolder folder;
  RecordingWindow window;
  RecordingPicture picture;
  MemoryFiles files;
  /// The kinds' procedures add a row and make their set.
  static const flow::ExportCommands::Kinds kKinds;
  flow::MainFlow flow;
  flow::WindowState& state = flow.State();
};

}  // namespace kestrin::test
