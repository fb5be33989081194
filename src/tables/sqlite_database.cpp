#include "tables/sqlite_database.h"

#include <sqlite3.h>

#include <cerrno>
#include <utility>

#include "store/file_error.h"

namespace orvex {
namespace {

/// What the system says about a failure, as a value of `errno`; 0 when it is none of the system's.
int CauseOf(sqlite3* database, int result) {
  constexpr int kPrimaryCode = 0xFF;
  int cause = 0;
  if (result == SQLITE_FULL) return ENOSPC;
  if ((result & kPrimaryCode) != SQLITE_IOERR) return 0;
  sqlite3_file_control(database, "main", SQLITE_FCNTL_LAST_ERRNO, &cause);
  return cause;
}

}  // namespace

SqliteDatabase::SqliteDatabase(Storage& storage, std::filesystem::path path)
    : path_(std::move(path)), file_(storage, path_) {
  // Nobody else knows the temporary, so nothing has to be locked, which some network drives and
  // sticks cannot do.
  Require(
      sqlite3_open_v2(file_.Temporary().c_str(), &database_, SQLITE_OPEN_READWRITE, "unix-none"));
  // What is interrupted is thrown away as a whole, so nothing is to be rolled back, and a single
  // sync at the end is enough.
  Execute("PRAGMA journal_mode = OFF");
  Execute("PRAGMA synchronous = OFF");
  Execute("BEGIN");
}

SqliteDatabase::~SqliteDatabase() {
  Close();
}

void SqliteDatabase::Close() {
  sqlite3_close_v2(std::exchange(database_, nullptr));
}

void SqliteDatabase::Require(int result) {
  if (result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW) return;
  const int cause = CauseOf(database_, result);
  const std::string text = sqlite3_errmsg(database_);
  Close();
  if (cause != 0) throw FileError(path_, cause);
  throw FileError(path_, text);
}

void SqliteDatabase::Execute(const std::string& sql) {
  Require(sqlite3_exec(database_, sql.c_str(), nullptr, nullptr, nullptr));
}

void SqliteDatabase::Commit() {
  Execute("COMMIT");
  Close();
  file_.Commit();
}

SqliteStatement::SqliteStatement(SqliteDatabase& database, const std::string& sql)
    : database_(database) {
  database_.Require(sqlite3_prepare_v2(database_.database_, sql.c_str(),
                                       static_cast<int>(sql.size()), &statement_, nullptr));
}

SqliteStatement::~SqliteStatement() {
  sqlite3_finalize(statement_);
}

void SqliteStatement::Bind(std::int64_t number) {
  database_.Require(sqlite3_bind_int64(statement_, ++bound_, number));
}

void SqliteStatement::Bind(std::string_view text) {
  database_.Require(sqlite3_bind_text64(statement_, ++bound_, text.data(), text.size(),
                                        SQLITE_TRANSIENT, SQLITE_UTF8));
}

void SqliteStatement::BindNull() {
  database_.Require(sqlite3_bind_null(statement_, ++bound_));
}

void SqliteStatement::Run() {
  database_.Require(sqlite3_step(statement_));
  database_.Require(sqlite3_reset(statement_));
  bound_ = 0;
}

}  // namespace orvex
