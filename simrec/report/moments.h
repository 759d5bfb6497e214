// The few numbers of each request and camera that timelines and comparisons of cameras are made of.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "simrec/record.h"

namespace simrec::report {

/// A number that is followed over requests.
struct Quantity {
  const char* title;
  const char* unit;
  const char* kind;    ///< of the record that has it
  const char* member;  ///< in it, a dot between a group and its member; empty: made of several
  bool isFlag;         ///< 0, or anything else
  bool isCompared;     ///< cameras that look at the same thing have nearly the same
};

inline constexpr std::size_t kQuantities = 12;
extern const std::array<Quantity, kQuantities> kQuantityRows;

/// The one that tells whether exposure has settled.
inline constexpr std::size_t kSettled = 7;

using Quantities = std::array<std::optional<double>, kQuantities>;

/// Of one camera in one capture.
struct Moment {
  std::optional<int> camera;            ///< none: of records that are no camera's
  std::optional<std::int64_t> request;  ///< that the folder tells, or the number its name ends in
  Quantities values;
};

/// Whether a record of the kind has a quantity.
bool isFollowed(const catalogue::Kind& kind);

/// Adds what `record` has to the quantities of its camera among `moments`. Of several exposure
/// steps or streams the first one counts.
void addRecord(const Record& record, std::vector<Moment>& moments);

/// Of a request's folder its number; else the digits at the end of the name.
std::optional<std::int64_t> requestOf(const Capture& capture);

/// Cameras of one request that differ in a quantity by more than this part of the larger are not
/// consistent.
inline constexpr double kConsistent = 0.1;

/// How far apart the moments are in a quantity, relative to the largest magnitude; none: fewer than
/// two have it. Of flags: 1 when they differ.
std::optional<double> spreadOf(const std::vector<const Moment*>& moments, std::size_t quantity);

}  // namespace simrec::report
