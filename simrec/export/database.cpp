#include "simrec/export/database.h"

#include "simrec/error.h"

namespace simrec {
namespace {

[[noreturn]] void fail(sqlite3* database) {
  if (database == nullptr) throw Error("there is not enough memory");
  const char* const path = sqlite3_db_filename(database, nullptr);
  throw Error(std::string(path != nullptr ? path : "") + ": " + sqlite3_errmsg(database));
}

}  // namespace

Statement::Statement(sqlite3* database, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  const int result = sqlite3_prepare_v3(database, sql.c_str(), static_cast<int>(sql.size() + 1),
                                        SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
  statement_.reset(statement);
  if (result != SQLITE_OK) fail(database);
}

bool Statement::run() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) check(result);
  check(sqlite3_reset(statement_.get()));
  return result == SQLITE_ROW;
}

void Statement::check(int result) const {
  if (result != SQLITE_OK) fail(sqlite3_db_handle(statement_.get()));
}

Database::Database(const std::string& path, bool readOnly) {
  sqlite3* database = nullptr;
  const int flags = readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int result = sqlite3_open_v2(path.c_str(), &database, flags, nullptr);
  database_.reset(database);
  if (result != SQLITE_OK) fail(database);
}

void Database::run(const std::string& sql) {
  if (sqlite3_exec(database_.get(), sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    fail(database_.get());
  }
}

void Database::close() {
  if (sqlite3_close(database_.get()) != SQLITE_OK) fail(database_.get());
  (void)database_.release();
}

}  // namespace simrec
