// The tables, indexes and views of an exported database. No state.
#pragma once

#include <string>
#include <vector>

#include "simrec/table/table.h"

namespace simrec {

/// A name between quotation marks.
std::string quotedName(const std::string& name);

/// The tables, one of each kind and two that views look into, and their views.
std::string sqlForTables(const std::vector<Table>& tables);

std::string sqlForIndexes(const std::vector<Table>& tables);

inline constexpr char kGrid[] = "AWB_ParsedAWBStatsOutput";
inline constexpr char kOfflineGrid[] = "OfflineAWB_ParsedAWBStatsOutput";
inline constexpr char kShading[] = "LSC";

/// @name Tables that views look into: their names, and the lists that their last columns come from
/// The first column is the row of the record.
/// @{
/// The fall-off of each channel.
inline constexpr char kFallOffTable[] = "shading_fall_off";
inline constexpr const char* kFallOffLists[] = {"rGain", "grGain", "gbGain", "bGain"};
/// With lists: a row for each region, with whether the statistics are the offline ones, and the
/// region's number.
inline constexpr char kRegionTable[] = "region_numbers";
inline constexpr const char* kRegionLists[] = {"RSum",    "BSum",   "GRorGSum", "GBSum",
                                               "YSum",    "RCount", "BCount",   "GRorGCount",
                                               "GBCount", "YCount"};
/// @}

}  // namespace simrec
