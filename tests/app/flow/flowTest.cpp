#include "tests/app/flow/flowTest.h"

namespace kestrin::test {

template <int kind>
exports::ExportOutcome FlowTest::Procedure(const std::string& basePath, const std::string& jobPath,
                                           exports::ExportRun& run) {
  FlowTest& test = *running_;
  EXPECT_EQ(&run.files, &test.files);
  EXPECT_FALSE(run.options.withProjection);
  test.window.Add("export " + std::to_string(kind) + " " + basePath + " of " + jobPath);
  if (test.onExport) return test.onExport(kind, basePath);
  if (!test.failure.empty()) {
    run.host.ShowMessage(test.failure);
    return {};
  }
  run.host.CountRow();
  run.host.Yield();
  test.files.AddSet(basePath);
  return {.made = true, .epochs = 1};
}

const exports::ExportKinds FlowTest::kKinds{{{"wire", "_WIRE", Procedure<0>},
                                             {"boom", "_BOOM", Procedure<1>},
                                             {"poly", "_POLY", Procedure<2>},
                                             {"point", "_POINT", Procedure<3>}}};

FlowTest::FlowTest()
    : flow({window, window, window, picture, files, window, window, window}, {1, 2, 3}, kKinds) {
  running_ = this;
  flow.Form_Load(Own("/opt/kestrin"), 0, [] {});
  window.Take();
}

JobBuilder& FillJob(JobBuilder& job, const std::string& version) {
  return job.Version({0, 0}, version)
      .Reference({0, 0}, 49.8, -97.1)
      .Epoch({0, 1000}, 0, 0)
      .Epoch({0, 2000}, 0, 100);
}

std::string FlowTest::Choose(JobBuilder& job) {
  const std::string path = job.Finish();
  files.names.insert(path);
  window.chosen = path;
  return path;
}

std::string FlowTest::Select(const std::string& name) {
  JobBuilder job(folder / name);
  const std::string path = Choose(FillJob(job));
  flow.Command3_Click();
  window.Take();
  picture.Take();
  return path;
}

}  // namespace kestrin::test
