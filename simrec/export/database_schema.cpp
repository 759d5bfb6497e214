#include "simrec/export/database_schema.h"

#include <fmt/format.h>

namespace simrec {
namespace {

/// A column without a type keeps what it gets: an integer beyond 2^63-1, which is text here, would
/// become a rounded float in others.
const char* sqlType(const Column& column) {
  if (column.list) return "TEXT";
  switch (column.type) {
    case ColumnType::kInt64:
      return "INTEGER";
    case ColumnType::kUint64:
      return "";
    case ColumnType::kDouble:
      return "REAL";
    case ColumnType::kText:
    case ColumnType::kTime:
      break;
  }
  return "TEXT";
}

std::string sqlForTable(const Table& table) {
  std::string columns;
  for (const Column& column : table.columns) {
    columns += fmt::format("{}{} {}", columns.empty() ? "" : ", ", quotedName(column.name),
                           sqlType(column));
  }
  return fmt::format("CREATE TABLE {} ({});\n", table.kind->name, columns);
}

/// A row for each file that was taken, and which rows a later one has taken the place of.
constexpr char kTakenFiles[] = R"(
CREATE TABLE taken_files (record INTEGER, kind TEXT, capture BLOB, file BLOB, modified INTEGER,
  bytes INTEGER, PRIMARY KEY (capture, file)) WITHOUT ROWID;
CREATE TABLE outdated_records (kind TEXT, record INTEGER, PRIMARY KEY (kind, record)) WITHOUT ROWID;
CREATE TRIGGER taken_again AFTER UPDATE ON taken_files
  BEGIN INSERT INTO outdated_records VALUES (old.kind, old.record); END;
)";

/// Whether a row of that table, under that name, is the last one of its file.
std::string isLast(const std::string& kind, const std::string& row) {
  return fmt::format("{}.rowid NOT IN (SELECT record FROM outdated_records WHERE kind = '{}')", row,
                     kind);
}

/// What every table begins with, under the kind's name.
std::string sqlForRecords(const std::vector<Table>& tables) {
  std::string selects;
  for (const Table& table : tables) {
    const char* const kind = table.kind->name;
    selects += fmt::format(
        "{}SELECT '{}' AS kind, capture, request, camera, ev, text, \"index\", file, modified, "
        "problem FROM {} WHERE {}",
        selects.empty() ? "" : " UNION ALL ", kind, kind, isLast(kind, kind));
  }
  return fmt::format("CREATE VIEW records AS {};\n", selects);
}

/// "{last KIND NAME}" stands for what isLast() tells of that row.
constexpr std::string_view kViews = R"(
CREATE VIEW captures AS
  SELECT capture, max(request) AS request, count(*) AS records, count(DISTINCT kind) AS kinds,
    count(DISTINCT camera) AS cameras, count(problem) AS problems, max(modified) AS modified
  FROM records GROUP BY capture;
CREATE VIEW exposure AS
  SELECT a.capture, a.request, a.camera, a.ev, a.LuxIndex, a.DigitalGain,
    a.ExposureIndexShort_ExposureTime, a.ExposureIndexShort_Gain, a.ExposureIndexShort_Sensitivity,
    a.ExposureIndexLong_ExposureTime, a.ExposureIndexLong_Gain, a.ExposureIndexLong_Sensitivity,
    a.ExposureIndexSafe_ExposureTime, a.ExposureIndexSafe_Gain, a.ExposureIndexSafe_Sensitivity,
    a.DrcGain, a.DrcGainDark, b.AECSettled, b.frameDuration,
    e.frameLuma, e.ADRCGain, e.brightnessValue, a.problem
  FROM AE_AECData a
  LEFT JOIN AWB_AECData b ON b.capture = a.capture AND b.camera = a.camera
    AND {last AWB_AECData b}
  LEFT JOIN AWB_ExtExposure e ON e.capture = a.capture AND e.camera = a.camera
    AND {last AWB_ExtExposure e}
  WHERE {last AE_AECData a};
CREATE VIEW white_balance AS
  SELECT k.capture, k.request, k.camera, b.luxIndex, b.AECSettled, o.rOverG, o.bOverG,
    l.firstCTValue, l.firstCTConfid, l.secondCTValue, l.secondCTConfid,
    l.lightClass, l.lightClassConfid, s.cct, s.lux, s.x, s.y, s.flickerFrequency,
    p.singlePureColorConfid, p.pureColorBackgrdFaceConfid, y.syncinfo, w.status
  FROM (SELECT DISTINCT capture, request, camera FROM records WHERE camera IS NOT NULL) k
  LEFT JOIN AWB_AECData b ON b.capture = k.capture AND b.camera = k.camera
    AND {last AWB_AECData b}
  LEFT JOIN AWB_OTPData o ON o.capture = k.capture AND o.camera = k.camera
    AND {last AWB_OTPData o}
  LEFT JOIN ZOAWB_LightSrcClassify l ON l.capture = k.capture AND l.camera = k.camera
    AND {last ZOAWB_LightSrcClassify l}
  LEFT JOIN ZOAWB_SpectralSensorInfo s ON s.capture = k.capture
    AND {last ZOAWB_SpectralSensorInfo s}
  LEFT JOIN ZOAWB_PureColorRes p ON p.capture = k.capture AND p.camera = k.camera
    AND {last ZOAWB_PureColorRes p}
  LEFT JOIN ZOAWB_SyncInfo y ON y.capture = k.capture AND y.camera = k.camera
    AND {last ZOAWB_SyncInfo y}
  LEFT JOIN ZOAWB_WideAlwaysOnStatus w ON w.capture = k.capture AND w.camera = k.camera
    AND {last ZOAWB_WideAlwaysOnStatus w};
CREATE TABLE shading_fall_off (record INTEGER PRIMARY KEY, r REAL, gr REAL, gb REAL, b REAL);
CREATE VIEW shading AS
  SELECT l.capture, l.request, l.ev, l.text, l."index", l.file, l.width, l.height,
    f.r AS r_fall_off, f.gr AS gr_fall_off, f.gb AS gb_fall_off, f.b AS b_fall_off,
    l.problem
  FROM LSC l LEFT JOIN shading_fall_off f ON f.record = l.rowid
  WHERE {last LSC l};
)";

