// The machine's own /data/vendor/camera, for one process at a time and left as it was
// found: what there is where no name space gives a process a private one.
//
// Only a folder that is missing or empty is taken. A marker in /var/tmp, one for each user,
// names all that is made, so that the same user's next borrower brings back what a killed
// one left; another user's is told whose it is. After a kill nothing is deleted: files
// that are newer where they belong, or belong nowhere, go to a folder beside the marker.
//
// The turn is for one root folder: two containers that share a /data each have their own,
// and must not borrow at the same time.
#pragma once

#include <string>

namespace simulation_host {

/// Waits for its turn, then makes /data/vendor/camera: a link to `folder`, or an empty
/// folder where none is given. One that is there already gets a copy of `folder`, in which
/// files keep times, modes and owners (for an ordinary user all are the user's); what is
/// in it in the end goes back there, or is deleted. From this call on the process is a child: the
/// one that called stays behind, waits for its end, brings back the machine, and ends as
/// it did. Returns an empty text, else what is in the way.
std::string borrowCameraData(const std::string& folder);

}  // namespace simulation_host
