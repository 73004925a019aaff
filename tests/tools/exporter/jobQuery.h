#pragma once

#include <cstdint>
#include <string>

namespace kestrin::test {

/// The first column of a statement's first row, as a number; 0 when there is no row.
double Ask(const std::string& jobPath, const std::string& sql);

/// All rows of all tables, as text: what makes two jobs the same.
std::string AllRows(const std::string& jobPath);

/// Runs statements that change a job.
void Change(const std::string& jobPath, const std::string& sql);

}  // namespace kestrin::test
