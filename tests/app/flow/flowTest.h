#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "app/flow/mainFlow.h"
#include "base/utf8Path.h"
#include "tests/app/flow/recordingWindow.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/memoryFiles.h"
#include "tests/support/recordingPicture.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {

/// Adds a version, a reference location and two epochs on the first day of week 0.
JobBuilder& FillJob(JobBuilder& job, const std::string& version = "3.2.8-1");

/// All procedures of the window on one that only records, version 1.2.3, started in
/// "/opt/kestrin/". Job files are real, everything else is not. The window's calls
/// tell of exports and of copies of the job too: "export 1 /out/b of /jobs/a.sqlite",
/// "copy /out/a.sqlite".
///
/// Week 0 of the jobs begins on 22 August 1999.
class FlowTest : public testing::Test {
 protected:
  FlowTest();
  ~FlowTest() override { running_ = nullptr; }

  /// A path with the system's own separators.
  static std::string Own(const std::string& path) { return base::WithOwnSeparators(path); }

  /// Completes the job and chooses it in the open dialog.
  std::string Choose(JobBuilder& job);

  /// Selects a fresh job of version 3.2.8-1 with two epochs and forgets the calls.
  std::string Select(const std::string& name);

  struct Files : MemoryFiles {
    explicit Files(RecordingWindow& calls) : window(calls) {}
    void Copy(const std::string& from, const std::string& to) override {
      if (onCopy) onCopy(from);
      MemoryFiles::Copy(from, to);
      window.Add("copy " + to);
    }
    RecordingWindow& window;
    /// Hears of every copy before it is made.
    std::function<void(const std::string& from)> onCopy;
  };

  TempFolder folder;
  RecordingWindow window;
  RecordingPicture picture;
  Files files{window};
  /// What the kinds' procedures do: add a row and make their set, unless told otherwise.
  std::function<exports::ExportOutcome(int kind, const std::string& basePath)> onExport;
  /// What they tell through their host instead, when there is something; no set is made then.
  std::string failure;

 private:
  template <int kind>
  static exports::ExportOutcome Procedure(const std::string& basePath, const std::string& jobPath,
                                          exports::ExportRun& run);

  static inline FlowTest* running_ = nullptr;
  static const exports::ExportKinds kKinds;

 protected:
  flow::MainFlow flow;
  flow::WindowState& state = flow.State();
};

}  // namespace kestrin::test
