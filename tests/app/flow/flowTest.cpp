#include "tests/app/flow/flowTest.h"
#include "tests/support/tempFolder.h"

namespace kestrin::test {
namespace {

exports::ExportOutcome MakeSet(const std::string& basePath, const std::string&,
                               exports::ExportRun& run) {
  run.host.CountRow();
  run.host.Yield();
  dynamic_cast<MemoryFiles&>(run.files).AddSet(basePath);
  return {.made = true, .epochs = 1};
}

}  // namespace

const flow::ExportCommands::Kinds FlowTest::kKinds{{{"wire", "_WIRE", MakeSet},
                                                    {"boom", "_BOOM", MakeSet},
                                                    {"poly", "_POLY", MakeSet},
                                                    {"point", "_POINT", MakeSet}}};

FlowTest::FlowTest()
    : flow({window, window, window, picture, files, window, window, window}, {1, 2, 3}, kKinds) {
  flow.Form_Load(base::WithOwnSeparators("/opt/kestrin"), 0);
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
