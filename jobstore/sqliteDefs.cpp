#include "jobstore/sqliteDefs.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace kestrin::jobstore {

std::int32_t Database::linx_sqlite3_open(const std::string& path) {
  linx_sqlite3_close();
  job_ = opening::OpenJobFile(path);
  firstError_ = kDone;
  return -job_.result;
}

void Database::linx_sqlite3_close() {
  // As a whole, so that its parts go in the order they depend on.
  const opening::OpenedJob closed = std::move(job_);
}

// NOLINTNEXTLINE(readability-make-member-function-const): what steps do changes.
void Database::CallDuringSteps(std::function<void()> call) {
  if (job_.database) job_.budget->CallMeanwhile(std::move(call));
}

std::int32_t Statement::linx_sqlite3_prepare(Database& database, const std::string& sql,
                                             const std::int32_t& length) {
  prepared_.reset();
  const opening::OpenedJob& job = database.job_;
  if (job.unreadable != SQLITE_OK) return -job.unreadable;
  if (!job.database) return -SQLITE_MISUSE;
  job.budget->Renew();
  const auto size = static_cast<std::int32_t>(
      std::min(sql.size(), static_cast<std::size_t>(std::max(length, 0))));
  sqlite3_stmt* prepared = nullptr;
  const int result = sqlite3_prepare_v3(job.database.get(), sql.c_str(), size,
                                        SQLITE_PREPARE_NO_VTAB, &prepared, nullptr);
  opening::StatementPtr statement(prepared);
  if (result != SQLITE_OK) return -result;
  // A text without a statement in it prepares well, to nothing.
  if (statement == nullptr) return -SQLITE_ERROR;
  if (sqlite3_stmt_readonly(prepared) == 0) return -SQLITE_READONLY;
  prepared_ = std::move(statement);
  database_ = &database;
  return ++database.statements_;
}

void Statement::KeepError(std::int32_t result) const {
  // Stepping on without a statement says nothing of the job.
  if (prepared_ && database_->firstError_ == kDone) database_->firstError_ = result;
}

void Statement::linx_getText(std::int32_t column, std::string& buffer) const {
  const unsigned char* text = sqlite3_column_text(prepared_.get(), column);
  const auto size = static_cast<std::size_t>(linx_getColSize(column));
  if (text != nullptr) std::memcpy(buffer.data(), text, std::min(buffer.size(), size));
}

bool Statement::ComparesAsText(std::int32_t column) const {
  const char* declared =
      prepared_ == nullptr ? nullptr : sqlite3_column_decltype(prepared_.get(), column);
  std::string type = declared == nullptr ? "" : declared;
  for (char& letter : type) letter = static_cast<char>(letter & ~0x20);
  const auto says = [&type](const char* word) { return type.find(word) != std::string::npos; };
  return !says("INT") && (says("CHAR") || says("CLOB") || says("TEXT"));
}

void ReadText(const Statement& row, std::int32_t column, std::string& text) {
  const std::int32_t size = row.linx_getColSize(column);
  if (size <= 0) return;
  text.assign(static_cast<std::size_t>(size), ' ');
  row.linx_getText(column, text);
}

}  // namespace kestrin::jobstore
