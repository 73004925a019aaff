#include "export/exportKinds.h"

#include <gtest/gtest.h>

#include "tests/support/recordingHost.h"
#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"
#include "tools/sample/sampleJob.h"

namespace kestrin::exports {
namespace {

std::vector<test::ReadField> Told(const ExportKind& kind, const std::string& job) {
  std::vector<test::ReadField> fields;
  for (const shapefile::Field& field : kind.fields(job)) {
    fields.push_back({field.name, field.type, field.width, field.decimals});
  }
  return fields;
}

TEST(ExportKinds, TellTheFieldsThatTheirSetsHave) {
  const test::TempFolder folder;
  const std::string job = folder / "job.sqlite";
  sample::MakeSampleJob(job, {.profile = "sprayer", .rows = 200});
  test::RecordingHost host;
  const auto files = base::NativeFileSystem();
  ExportRun run{host, *files, {}};
  for (const ExportKind* kind : AllKinds()) {
    SCOPED_TRACE(kind->name);
    const std::string base = folder / std::string(kind->suffix);
    ASSERT_TRUE(kind->procedure(base, job, run).made);
    EXPECT_EQ(Told(*kind, job), test::ReadShapeSet(base, test::RecordBoxes::kAny).fields);
  }
}

TEST(ExportKinds, AreWireBoomPolygonAndPointInThisOrderAndNetByName) {
  const auto is = [](const ExportKind& kind, std::string_view name, std::string_view suffix,
                     Shape shape) {
    EXPECT_EQ(kind.name, name);
    EXPECT_EQ(kind.suffix, suffix);
    EXPECT_EQ(kind.shape, shape);
  };
  is(kExportKinds[0], "wire", "_WIRE", Shape::kLine);
  is(kExportKinds[1], "boom", "_BOOM", Shape::kLines);
  is(kExportKinds[2], "poly", "_POLY", Shape::kPolygon);
  is(kExportKinds[3], "point", "_POINT", Shape::kPoint);
  ASSERT_EQ(kNamedKinds.size(), 1U);
  is(kNamedKinds[0], "net", "_NET", Shape::kPolygon);
}

TEST(ExportKinds, TellEachGroupOnceOfAJobThatCannotBeRead) {
  EXPECT_EQ(Told(kExportKinds[3], "gone.sqlite").size(), 16U + 4 + 3);
}

}  // namespace
}  // namespace kestrin::exports
