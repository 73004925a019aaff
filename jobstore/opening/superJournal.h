#pragma once

#include <filesystem>

namespace kestrin::opening {

/// Takes the name of a super-journal off the end of a copied rollback journal.
///
/// A transaction over several databases ends each one's journal with the name of a
/// super-journal; a missing super-journal means that the transaction was completed
/// and the journal is void. SQLite, having rolled back, deletes the named file, and
/// a forged journal could name any file at all. So the name is looked at here: the
/// journal is emptied when it is void, and stands without the name otherwise.
void DropSuperJournal(const std::filesystem::path& journal);

}  // namespace kestrin::opening
