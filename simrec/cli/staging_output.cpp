#include "simrec/cli/staging_output.h"

#include <algorithm>

#include "simrec/cli/output.h"
#include "simrec/text.h"

namespace simrec::cli {
namespace {

std::string sentenceFor(const Change& change) {
  const std::string file = printable(change.file), other = printable(change.other);
  switch (change.deed) {
    case Deed::kRemove:
      return "remove      " + file;
    case Deed::kKeep:
      return "keep        " + file + " as .simrec/edited/" + other;
    case Deed::kSetAside:
      return "set aside   " + file;
    case Deed::kStage:
      return "stage       " + file + (file == other ? "" : " from " + other);
    case Deed::kBringBack:
      return "bring back  " + file;
    case Deed::kFinish:
      return "prune       " + file + ", as was begun";
    case Deed::kDiscard:
      break;
  }
  return "delete      .simrec/" + file + ", which is half done";
}

}  // namespace

void putChanges(const std::vector<Change>& changes) {
  for (const Change& change : changes) print("{}\n", sentenceFor(change));
}

void putNotable(const std::vector<Change>& changes) {
  for (const Change& change : changes) {
    if (change.deed == Deed::kFinish) {
      print("{} is pruned now, as was begun\n", printable(change.file));
    }
    if (change.deed == Deed::kDiscard)
      print(".simrec/{} was half done, and is gone\n", change.file);
    if (change.deed != Deed::kKeep) continue;
    print("{} is not what was staged, and is kept as .simrec/edited/{}\n", printable(change.file),
          printable(change.other));
  }
}

void putLeftOut(const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    print("{} is left out: no file that can be read\n", printable(name));
  }
}

std::size_t countOf(Deed deed, const std::vector<Change>& changes) {
  const auto is = [deed](const Change& change) { return change.deed == deed; };
  return static_cast<std::size_t>(std::count_if(changes.begin(), changes.end(), is));
}

}  // namespace simrec::cli
