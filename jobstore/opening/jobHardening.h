#pragma once

#include <sqlite3.h>

namespace kestrin::opening {

/// Makes a fresh connection fit for a file from a stranger, before anything of the
/// file is read: nothing of its schema runs (views, triggers, unsafe functions),
/// no extension loads, page and cell sizes are checked, nothing is mapped into
/// memory, sizes are limited.
/// Failure: the library's code; SQLITE_OK otherwise. The same below.
int HardenConnection(sqlite3* database);

/// From here on the connection prepares nothing but selections: no pragma, no
/// attached file, no change, no function besides those the queries call.
int AllowSelectionsOnly(sqlite3* database);

}  // namespace kestrin::opening
