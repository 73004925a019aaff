#include "preview/drawJob.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "preview/boomPreview.h"
#include "preview/pointPreview.h"
#include "preview/polyPreview.h"
#include "preview/previewKinds.h"
#include "preview/wirePreview.h"
#include "tests/preview/previewJob.h"

namespace kestrin::preview {
namespace {

using test::PreviewJob;
using testing::ElementsAre;
using testing::IsEmpty;

/// What all four renderers have in common.
class AnyPreview : public testing::TestWithParam<PreviewJob::Renderer> {
 protected:
  std::vector<std::string> Draw(const PreviewState& state) {
    GetParam()(state, job_.picture, job_.host);
    return job_.picture.Take();
  }

  PreviewJob job_;
};

INSTANTIATE_TEST_SUITE_P(Kinds, AnyPreview,
                         testing::Values(DrawWirePreview, DrawBoomPreview, DrawPolyPreview,
                                         DrawPointPreview));

TEST_P(AnyPreview, DoesNothingWithoutAJobPath) {
  EXPECT_THAT(Draw(test::HundredMetres("")), IsEmpty());
}

TEST_P(AnyPreview, ClearsBeforeOpeningAndFailsSilently) {
  EXPECT_THAT(Draw(test::HundredMetres(job_.folder / "missing.sqlite")),
              ElementsAre("RemovePicture", "Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, EndsSilentlyWithoutAReferenceTable) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50);
  job_.builder.Execute("DROP TABLE ReferenceLocationChangeTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())),
              ElementsAre("RemovePicture", "Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, EndsSilentlyWithoutAReferenceLocation) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50);
  job_.builder.Execute("DELETE FROM ReferenceLocationChangeTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())),
              ElementsAre("RemovePicture", "Clear"));
}

TEST_P(AnyPreview, EndsSilentlyWithoutAGpsTable) {
  job_.Implement(0, {{10, 0, 0, 0}}).builder.Execute("DROP TABLE GpsDataTable");
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())),
              ElementsAre("RemovePicture", "Clear"));
  EXPECT_THAT(job_.host.messages, IsEmpty());
}

TEST_P(AnyPreview, DrawsNothingOnAPictureWithoutSize) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  job_.picture = test::RecordingPicture(0, 100);
  EXPECT_THAT(Draw(test::HundredMetres(job_.builder.Finish())),
              ElementsAre("RemovePicture", "Clear"));
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

TEST_P(AnyPreview, LeavesThePictureWithItsColours) {
  job_.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  Draw(test::HundredMetres(job_.builder.Finish()));
  EXPECT_EQ(job_.picture.ForeColor(), 1U);
  EXPECT_EQ(job_.picture.FillColor(), 2U);
}

TEST(PreviewKinds, EachKindIsDrawnInItsOwnColours) {
  PreviewJob job;
  job.Implement(0, {{10, 0, 0, 0}}).At(1, 50, 50).At(2, 60, 60);
  const PreviewState state = test::HundredMetres(job.builder.Finish());
  const auto drawn = [&](int kind) {
    DrawPreview(kind, state, job.picture, job.host);
    const std::vector<std::string> calls = job.picture.Take();
    return calls.size() > 4 ? calls[4] : std::string();
  };
  EXPECT_EQ(drawn(0), "Polyline 50,50 60,40");
  EXPECT_EQ(job.picture.ForeColor(), 0x8C3C00U);
  EXPECT_EQ(drawn(1), "Line 55,50 45,50");
  EXPECT_EQ(job.picture.ForeColor(), 0x8C3C00U);
  const std::string poly = drawn(2);
  EXPECT_EQ(poly, "ForeColor " + std::to_string(job.picture.FillColor()));
  EXPECT_EQ(drawn(3), "Circle 50,50 3");
  EXPECT_EQ(job.picture.ForeColor(), 0x8C3C00U);
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
