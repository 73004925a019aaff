#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "jobstore/opening/privateCopy.h"
#include "tests/support/fork.h"
#include "tests/support/tempFolder.h"

/// What becomes of private folders when their process is killed.

namespace kestrin::opening {
namespace {

namespace fs = std::filesystem;

/// A process with a private folder, in a temporary folder that only this test knows.
class PrivateFolderOfAProcess : public testing::Test {
 protected:
  PrivateFolderOfAProcess() {
    if (const char* usual = std::getenv("TMPDIR")) usual_ = usual;
    setenv("TMPDIR", root_.Path().c_str(), 1);
  }
  ~PrivateFolderOfAProcess() override {
    usual_.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", usual_.c_str(), 1);
  }

  std::ptrdiff_t Folders() const { return std::distance(fs::directory_iterator(root_.Path()), {}); }

  test::TempFolder root_;
  std::string usual_;
};

TEST_F(PrivateFolderOfAProcess, GoesWithTheNextOneOnceItWasKilled) {
  test::Wait(test::Fork([] {
    const PrivateFolder folder;
    std::ofstream(folder.Path() / "job.sqlite") << "copy";
    return raise(SIGKILL);
  }));
  EXPECT_EQ(Folders(), 1);
  {
    const PrivateFolder next;
    EXPECT_FALSE(next.Error());
    EXPECT_EQ(Folders(), 1);
  }
  EXPECT_EQ(Folders(), 0);
}

TEST_F(PrivateFolderOfAProcess, StaysWhileItIsInUse) {
  const PrivateFolder first;
  { const PrivateFolder second; }
  EXPECT_TRUE(fs::exists(first.Path()));
  EXPECT_EQ(Folders(), 1);
}

}  // namespace
}  // namespace kestrin::opening
