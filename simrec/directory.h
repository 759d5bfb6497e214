// A folder that is held open, and what is done to its entries by their names: it stays the same
// folder when its path or a link on it changes meanwhile. Copies share the folder. What fails
// throws Error, which names the entry.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/raw_file.h"

namespace simrec {

class Directory {
 public:
  /// Links on the way are followed.
  explicit Directory(const std::string& path);

  /// An entry of this folder that is one itself and no link; none where nothing stands there.
  std::optional<Directory> find(const std::string& name) const;
  /// The same, made when it is missing.
  Directory make(const std::string& name) const;

  const std::string& path() const { return path_; }
  std::string pathOf(const std::string& name) const { return path_ + "/" + name; }
  int get() const { return file_->get(); }

  /// All entries, in no order.
  std::vector<std::string> names() const;

  /// None where nothing stands there.
  std::optional<struct stat> look(const std::string& name, bool followLinks = false) const;
  bool has(const std::string& name) const { return look(name).has_value(); }
  /// Whether it is a folder or a link to one. A link into a place that can't be looked at is none.
  bool leadsToFolder(const std::string& name) const;

  /// A descriptor of an entry, or -1 and errno.
  int open(const std::string& name, int flags, unsigned int mode = 0) const;

  /// Moves an entry as it is, and never over another one.
  void move(const std::string& name, const Directory& to, const std::string& newName) const;
  /// Gives a file another name in this folder; one that has it is replaced at once.
  void replace(const std::string& name, const std::string& newName) const;
  /// An entry that is gone already is as good. No folders.
  void remove(const std::string& name) const;
  /// False where it is not empty, not there or not to be removed.
  bool removeIfEmpty(const std::string& name) const;

  /// What was done to the entries is on the disk.
  void sync() const;
  /// So is all else that waits on its file system, files' contents too: for many, this
  /// is faster than one after the other.
  void syncFileSystem() const;

  /// Throws where entries can't be made and moved here.
  void checkWritable() const;
  /// Throws where one of these entries can't be moved or deleted, as far as that can be known.
  void checkRemovable(const std::vector<std::string>& names) const;

  [[noreturn]] void fail(const std::string& name) const;

 private:
  Directory(std::string path, int file);

  std::string path_;
  std::shared_ptr<const simulation::FileDescriptor> file_;
};

}  // namespace simrec
