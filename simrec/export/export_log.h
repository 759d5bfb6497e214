// What an export has taken: a line for each record with its capture, name, time and size, in the
// order of the names. Lies in the export's folder, hidden from engines, so that another export can
// go on from there. Belongs to one thread at a time.
#pragma once

#include <fstream>
#include <optional>
#include <string>

#include "simrec/store.h"

namespace simrec {

inline constexpr char kExportLog[] = ".simrec-export";

/// The first line: what kind of export it is of.
std::string headOfExportLog(const std::string& format, bool lists);

/// The first line of the log in that folder; empty where there is none.
std::string readExportHead(const std::string& folder);

/// Writes a log while it goes through an older one. Records must come in the order of their
/// captures' names and then their own, by their bytes.
class ExportLog {
 public:
  /// An empty `older` folder: there is none. Throws Error.
  ExportLog(const std::string& folder, const std::string& head, const std::string& older);

  /// Notes a record. False where the older log has it as it is now.
  bool isNew(const Capture& capture, const File& file);

  /// Takes over what is left of the older log. Throws Error where the log could not be written.
  void end();

 private:
  struct Entry {
    std::string capture, file;  ///< as in the log
    std::string rest;           ///< time and size
  };
  void readNext();
  void write(const Entry& entry);

  std::string path_, olderPath_;
  std::ofstream log_;
  std::ifstream older_;
  std::optional<Entry> next_;  ///< of the older log
};

}  // namespace simrec
