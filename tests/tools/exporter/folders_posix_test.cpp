#include <unistd.h>

#include "tests/tools/exporter/exportFixture.h"

namespace kestrin::exporter {
namespace {

using test::CommandResult;

class LinkedFolders : public test::ExportCommand {};

TEST_F(LinkedFolders, AreEachWalkedOnceHoweverLinksLeadToThem) {
  Sample("s/a/job.sqlite", 20);
  std::filesystem::create_directory_symlink("..", folder_.Path() / "s/a/up");
  std::filesystem::create_directory_symlink("a", folder_.Path() / "s/b");
  std::filesystem::create_directory_symlink("self", folder_.Path() / "s/self");
  const CommandResult run = Run({"--quiet", "--kind", "wire", "--recursive", "s", "--out", "o"});
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.code, 0);
  EXPECT_EQ(FilesBelow("o"), 3);
}

TEST_F(LinkedFolders, OneThatMayNotBeReadIsNamedAndTheRestGoesOn) {
  namespace fs = std::filesystem;
  for (const char* name : {"s/a/job.sqlite", "s/b/job.sqlite", "s/c/job.sqlite"}) Sample(name, 20);
  fs::permissions(folder_.Path(), fs::perms(0755));
  fs::permissions(folder_.Path() / "s/b", fs::perms(0));
  std::vector<std::string> words{KESTRIN_EXPORT, "--summary", "--recursive", "s"};
  // To the superuser no folder is closed.
  if (geteuid() == 0) {
    words.insert(words.begin(), {"setpriv", "--reuid", "65534", "--clear-groups"});
  }
  const CommandResult run = test::RunCommand(words, folder_.Path().string(), {"LC_ALL=C"});
  fs::permissions(folder_.Path() / "s/b", fs::perms(0755));
  EXPECT_EQ(run.err, "kestrin-export: s/b: Error reading the folder: Permission denied\n");
  EXPECT_EQ(run.code, 1);
  EXPECT_EQ(std::count(run.out.begin(), run.out.end(), '\n'), 2) << run.out;
}

TEST_F(LinkedFolders, NamesThatAreNoUtf8AreTakenAndComeOutOfJsonWithMarksInThem) {
  std::filesystem::rename(Sample("s/job.sqlite", 20), folder_.Path() / "s/j\xe4.sqlite");
  const CommandResult run = Run({"--json", "--kind", "wire", "--base", "x", "s/j\xe4.sqlite"});
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.out, ::testing::HasSubstr(R"("job":"s/j)"
                                            "\xef\xbf\xbd"
                                            R"(.sqlite")"));
  EXPECT_EQ(Run({"--json", "--summary", "s"}).code, 0);
}

}  // namespace
}  // namespace kestrin::exporter
