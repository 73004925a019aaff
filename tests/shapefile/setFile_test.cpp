#include "shapefile/setFile.h"

#include <gtest/gtest.h>

#include <cstring>

#include "tests/support/shapeReader.h"
#include "tests/support/tempFolder.h"

namespace kestrin::shapefile {
namespace {

TEST(SetFile, BytesAreReplacedWhetherTheyAreWrittenOrStillInTheBuffer) {
  const test::TempFolder folder;
  const auto files = base::NativeFileSystem();
  SetFile file(*files, folder / "file", 16);
  for (int i = 0; i < 4; ++i) std::memcpy(file.Next(8), "replaced", 8);
  // The first two are written, the third begins the buffer.
  for (const std::uint64_t offset : {0U, 8U, 16U, 24U}) file.Patch(offset, "0123");
  file.Finish(false);
  file.Publish();
  file.Keep();
  EXPECT_EQ(test::FileBytes(folder / "file"), "0123aced0123aced0123aced0123aced");
}

}  // namespace
}  // namespace kestrin::shapefile
