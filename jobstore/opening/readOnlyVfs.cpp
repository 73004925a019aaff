#include "jobstore/opening/readOnlyVfs.h"

#include <sqlite3.h>

#include <array>
#include <cstdio>
#include <initializer_list>

namespace kestrin::opening {
namespace {

sqlite3_vfs* Underlying(const sqlite3_vfs* vfs) { return static_cast<sqlite3_vfs*>(vfs->pAppData); }

int OpenForReading(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags,
                   int* flagsTaken) {
  constexpr int kBesideDatabase = SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_WAL;
  constexpr int kWriting = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_DELETEONCLOSE;
  if ((flags & kBesideDatabase) != 0) {
    // The layer below hands journals and logs over to the database's owner when the
    // superuser opens them, even for reading; files of this other kind it leaves.
    flags = (flags & ~kBesideDatabase) | SQLITE_OPEN_SUPER_JOURNAL;
  }
  if ((flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_SUPER_JOURNAL)) != 0) {
    flags = (flags & ~kWriting) | SQLITE_OPEN_READONLY;
  }
  return Underlying(vfs)->xOpen(Underlying(vfs), name, file, flags, flagsTaken);
}

int RefuseDelete(sqlite3_vfs*, const char*, int) { return SQLITE_READONLY; }

/// A layer over `under`, all else unchanged. Only xOpen reads pAppData, and the one
/// below gets its own.
sqlite3_vfs Over(sqlite3_vfs* under) {
  sqlite3_vfs vfs = *under;
  vfs.pNext = nullptr;
  vfs.pAppData = under;
  vfs.xOpen = OpenForReading;
  vfs.xDelete = RefuseDelete;
  return vfs;
}

struct Registered {
  explicit Registered(sqlite3_vfs* under) {
    if (under == nullptr) return;
    vfs = Over(under);
    std::snprintf(name.data(), name.size(), "kestrin-job-%p", static_cast<void*>(this));
    vfs.zName = name.data();
    usable = sqlite3_vfs_register(&vfs, 0) == SQLITE_OK;
  }
  const char* Name() const { return usable ? vfs.zName : nullptr; }

  // A process may hold this code twice, in a program and in a driver that it loads, and no two
  // layers may have one name. It stays where it is to the very end, as the layer does.
  std::array<char, 40> name{};
  sqlite3_vfs vfs{};
  bool usable = false;
};

/// The first of these layers that this system has.
sqlite3_vfs* FirstOf(std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (sqlite3_vfs* vfs = sqlite3_vfs_find(name)) return vfs;
  }
  return nullptr;
}

}  // namespace

const char* ReadOnlyVfs(FileLocks locks) {
  // The usual layer of Windows cuts paths at 1,040 bytes.
  if (locks == FileLocks::kShared) {
    static Registered shared(FirstOf({"win32-longpath", nullptr}));
    return shared.Name();
  }
  static Registered none(FirstOf({"unix-none", "win32-longpath-none", "win32-none"}));
  return none.Name();
}

}  // namespace kestrin::opening