std::string sqlForViews() {
  std::string sql;
  std::string_view rest = kViews;
  constexpr std::string_view kMark = "{last ";
  for (std::size_t at; (at = rest.find(kMark)) != rest.npos;) {
    const std::size_t begin = at + kMark.size(), middle = rest.find(' ', begin);
    const std::size_t end = rest.find('}', middle);
    sql += rest.substr(0, at);
    sql += isLast(std::string(rest.substr(begin, middle - begin)),
                  std::string(rest.substr(middle + 1, end - middle - 1)));
    rest.remove_prefix(end + 1);
  }
  return sql.append(rest);
}

std::string sqlForRegions() {
  std::string columns, numbers;
  for (const char* list : kRegionLists) {
    columns += fmt::format(", {}", list);
    numbers += fmt::format(", n.{}", list);
  }
  std::string sql = fmt::format(
      "CREATE TABLE region_numbers (record INTEGER, offline INTEGER, region INTEGER{},\n"
      "  PRIMARY KEY (offline, record, region)) WITHOUT ROWID;\nCREATE VIEW regions AS",
      columns);
  for (const char* kind : {kGrid, kOfflineGrid}) {
    sql += fmt::format(
        "\n  {}SELECT '{}' AS kind, s.capture, s.request, s.camera, s.text, s.file, s.problem,\n"
        "    n.region, n.region / s.horizontal_num AS \"row\", n.region % s.horizontal_num AS "
        "\"column\"{}\n"
        "  FROM {} s JOIN region_numbers n ON n.offline = {} AND n.record = s.rowid\n  WHERE {}",
        kind == kGrid ? "" : "UNION ALL ", kind, numbers, kind, kind == kGrid ? 0 : 1,
        isLast(kind, "s"));
  }
  return sql + ";\n";
}

}  // namespace

std::string quotedName(const std::string& name) { return '"' + name + '"'; }

std::string sqlForTables(const std::vector<Table>& tables) {
  std::string sql;
  for (const Table& table : tables) sql += sqlForTable(table);
  sql += kTakenFiles + sqlForRecords(tables) + sqlForViews();
  return tables.front().lists ? sql + sqlForRegions() : sql;
}

std::string sqlForIndexes(const std::vector<Table>& tables) {
  std::string sql;
  for (const Table& table : tables) {
    // Views join by capture and camera: by the camera alone they would look at a third of all rows.
    sql += fmt::format(
        "CREATE INDEX {0}_by_capture ON {0} (capture, camera);\n"
        "CREATE INDEX {0}_by_request ON {0} (request);\n"
        "CREATE INDEX {0}_by_camera ON {0} (camera);\n",
        table.kind->name);
  }
  return sql;
}

}  // namespace simrec
