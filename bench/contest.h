// The three sides of a measurement, run in turn on the same inputs: the library,
// the plain version, and the floor (copying the files' bytes and one
// open/write/close or open/read/close for each file).
#pragma once

#include <string>
#include <vector>

#include "bench/family.h"

namespace bench {

enum Side { kLibrary, kPlain, kFloor, kSides };
enum Direction { kDump = 0, kReadback = 1 };  // as SimulationInfo::mode

class Contest {
 public:
  /// Dumps and reads back every input with the library and the plain version;
  /// ends the process (status 1) where their files or records differ.
  explicit Contest(Families families);

  /// Runs every input with each side, in all orders in turn: a side is helped and
  /// harmed by what the one before it left in the caches. Returns the library's
  /// seconds.
  double round(Direction direction);

  /// The time of an input is that of its fastest round, as whatever else runs on the
  /// machine only adds to it; this is the median of all inputs, in seconds.
  double secondsOf(Side side) const;

 private:
  struct File {
    std::string dumped[kSides];
    std::string toRead;
    Bytes bytes;
  };
  struct Input {
    std::string folders[kSides];  // the name for SimulationInfo
    std::vector<File> files;
  };

  Call callOf(Side side, Direction direction, unsigned int input) const;
  void run(Side side, Direction direction, unsigned int input);
  void runFloor(Direction direction, const Input& input);
  double timed(Side side, Direction direction, unsigned int input);
  void takeFiles(unsigned int input);
  static void removeDumps(Side side, const Input& input);
  void checkReadback(unsigned int input);
  std::vector<Bytes> replayed(Side side, unsigned int input);

  Families families_;
  std::vector<Bytes> live_;  // what a readback of each family fills
  std::vector<Input> inputs_;
  Bytes staging_;                        // the floor copies between
  Bytes copy_;                           // these and the files' bytes
  std::vector<double> fastest_[kSides];  // of each input, in seconds
  unsigned int turns_ = 0;
};

}  // namespace bench
