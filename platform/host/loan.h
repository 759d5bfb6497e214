// What is borrowed of the machine's /data/vendor/camera, and how it is given back.
#pragma once

#include <string>

namespace simulation_host {

inline constexpr char kCameraData[] = "/data/vendor/camera";

/// Takes /data/vendor/camera for `folder`, as borrowCameraData tells, after a marker
/// tells of it. Throws std::runtime_error when it can't be had; nothing is changed then.
void takeLoan(const std::string& folder);

/// Gives back what this user's marker names, if there is one. Returns the folder in
/// /var/tmp that got the files which could not go where they belong, empty if there
/// is none. Throws std::runtime_error when something can't be given back; the marker
/// then stays.
std::string endLoan();

/// The same for the loan of a program that was killed: others may have been at work since,
/// so that no file is deleted nor put over a newer one.
std::string endStaleLoan();

}  // namespace simulation_host
