#include <gtest/gtest.h>

#include <atomic>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <thread>
#include <vector>

#include "jobstore/opening/privateCopy.h"
#include "tests/support/fork.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"

/// What becomes of private folders when their process is killed.

namespace kestrin::opening {
namespace {

namespace fs = std::filesystem;

/// A process with a private folder, in a temporary folder that only this test knows.
class PrivateFolderOfAProcess : public testing::Test {
 protected:
  std::ptrdiff_t Folders() const { return std::distance(fs::directory_iterator(root_.Path()), {}); }

  test::TempFolder root_;
  test::Setting temporary_{"TMPDIR", root_.Path().string()};
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

// Each looks for abandoned folders while others have just made theirs.
TEST_F(PrivateFolderOfAProcess, IsNeverTakenForAbandonedBySomebodyWhoBeginsAtTheSameTime) {
  std::atomic<int> kept = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < 8; ++thread) {
      threads.emplace_back([&kept] {
        for (int i = 0; i < 100; ++i) {
          const PrivateFolder folder;
          std::this_thread::yield();
          kept += std::ofstream(folder.Path() / "job.sqlite") ? 1 : 0;
        }
      });
    }
  }
  EXPECT_EQ(kept, 800);
  EXPECT_EQ(Folders(), 0);
}

}  // namespace
}  // namespace kestrin::opening
