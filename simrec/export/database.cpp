#include "simrec/export/database.h"

#include <fmt/format.h>

#include <cctype>

#include "simrec/error.h"

namespace simrec {
namespace {

[[noreturn]] void fail(sqlite3* database) {
  if (database == nullptr) throw Error("there is not enough memory");
  const char* const path = sqlite3_db_filename(database, nullptr);
  throw Error(std::string(path != nullptr ? path : "") + ": " + sqlite3_errmsg(database));
}

/// A name of the file that takes options.
std::string uriOf(const std::string& path) {
  std::string uri = "file:";
  for (const char character : path) {
    const bool plain = std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '/';
    uri += plain ? std::string(1, character)
                 : fmt::format("%{:02x}", static_cast<unsigned char>(character));
  }
  return uri;
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

Database::Database(const std::string& path, Use use) {
  sqlite3* database = nullptr;
  const bool reads = use == Use::kRead;
  const std::string uri = uriOf(path) + (reads ? "?immutable=1" : "");
  const int flags = reads ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int result = sqlite3_open_v2(uri.c_str(), &database, flags | SQLITE_OPEN_URI, nullptr);
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
