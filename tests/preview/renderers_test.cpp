#include "preview/renderers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// What all four renderers have in common.
class AnyPreview : public testing::TestWithParam<PreviewJob::Renderer> {
 protected:
  std::vector<std::string> Draw(const PreviewState& state) { return job_.Draw(GetParam(), state); }

  PreviewJob job_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, AnyPreview,
                         testing::Values(DrawWirePreview, DrawBoomPreview, DrawPolyPreview,
                                         DrawPointPreview));

TEST_P(AnyPreview, DoesNothingWithoutAJobPath) {
  EXPECT_THAT(Draw(test::HundredMetres("")), IsEmpty());
}

TEST_P(AnyPreview, ClearsBeforeOpeningAndFailsSilently) {
  EXPECT_THAT(Draw(test::HundredMetres(job_.folder / "missing.sqlite")), ElementsAre("Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, EndsSilentlyWithoutAReferenceTable) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50);
  job_.builder.Execute("DROP TABLE ReferenceLocationChangeTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())), ElementsAre("Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, EndsSilentlyWithoutAReferenceLocation) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50);
  job_.builder.Execute("DELETE FROM ReferenceLocationChangeTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())), ElementsAre("Clear"));
}

TEST_P(AnyPreview, EndsSilentlyWithoutAGpsTable) {
  job_.Implement(0, {{10, 0, 0, 0}}).builder.Execute("DROP TABLE GpsDataTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())), ElementsAre("Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, DrawsNothingOnAPictureWithoutSize) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  job_.picture = test::RecordingPicture(0, 100);
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())), ElementsAre("Clear"));
}

TEST_P(AnyPreview, CountsAndYieldsOncePerGpsRowThatTakesPart) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60).At(3, 60, 60);
  jobstore::EpochRow other;
  other.time = {1, 4000};
  job_.builder.Epoch(other);
  Draw(test::HundredMetres(job_.builder.Finish()));
  EXPECT_EQ(job_.host.rows, 3);
  EXPECT_EQ(job_.host.yields, 3);
}

TEST_P(AnyPreview, LetsACancelledRunPass) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  job_.host.cancelAt = 2;
  const PreviewState state = test::HundredMetres(job_.builder.Finish());
  EXPECT_THROW(Draw(state), base::RunCancelled);
}

TEST(PreviewKinds, EachKindIsDrawnInItsOwnColours) {
  PreviewJob job;
  job.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 50, 60);
  const PreviewState state = test::HundredMetres(job.builder.Finish());
  const auto drawn = [&](int kind) {
    DrawPreview(kind, state, job.picture, job.host);
    return job.picture.Take();
  };
  EXPECT_THAT(drawn(0), Contains("Polyline 8C3C00 50,50 50,40"));
  EXPECT_THAT(drawn(1), Contains("Line 8C3C00 55,50 45,50"));
  const std::vector<std::string> swath = drawn(2);
  EXPECT_THAT(swath, Contains("Polygon 5CB86C 5CB86C 55,50 55,40 45,40 45,50"));
  EXPECT_THAT(swath, Contains("Line 2E6E1E 55,50 55,40"));
  EXPECT_THAT(drawn(3), Contains("Circle 8C3C00 50,50 3"));
}

TEST(PreviewKinds, AKindThatIsNoneDrawsNothing) {
  PreviewJob job;
  const PreviewState state = test::HundredMetres(job.builder.Finish());
  DrawPreview(-1, state, job.picture, job.host);
  DrawPreview(4, state, job.picture, job.host);
  EXPECT_THAT(job.picture.Take(), IsEmpty());
}

}  // namespace
}  // namespace kestrin::preview
