// A capture put where readbacks look, and the data folder brought back. May be killed, and
// may fail, at any moment: what follows is why nothing of the user's is lost then, and why
// unstage() (or the same call once more) ends as if nothing had happened.
//
// stage():
//   1. The capture is copied beside, into "new.0" or "new.1" (the one that the journal doesn't
//   name),
//      and the journal that tells of these copies is written as "journal.new"; all of it synced.
//      Nothing of the user's has moved: what is beside is deleted, as if nobody had called.
//   2. What was staged before goes: files with the content that the journal has for them are
//      deleted, edited ones move into "edited". Those still waiting beside were never put in
//      place, so what stands at their name is not theirs and stays.
//   3. "journal.new" becomes "journal" (synced before and after). From here on the new
//      files count, and all of them wait beside: nothing in the data folder is simrec's.
//   4. So every file that stands there is the user's and moves into "aside", as it is. The first
//      one of a name stays in there; a later one moves into "edited".
//   5. Each copy moves into its place. Whether it has is told by whether it waits beside.
// unstage():
//   1. As step 2: what was staged goes. Doing this twice is the same as doing it once, since
//      nothing has come back yet.
//   2. The journal is deleted (synced before and after). From here on nothing counts as staged.
//   3. What is in "aside" moves back; what somebody has put at such a name since moves into
//      "edited" first. What has moved is no longer in "aside", so this can be taken up again.
// Either call begins by looking at the folders, never at how far the last one came.
//
// All moves are renames within one file system: bytes, modes, times, owners and links stay.
// A call has the data folder for itself among simrec's processes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "simrec/store.h"

namespace simrec {

/// A file of a capture, and the name that it is staged under.
struct Placement {
  std::string source;
  std::string target;
};

/// Every one of `files` that is a regular file, under its own name; lens-shading files of one text
/// and ev numbered from 0 in the order of their indices, and the last of them again until there
/// are `shadingFiles`.
std::vector<Placement> placementsOf(const std::vector<File>& files, int shadingFiles);

/// The names of the others, in `capture`: folders, FIFOs, links to nowhere. Throws Error for one
/// that can't be looked at: who knows whether it should be staged.
std::vector<std::string> leftOut(const Capture& capture, const std::vector<File>& files);

enum class Deed {
  kRemove,    ///< what was staged
  kKeep,      ///< what stands at a name that is needed and is not what was staged: `other` names it
              ///< in ".simrec/edited"
  kSetAside,  ///< what is the user's
  kStage,     ///< from the capture's file `other`
  kBringBack,  ///< what was set aside
  kFinish,     ///< taking away the capture `file`, which a prune that was killed has begun
  kDiscard,    ///< simrec's own folder `file`, half done by a process that was killed
};

/// What was done, or would be, to the file of that name straight under the data folder.
struct Change {
  Deed deed;
  std::string file;
  std::string other = {};
};

enum class Doing { kReally, kDry };
using Step = std::function<void()>;

/// Throws Error: nothing has changed then, or nothing is staged any more (the text tells).
/// `step` is called after each file that is copied.
std::vector<Change> stage(
    const Store& store, const Capture& capture, const std::vector<Placement>& placements,
    Doing doing, const Step& step = [] {});

/// Nothing, where nothing is staged and nothing half done.
std::vector<Change> unstage(const Store& store, Doing doing);

enum class StagedState { kUntouched, kEdited, kGone };

/// "untouched", "edited", "gone"
const char* nameOf(StagedState state);

struct StagedFile {
  std::string name;
  StagedState state;
};

struct StagingStatus {
  bool staged = false;
  std::string from;               ///< the capture, as it was named
  std::int64_t since = 0;         ///< nanoseconds since 1970
  std::vector<StagedFile> files;  ///< by name
  bool interrupted = false;       ///< staging or unstaging was ended on its way
  std::vector<Change> tidying;    ///< what unstaging would delete besides

  bool isSound() const;
};

/// Throws Error where another simrec is at work, too: what it has half done is no answer.
StagingStatus stagingStatus(const Store& store);

}  // namespace simrec
