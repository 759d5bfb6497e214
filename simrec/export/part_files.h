// The files of a folder of tables: KIND/camera=N/part-00000.jsonl, each of bounded size. Belongs to
// one thread at a time.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "core/raw_file.h"
#include "simrec/table/table.h"

namespace simrec {

/// Visits all that is in a folder and the folders in it. Throws Error.
void forEachBelow(const std::string& folder,
                  const std::function<void(const std::filesystem::directory_entry&)>& visit);

class PartFiles {
 public:
  /// `extension`: "jsonl".
  PartFiles(std::string folder, std::string extension)
      : folder_(std::move(folder)), extension_(std::move(extension)) {}

  /// Makes the folders of the tables, with their schemas in them. Throws Error.
  void begin(const std::vector<Table>& tables) const;

  /// Whether a file of that name, from the folder on, is one of such a folder.
  bool knows(const std::string& name) const;

  /// The parts that are in `folder` stand in this one as well: their bytes are shared where the
  /// file system can. Throws Error.
  void share(const std::string& folder);

  /// Adds whole lines to the partition of that table and camera; `head` comes first in each part.
  /// Throws Error.
  void add(const Table& table, std::optional<int> camera, const std::string& head,
           const std::string& lines);

  /// All of it is in the files. Throws Error.
  void end();

 private:
  struct Part {
    int number = 0;
    std::uint64_t bytes = 0;  ///< with what waits
    std::string waiting = {};
    std::unique_ptr<simulation::FileDescriptor> file = {};  ///< none: not open
  };

  std::string partition(const Table& table, std::optional<int> camera) const;
  void open(Part& part, const std::string& partition);
  void flush(Part& part, const std::string& partition) const;
  void close(Part& part, const std::string& partition);

  std::string folder_, extension_;
  std::map<std::string, Part> parts_;  ///< the one that is written, by partition
  std::size_t open_ = 0;
};

}  // namespace simrec
