// Captures taken away to free space, chosen by age, number and size.
//
// A folder with nothing else in it first moves into simrec's own one, at once, and is deleted
// there: killed at any moment, a capture is whole or gone, and what is left in there goes with the
// next prune or unstage; what can't be deleted moves back, but for one of which a part is gone. In
// a folder with other files in it records go one by one, the newest last, so that the capture is as
// old as it was until it is gone.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "simrec/room.h"
#include "simrec/store.h"

namespace simrec {

/// What a capture holds that can go: files with a record's prefix and simrec's own note.
struct Prunable {
  Capture capture;
  std::uint64_t files = 0;
  std::uint64_t bytes = 0;
  std::int64_t newest = 0;  ///< of leftovers: of all files, and the folder's own without any

  bool operator==(const Prunable& other) const {
    return files == other.files && bytes == other.bytes && newest == other.newest;
  }
};

struct PruneWishes {
  std::optional<std::int64_t> older;      ///< nanoseconds
  std::optional<std::uint64_t> keep;      ///< the newest images; the others never choose these
  std::optional<std::uint64_t> maxBytes;  ///< of all images together
  bool leftovers = false;                 ///< requests in "tmp" older than that or ten minutes
};

using Trouble = std::function<void(const std::string& why)>;

/// What a prune that was killed has begun to take away, whatever the wishes; images; requests; each
/// oldest first. Folders that can't be read, and those that this user can't delete, are none, and
/// told to `trouble`; links to folders are left alone, since what they lead to is elsewhere.
std::vector<Prunable> chosenBy(const PruneWishes& wishes, const Store& store, std::int64_t now,
                               const Trouble& trouble);

/// Takes them away, but for those that have changed since they were chosen: those are told to
/// `trouble` like those that can't be taken away. `step` is called after each.
void prune(const std::vector<Prunable>& chosen, const Store& store, const Trouble& trouble,
           const std::function<void()>& step);

/// The captures that a prune that was killed has left in simrec's folder, by name. What else is in
/// there is not simrec's.
std::vector<std::string> halfPruned(const Directory& room);

/// Deletes them.
void finishPruning(const Room& room);

}  // namespace simrec
