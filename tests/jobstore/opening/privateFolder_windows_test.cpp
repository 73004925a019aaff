#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "jobstore/opening/privateCopy.h"
#include "tests/support/setting.h"
#include "tests/support/tempFolder.h"

/// What becomes of private folders when their process is killed.

namespace kestrin::opening {
namespace {

namespace fs = std::filesystem;

constexpr const char* kRoot = "KESTRIN_TEST_ROOT";

/// A process with a private folder, in a temporary folder that only this test knows; so does the
/// process that a death test starts, which runs the test anew up to its death.
class PrivateFolderOfAProcess : public testing::Test {
 protected:
  static std::string Root() {
    const char* given = std::getenv(kRoot);
    return given != nullptr ? given : "";
  }

  std::ptrdiff_t Folders() const { return std::distance(fs::directory_iterator(Root()), {}); }

  std::optional<test::TempFolder> own_{
      Root().empty() ? std::optional<test::TempFolder>(std::in_place) : std::nullopt};
  test::Setting root_{kRoot, own_ ? own_->Path().string() : Root()};
  test::Setting temporary_{"TMP", Root()};
};

TEST_F(PrivateFolderOfAProcess, GoesWithTheNextOneOnceItWasKilled) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const PrivateFolder folder;
        std::ofstream(folder.Path() / "job.sqlite") << "copy";
        TerminateProcess(GetCurrentProcess(), 9);
      },
      testing::ExitedWithCode(9), "");
  EXPECT_EQ(Folders(), 1);
  {
    const PrivateFolder next;
    EXPECT_FALSE(next.Error());
    EXPECT_EQ(Folders(), 1);
  }
  EXPECT_EQ(Folders(), 0);
}

}  // namespace
}  // namespace kestrin::opening
