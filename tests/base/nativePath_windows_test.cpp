#include "base/nativePath.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/tempFolder.h"

namespace kestrin::base {
namespace {

TEST(NativePath, IsMarkedOnlyWhenLong) {
  EXPECT_EQ(NativePath("C:\\a/b"), L"C:\\a/b");
  const std::string name(250, 'x');
  const std::wstring wide(250, L'x');
  EXPECT_EQ(NativePath("C:/a/../b/" + name), L"\\\\?\\C:\\b\\" + wide);
  EXPECT_EQ(NativePath("\\\\server\\share\\" + name), L"\\\\?\\UNC\\server\\share\\" + wide);
  EXPECT_EQ(NativePath("\\\\?\\C:\\" + name), L"\\\\?\\C:\\" + wide);
  EXPECT_EQ(NativePath("\xff"), std::nullopt);
}

TEST(Utf8Text, HasMarksInThePlaceOfWhatIsNoUtf16) {
  EXPECT_EQ(Utf8Text(L"Grün \xd83c\xdf31"), "Grün \xf0\x9f\x8c\xb1");
  EXPECT_EQ(Utf8Text(L"a\xd83cz"), "a\xef\xbf\xbdz");
  EXPECT_EQ(Utf8Text(L""), "");
}

TEST(NativePath, IsMarkedWhenShortBehindAFolderFarDown) {
  const test::TempFolder folder;
  const std::filesystem::path deep = folder.Path() / std::string(100, 'x');
  std::filesystem::create_directory(deep);
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(deep);
  const auto shortPath = NativePath("sets"), longPath = NativePath(std::string(140, 'y'));
  std::filesystem::current_path(before);
  EXPECT_EQ(shortPath, L"sets");
  EXPECT_TRUE(longPath->starts_with(LR"(\\?\)"));
}

TEST(UsualPath, IsUnmarkedWhenShort) {
  EXPECT_EQ(UsualPath(LR"(\\?\C:\jobs\job.sqlite)"), LR"(C:\jobs\job.sqlite)");
  EXPECT_EQ(UsualPath(LR"(\\?\UNC\server\share\job.sqlite)"), LR"(\\server\share\job.sqlite)");
  EXPECT_EQ(UsualPath(LR"(\\server\share\job.sqlite)"), LR"(\\server\share\job.sqlite)");
  EXPECT_EQ(UsualPath(L""), L"");
}

TEST(UsualPath, StaysMarkedWhenLongWithRoomForWhatLiesBeside) {
  const std::wstring drive = LR"(C:\)";
  EXPECT_EQ(UsualPath(LR"(\\?\)" + drive + std::wstring(244, L'x')),
            drive + std::wstring(244, L'x'));
  const std::wstring marked = LR"(\\?\)" + drive + std::wstring(245, L'x');
  EXPECT_EQ(UsualPath(marked), marked);
}

TEST(UsualPath, StaysMarkedWhereItWouldNameAnotherFile) {
  for (const wchar_t* path :
       {LR"(\\?\C:\jobs\job.)", LR"(\\?\C:\jobs\job )", LR"(\\?\C:\jobs\..\job)",
        LR"(\\?\unix\job)", LR"(\\?\Volume{0}\job)"}) {
    EXPECT_EQ(UsualPath(path), path);
  }
}

}  // namespace
}  // namespace kestrin::base
