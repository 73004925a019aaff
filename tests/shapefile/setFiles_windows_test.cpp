#include <windows.h>

#include <array>

#include "base/nativePath.h"
#include "base/paths.h"
#include "base/systemReason.h"
#include "shapefile/shapefileSet.h"
#include "tests/support/windowsFiles.h"

/// What becomes of sets where files in use stay and long paths need care.

namespace kestrin::shapefile {
namespace {

using base::NativePath;
using test::InUse;

class WindowsSets : public test::WindowsFiles {
 protected:
  void WriteSet(const std::string& base) {
    const std::array<Field, 1> fields{{{"ID", 'N', 8, 0}}};
    ShapefileSet set(*files_, base, ShapeType::kPoint, fields, {});
    set.AddPoint({1, 2}, "        0");
    set.Commit();
  }
};

TEST_F(WindowsSets, ASetOfWhichOneFileIsInUseStaysWhole) {
  for (const char* extension : {".shp", ".shx", ".dbf"}) {
    for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
    {
      const InUse gis(folder_ / "set" + extension);
      EXPECT_EQ(Reason(folder_ / "set" + extension, [&] { RemoveSet(*files_, folder_ / "set"); }),
                InUse::Reason());
      EXPECT_TRUE(SetExists(*files_, folder_ / "set")) << extension;
    }
    RemoveSet(*files_, folder_ / "set");
    EXPECT_FALSE(files_->Exists(folder_ / "set.shp")) << extension;
  }
}

TEST_F(WindowsSets, ASetOfWhichOneFileIsWriteProtectedStaysWhole) {
  for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
  SetFileAttributesW(NativePath(folder_ / "set.dbf")->c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Reason(folder_ / "set.dbf", [&] { RemoveSet(*files_, folder_ / "set"); }),
            base::ReasonOf(ERROR_ACCESS_DENIED));
  EXPECT_TRUE(SetExists(*files_, folder_ / "set"));
  SetFileAttributesW(NativePath(folder_ / "set.dbf")->c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsSets, ASetThatIsReadWithLeaveToDeleteItIsReplaced) {
  for (const char* each : {"set.shp", "set.shx", "set.dbf"}) Make(each);
  {
    const InUse indexer(folder_ / "set.dbf", InUse::Deleting::kAllowed);
    RemoveSet(*files_, folder_ / "set");
  }
  WriteSet(folder_ / "set");
  EXPECT_TRUE(SetExists(*files_, folder_ / "set"));
}

TEST_F(WindowsSets, SetsFarBeyond260CharactersAreMade) {
  std::string folder = folder_.Path().string() + "\\";
  for (int level = 0; level < 8; ++level) folder += std::string(60, 'x') + "\\";
  base::MakePath(*files_, folder);
  WriteSet(folder + "set");
  EXPECT_TRUE(SetExists(*files_, folder + "set"));
  RemoveSet(*files_, folder + "set");
  EXPECT_FALSE(files_->Exists(folder + "set.shp"));
}

TEST_F(WindowsSets, LettersOfAnyScriptAreKept) {
  const std::string path = folder_ / "Süd 北 🚜";
  WriteSet(path);
  WIN32_FIND_DATAW found;
  const HANDLE search = FindFirstFileW(NativePath(folder_ / "*.shp")->c_str(), &found);
  ASSERT_NE(search, INVALID_HANDLE_VALUE);
  FindClose(search);
  EXPECT_STREQ(found.cFileName, L"Süd 北 🚜.shp");
}

}  // namespace
}  // namespace kestrin::shapefile
