// What is written beside its place and put there whole. A process that is killed on the way leaves
// what stood there; what it left beside it is taken away by the next one.
#pragma once

#include <optional>
#include <string>

#include "simrec/directory.h"

namespace simrec {

class Draft {
 public:
  /// For `place`, a file or a folder; links to one are followed. Throws Error, also where another
  /// process is at work on the same place.
  explicit Draft(const std::string& place);

  /// Takes away what was not published, and what that replaced.
  ~Draft();
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;

  /// Where the place really is.
  const std::string& place() const { return place_; }
  /// Where to make what is to be there. In a folder of this draft's own.
  std::string path() const { return room_->pathOf("new"); }

  /// What is at path() takes the place, of whatever stood there.
  void publish();

 private:
  bool lock();

  std::string place_, name_;
  std::optional<Directory> parent_, room_;
  std::string roomName_;
};

}  // namespace simrec
