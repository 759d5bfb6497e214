// simrec's own folder in a data folder, ".simrec", and who may work in it: one process at a time.
// What is in it:
//   lock          held (flock) by the process at work, whose id it tells; as soon as that ends,
//                 however it does, nobody holds it
//   journal       what is staged; journal.new is one that does not count yet
//   new.0, new.1  staged files that are not in place yet
//   aside         what stood in the data folder where staging put its files
//   edited        staged files that somebody has edited since, kept for them
//   pruned        captures that are being deleted
//   draft         a new capture that is not whole yet
// What is half done and of a process that was killed is deleted by the next one.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "simrec/directory.h"

namespace simrec {

inline constexpr char kLock[] = "lock";
inline constexpr char kJournal[] = "journal", kNextJournal[] = "journal.new";
inline constexpr std::array<const char*, 2> kNewFolders = {"new.0", "new.1"};
inline constexpr char kAsideFolder[] = "aside", kEditedFolder[] = "edited",
                      kPrunedFolder[] = "pruned", kDraftFolder[] = "draft";

class Room {
 public:
  /// Makes the folder where it is missing. Throws Error where that can't be, or where another
  /// process is at work, which it names.
  explicit Room(const std::string& data);

  /// Takes away what is empty, and the folder itself where nothing is left.
  ~Room();
  Room(const Room&) = delete;
  Room& operator=(const Room&) = delete;

  const Directory& data() const { return data_; }
  const Directory& folder() const { return *folder_; }

 private:
  bool lock();

  Directory data_;
  std::optional<Directory> folder_;
  std::optional<simulation::FileDescriptor> lock_;
};

/// Throws Error where another process is at work in `data`, as Room does, and makes nothing: for
/// dry runs, which would tell of something half done.
void refuseWhileAnotherWorks(const Directory& data);

/// Throws Error where a room can't be had or worked in, for dry runs as well.
void checkWorkable(const Directory& data);

/// The folders of simrec's with something half done in them, which a process that was killed has
/// left and nobody needs. Throws Error where the journal can't be read.
std::vector<std::string> abandoned(const Directory& room);

/// Deletes them, as far as they are simrec's, and the journal that doesn't count yet.
void sweep(const Directory& room);

/// Deletes a folder of `parent`'s with all files in it; folders in that one are not simrec's: they
/// stay, and so does it then. Throws Error.
void deleteFolder(const Directory& parent, const std::string& name);

}  // namespace simrec
