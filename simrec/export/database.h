// A SQLite database and its statements. Belongs to one thread at a time.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace simrec {

/// A prepared statement whose parameters count from 1.
class Statement {
 public:
  Statement(sqlite3* database, const std::string& sql);

  void bind(int parameter) { check(sqlite3_bind_null(statement_.get(), parameter)); }
  void bind(int parameter, std::int64_t value) {
    check(sqlite3_bind_int64(statement_.get(), parameter, value));
  }
  void bind(int parameter, double value) {
    check(sqlite3_bind_double(statement_.get(), parameter, value));
  }
  /// The text must stay until the statement has run.
  void bind(int parameter, std::string_view text) {
    check(sqlite3_bind_text64(statement_.get(), parameter, text.data(), text.size(), SQLITE_STATIC,
                              SQLITE_UTF8));
  }

  void bindBlob(int parameter, std::string_view bytes) {
    check(sqlite3_bind_blob64(statement_.get(), parameter, bytes.data(), bytes.size(),
                              SQLITE_STATIC));
  }

  /// Runs it once. True when there is a row.
  bool run();

 private:
  void check(int result) const;

  struct Close {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Close> statement_;
};

class Database {
 public:
  enum class Use {
    kWrite,  ///< made when it is missing
    kRead,   ///< nobody writes it meanwhile: nothing is made beside it
  };
  /// Throws Error, as all that follows.
  Database(const std::string& path, Use use);

  void run(const std::string& sql);
  Statement prepare(const std::string& sql) { return {database_.get(), sql}; }
  std::int64_t lastRow() { return sqlite3_last_insert_rowid(database_.get()); }
  /// What was written is in the file.
  void close();

 private:
  struct Close {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };
  std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace simrec
