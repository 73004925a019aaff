#include "jobstore/opening/immutableUri.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace kestrin::opening {
namespace {

TEST(ImmutableUri, HasAnEmptyAuthorityAndAPathWithARoot) {
  EXPECT_EQ(ImmutableUri("/home/job.sqlite"), "file:///home/job.sqlite?immutable=1");
  EXPECT_EQ(ImmutableUri("C:/jobs/job.sqlite"), "file:///C:/jobs/job.sqlite?immutable=1");
}

TEST(ImmutableUri, OfANetworkPathKeepsBothItsSlashes) {
  EXPECT_EQ(ImmutableUri("//server/share/job.sqlite"),
            "file:////server/share/job.sqlite?immutable=1");
}

TEST(ImmutableUri, OfAMarkedPathKeepsItToTheLetter) {
  EXPECT_EQ(ImmutableUri(R"(\\?\C:\job)"), "file:///%5C%5C%3F%5CC:%5Cjob?immutable=1");
}

TEST(ImmutableUri, EscapesWhatWouldEndThePath) {
  EXPECT_EQ(ImmutableUri("/a?b#c%d e\xc3\xbc"), "file:///a%3Fb%23c%25d%20e%C3%BC?immutable=1");
}

/// A file layer that opens nothing and remembers the name it was asked for.
class NameKeeper {
 public:
  NameKeeper() {
    vfs_ = *sqlite3_vfs_find(nullptr);
    vfs_.zName = "kestrin-name-keeper";
    vfs_.pNext = nullptr;
    vfs_.pAppData = this;
    vfs_.xFullPathname = Keep;
    sqlite3_vfs_register(&vfs_, 0);
  }
  ~NameKeeper() { sqlite3_vfs_unregister(&vfs_); }
  NameKeeper(const NameKeeper&) = delete;
  NameKeeper& operator=(const NameKeeper&) = delete;

  std::string NameIn(const std::string& uri) {
    name_.clear();
    sqlite3* database = nullptr;
    sqlite3_open_v2(uri.c_str(), &database, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI, vfs_.zName);
    sqlite3_close(database);
    return name_;
  }

 private:
  static int Keep(sqlite3_vfs* vfs, const char* name, int, char*) {
    static_cast<NameKeeper*>(vfs->pAppData)->name_ = name;
    return SQLITE_CANTOPEN;
  }

  sqlite3_vfs vfs_{};
  std::string name_;
};

TEST(ImmutableUri, IsReadByTheLibraryAsThePathItWasMadeOf) {
  NameKeeper names;
  for (const char* path : {"/home/job.sqlite", "//server/share/job.sqlite", "/a?b#c%d e\xc3\xbc"}) {
    EXPECT_EQ(names.NameIn(ImmutableUri(path)), path);
  }
  // Windows' layer takes the root before these away.
  for (const char* path : {"C:/jobs/job.sqlite", R"(\\?\C:\jobs\job.sqlite)"}) {
    EXPECT_EQ(names.NameIn(ImmutableUri(path)), std::string("/") + path);
  }
}

}  // namespace
}  // namespace kestrin::opening
