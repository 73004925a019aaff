#include "tests/support/shapeReader.h"
#include "tests/tools/exporter/exportFixture.h"

/// The stick is pulled out while its job is read, or while sets are written to it.

namespace kestrin::exporter {
namespace {

using test::CommandResult;
using test::FileBytes;
using ::testing::HasSubstr;

class PulledStick : public test::ExportCommand {
 protected:
  PulledStick() {
    Sample("stick/job.sqlite", 300);
    std::filesystem::copy_file(folder_ / "stick/job.sqlite", folder_ / "job.sqlite");
    std::filesystem::create_directory(folder_ / "sets");
  }

  /// The stick is gone from that operation on.
  CommandResult RunPulled(int operation, const std::string& base, const std::string& job) const {
    return Run(
        {"--kind", "point", "--threads", "1", "--base", base, job},
        {std::string("LD_PRELOAD=") + KESTRIN_PULLED_STICK, "KESTRIN_STICK=" + (folder_ / "stick"),
         "KESTRIN_PULLED_AT=" + std::to_string(operation)});
  }
};

TEST_F(PulledStick, GivesTheRowsBeforeAsAFailureAtWhateverReadItGoes) {
  const std::string job = folder_ / "stick/job.sqlite", base = folder_ / "sets/x";
  const std::string bytes = FileBytes(job);
  ASSERT_EQ(Run({"--kind", "point", "--base", "whole", job}).code, 0);
  for (int operation = 1;; ++operation) {
    SCOPED_TRACE(operation);
    const CommandResult run = RunPulled(operation, base, job);
    if (run.code == 0) break;
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("(")) << "no reason is given";
    ASSERT_LT(operation, 500);
    if (!HasSet("sets/x_POINT")) {
      EXPECT_EQ(FilesBelow("sets"), 0);
      continue;
    }
    EXPECT_THAT(run.err, HasSubstr("The job could not be read to its end: the set holds "));
    EXPECT_LE(test::ReadShapeSet(base + "_POINT").records.size(), 300U);
  }
  EXPECT_TRUE(FileBytes(base + "_POINT.dbf") == FileBytes(folder_ / "whole_POINT.dbf"));
  EXPECT_TRUE(FileBytes(job) == bytes);
  EXPECT_EQ(FilesBelow("stick"), 1);
}

TEST_F(PulledStick, HoldsAWholeSetOrNoneAtWhateverWriteItGoes) {
  const std::string base = folder_ / "stick/sets/x", shape = base + "_POINT";
  ASSERT_EQ(Run({"--kind", "point", "--base", base, "job.sqlite"}).code, 0);
  const std::string whole = FileBytes(shape + ".shp");
  int failures = 0;
  for (int operation = 1;; ++operation) {
    SCOPED_TRACE(operation);
    const CommandResult run = RunPulled(operation, base, "job.sqlite");
    // Nothing can be taken away from a stick that is gone, but shapes come last and go first.
    if (Exists("stick/sets/x_POINT.shp")) {
      EXPECT_NO_THROW(test::ReadShapeSet(shape));
    }
    if (run.code == 0) break;
    ++failures;
    EXPECT_EQ(run.code, 1);
    EXPECT_THAT(run.err, HasSubstr("Error writing: " + (folder_ / "stick/sets")));
    EXPECT_THAT(run.err, HasSubstr("Input/output error"));
    ASSERT_LT(operation, 500);
  }
  EXPECT_GT(failures, 5);
  EXPECT_TRUE(FileBytes(shape + ".shp") == whole);
}

/// Drives that are files: one is cut short while it is mounted, the other lies where there is no
/// room for it. Nobody else sees them, and they go with the shell.
constexpr const char* kDrives = R"(
  mkdir drive room && mount -t tmpfs -o size=3m none room &&
  truncate -s 16M stick.img && mkfs.ext4 -q stick.img && mount -o loop stick.img drive &&
  cp job.sqlite drive && umount drive && mount -o loop,ro stick.img drive || exit 77
  truncate -s "$1" stick.img; shift
  "$@" --kind point --base sets/read drive/job.sqlite; echo "read $?"; umount drive
  truncate -s 64M room/stick.img && mkfs.ext4 -q -O ^has_journal room/stick.img &&
  mount -o loop room/stick.img drive || exit 77
  "$@" --kind point --base drive/written job.sqlite; echo "written $?"; ls drive; umount drive
)";

TEST_F(PulledStick, IsSaidOfADriveThatFailsIndeed) {
  std::filesystem::remove(folder_ / "job.sqlite");
  Sample("job.sqlite", 30000);
  const CommandResult run =
      test::RunCommand({"unshare", "-m", "sh", "-c", kDrives, "sh", "6M", KESTRIN_EXPORT},
                       folder_.Path().string(), {"LC_ALL=C", "PATH=/usr/sbin:/usr/bin:/sbin:/bin"});
  if (run.code == 77 || run.code == 1) GTEST_SKIP() << "no drives can be made here: " << run.err;
  EXPECT_EQ(run.code, 0) << run.err;
  EXPECT_THAT(run.out, HasSubstr("read 1\n"));
  EXPECT_THAT(run.err, HasSubstr("(the disk or stick cannot be read)"));
  EXPECT_THAT(run.out, HasSubstr("written 1\nlost+found\n"));
  EXPECT_THAT(run.err, HasSubstr("Error writing: drive/written"));
}

}  // namespace
}  // namespace kestrin::exporter
