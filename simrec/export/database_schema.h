// The tables, indexes and views of an exported database. No state.
#pragma once

#include <string>
#include <vector>

#include "simrec/table/table.h"

namespace simrec {

/// A name between quotation marks.
std::string quotedName(const std::string& name);

/// The tables, one of each kind, those that views look into and what was taken, and the views.
std::string sqlForTables(const std::vector<Table>& tables);

std::string sqlForIndexes(const std::vector<Table>& tables);

inline constexpr char kGrid[] = "AWB_ParsedAWBStatsOutput";
inline constexpr char kOfflineGrid[] = "OfflineAWB_ParsedAWBStatsOutput";
inline constexpr char kShading[] = "LSC";

/// Adds a file to those that were taken: the row of its record, its kind, capture, name, time and
/// size. The row that was taken of it before is in no view from then on.
inline constexpr char kTakeFile[] =
    "INSERT INTO taken_files VALUES (?,?,?,?,?,?) ON CONFLICT DO UPDATE SET "
    "record = excluded.record, modified = excluded.modified, bytes = excluded.bytes";
/// Whether it was taken as it is: its capture, name, time and size.
inline constexpr char kFileIsTaken[] =
    "SELECT 1 FROM taken_files WHERE capture = ? AND file = ? AND modified = ? AND bytes = ?";

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
