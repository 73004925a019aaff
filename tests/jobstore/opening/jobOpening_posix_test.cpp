#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/jobstore/opening/openResult.h"
#include "tests/jobstore/opening/ordinaryUser.h"
#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::opening {
namespace {

using test::kCannotOpen;
using test::OpenResult;

TEST(JobOpening, APipeIsRefusedInsteadOfWaitedFor) {
  const test::TempFolder folder;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(OpenResult(folder / "pipe"), kCannotOpen);
}

TEST(JobOpening, AFileWithoutPermissionIsANegativeResult) {
  const test::TempFolder folder;
  const std::string path = test::JobBuilder(folder / "job.sqlite").Epoch({1, 2}, 3, 4).Finish();
  std::filesystem::permissions(path, std::filesystem::perms::none);
  const test::OrdinaryUser user;
  if (!user.CanTell(path)) GTEST_SKIP() << "permissions cannot be made to bind";
  EXPECT_EQ(OpenResult(path), kCannotOpen);
}

}  // namespace
}  // namespace kestrin::opening
