// Each record as a part of a page: what it shows of it, as plain data for the templates.
#pragma once

#include <vector>

#include "simrec/comparison.h"
#include "simrec/record.h"
#include "simrec/report/parts.h"

namespace simrec::report {

/// What a reader may tell that no file does.
struct ViewOptions {
  std::size_t planeWidth = 0;  ///< of ACB's Y plane, in pixels; 0: guessed
};

/// Whether records of the kind are shown as pictures; others are rows of tables.
bool isPictured(const catalogue::Kind& kind);

/// Whether these pictures are of what the camera looked at.
bool showsScene(const catalogue::Kind& kind);

/// "Camera 0, preview", from the parts of the file's name.
std::string titleOf(const catalogue::FileName& parts);

/// A record of a kind that is pictured.
Json viewOf(const Record& record, const ViewOptions& options, Ids& ids);

/// Two records of one such kind side by side, with the map of what differs; without figures where
/// there is nothing to set side by side.
Json comparedView(const Record& a, const Record& b, Ids& ids);

/// The records of one small kind as a table, with a column for each of `files`, which are records
/// of `capture`; null: none of them has a value.
Json valueTable(const Capture& capture, const catalogue::Kind& kind,
                const std::vector<File>& files);

/// Whether `thumbnailOf` may make one of records of the kind.
bool hasThumbnail(const catalogue::Kind& kind);

/// A picture in a few pixels as base64 of a PNG; empty: there is none in this record.
std::string thumbnailOf(const Record& record);

/// @name By kind
/// Each begins with `newView` of its record.
/// @{
Json bayerGridView(const Record& record, Ids& ids);
Json shadingView(const Record& record, Ids& ids);
Json segmentationView(const Record& record, Ids& ids);
Json spectralView(const Record& record, Ids& ids);
Json planeView(const Record& record, const ViewOptions& options, Ids& ids);
/// @}

/// A part without any content but the file's name and problems.
Json newView(const File& file, const std::vector<std::string>& problems);

}  // namespace simrec::report
