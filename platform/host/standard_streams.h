// The standard streams of a host program. One may come closed; the next file that is
// opened would then get its number, and what is printed would end in that file.
#pragma once

namespace simulation_host {

/// Takes those of the descriptors 0, 1 and 2 that are closed, so that no file gets
/// them; reading or writing them fails as before. Call it first in main.
void holdStandardStreams();

/// Whether stdout took all that was printed; else a line on stderr says in the name
/// of `program` why not. Call it last.
bool outputArrived(const char* program);

}  // namespace simulation_host
