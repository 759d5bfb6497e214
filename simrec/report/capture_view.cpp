#include "simrec/report/capture_view.h"

#include <fmt/format.h>

#include <cctype>

#include "simrec/error.h"
#include "simrec/provenance.h"
#include "simrec/report/overview_view.h"
#include "simrec/selection.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

/// A kind that is pictured, with a heading that people know it by.
std::string titleOf(const catalogue::Kind& kind) {
  std::string title = kind.content;
  title[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(title[0])));
  return fmt::format("{} ({})", title, kind.name);
}

Json newGroup(const std::string& title) {
  return {{"groupTitle", title}, {"views", Json::array()}, {"tables", Json::array()}};
}

std::vector<File> recordsOf(const Capture& capture) {
  try {
    return Selection().of(filesOf(capture));
  } catch (const Error&) {  // a finding tells
    return {};
  }
}

Json fileTable(const std::vector<File>& files) {
  Json rows = Json::array();
  for (const File& file : files) {
    rows.push_back(
        row(printable(file.name), {cell(file.parts->kind->content), cell(sizeText(file.bytes)),
                                   cell(localTime(file.modified))}));
  }
  return table("Records", {"File", "Content", "Size", "Modified"}, std::move(rows));
}

}  // namespace

Json captureHead(const Digest& digest, const std::string& id, bool large) {
  const Overview& overview = digest.overview;
  Json findings = Json::array();
  for (const Finding& finding : digest.findings) findings.push_back(findingRow(finding));
  const auto provenance = readProvenance(digest.capture);
  std::string facts = fmt::format("{}, {}, {}", nameOf(digest.capture.kind),
                                  counted(overview.records, "record"), sizeText(overview.bytes));
  if (overview.newest) facts += ", newest file of " + localTime(*overview.newest);
  return {{"sectionId", id},
          {"sectionName", printable(digest.capture.name)},
          {"facts", facts},
          {"isLarge", large},
          {"provenance", provenance ? Json(sentenceFor(*provenance)) : Json(false)},
          {"findings", findings},
          {"sound", findings.empty()},
          {"cameraComparison", cameraComparison(digest.moments)}};
}

void forEachGroup(const Capture& capture, const ViewOptions& options, Ids& ids,
                  const std::function<void(const Json& group)>& use) {
  const std::vector<File> files = recordsOf(capture);
  for (const catalogue::Kind& kind : catalogue::kinds()) {
    if (!isPictured(kind)) continue;
    std::string title = titleOf(kind);
    for (const File& file : files) {
      if (file.parts->kind != &kind) continue;
      Json group = newGroup(title);
      group["views"].push_back(viewOf(readRecord(capture.path, file), options, ids));
      use(group);
      title.clear();  // the others follow below the same heading
    }
  }
  Json group = newGroup("Values");
  for (const catalogue::Kind& kind : catalogue::kinds()) {
    if (isPictured(kind)) continue;
    Json values = valueTable(capture, kind, files);
    if (!values.is_null()) group["tables"].push_back(std::move(values));
  }
  if (!files.empty()) group["tables"].push_back(fileTable(files));
  use(group);
}

}  // namespace simrec::report
