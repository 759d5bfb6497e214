#include "core/fatal.h"

#include <cstdlib>

namespace simulation {

void fatal() { std::abort(); }

}  // namespace simulation
