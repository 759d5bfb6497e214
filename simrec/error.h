// Why something could not be done, in one line for the person who asked. Names in it are
// as they stand on disk; whoever prints it makes them printable.
#pragma once

#include <stdexcept>

namespace simrec {

class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace simrec
