#include <unistd.h>

#include <filesystem>

#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using ClosedFolder = test::ExportCommand;

TEST_F(ClosedFolder, AJobInItIsToldWithTheSystemsWords) {
  namespace fs = std::filesystem;
  Sample("closed/job.sqlite", 20);
  fs::permissions(folder_.Path(), fs::perms(0755));
  fs::permissions(folder_.Path() / "closed", fs::perms(0));
  std::vector<std::string> words{KESTRIN_EXPORT, "--base", "set", "closed/job.sqlite"};
  // To the superuser no folder is closed.
  if (geteuid() == 0) {
    words.insert(words.begin(), {"setpriv", "--reuid", "65534", "--clear-groups"});
  }
  const test::CommandResult run = test::RunCommand(words, folder_.Path().string(), {"LC_ALL=C"});
  fs::permissions(folder_.Path() / "closed", fs::perms(0755));
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(run.err, "kestrin-export: closed/job.sqlite: Error opening: -14 (Permission denied)\n");
}

}  // namespace
}  // namespace kestrin::exporter
