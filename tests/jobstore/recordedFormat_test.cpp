#include "jobstore/recordedFormat.h"

#include <gtest/gtest.h>

#include "tests/support/jobBuilder.h"
#include "tests/support/tempFolder.h"

namespace kestrin::jobstore {
namespace {

class RecordedFormatOfAJob : public testing::Test {
 protected:
  test::TempFolder folder_;
  test::JobBuilder builder_{folder_ / "job.sqlite"};

  std::string Format() {
    Job job(builder_.Finish());
    return RecordedFormat(job);
  }
};

TEST_F(RecordedFormatOfAJob, IsTheNewestRowsWithoutBlanksAroundIt) {
  builder_.Version({10, 5}, " 3.2.8-1 ").Version({9, 7}, "3.2.7-2").Version({10, 4}, "3.3.0-1");
  EXPECT_EQ(Format(), "3.2.8-1");
}

TEST_F(RecordedFormatOfAJob, IsEmptyWithoutARowAndWithoutTheTable) {
  EXPECT_EQ(Format(), "");
  test::JobBuilder bare(folder_ / "bare.sqlite");
  Job job(bare.Execute("DROP TABLE VersionChangeTable").Finish());
  EXPECT_EQ(RecordedFormat(job), "");
}

}  // namespace
}  // namespace kestrin::jobstore
