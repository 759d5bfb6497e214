#include "simrec/report/overview_view.h"

#include <fmt/format.h>

#include "simrec/text.h"

namespace simrec::report {
namespace {

std::string camerasOf(const Overview& overview) {
  std::string cameras;
  for (const int camera : overview.cameras) {
    cameras += (cameras.empty() ? "" : ", ") + std::to_string(camera);
  }
  return cameras;
}

std::size_t countOf(const std::vector<Finding>& findings, Severity severity) {
  std::size_t count = 0;
  for (const Finding& finding : findings) count += finding.severity == severity ? 1 : 0;
  return count;
}

}  // namespace

Json findingRow(const Finding& finding) {
  return {{"findingFile", finding.file.empty() ? "the capture itself" : printable(finding.file)},
          {"severity", nameOf(finding.severity)},
          {"finding", finding.what},
          {"readback", nameOf(finding.readback)}};
}

Json overviewRows(const std::vector<Digest>& digests, const std::vector<std::string>& sections) {
  Json rows = Json::array();
  for (std::size_t i = 0; i < digests.size(); ++i) {
    const Digest& digest = digests[i];
    const Overview& overview = digest.overview;
    const std::string name = printable(digest.capture.name);
    rows.push_back({
        {"captureName", name},
        {"sectionLink", sections[i].empty() ? Json(false) : Json(sections[i])},
        {"captureKind", nameOf(digest.capture.kind)},
        {"cameras", camerasOf(overview)},
        {"records", overview.records},
        {"size", sizeText(overview.bytes)},
        {"newest", overview.newest ? localTime(*overview.newest) : "-"},
        {"errors", countOf(digest.findings, Severity::kError)},
        {"warnings", countOf(digest.findings, Severity::kWarning)},
        {"damaged", countOf(digest.findings, Severity::kError) > 0},
        {"thumbnail", digest.thumbnail.empty() ? Json(false) : Json(digest.thumbnail)},
    });
  }
  return rows;
}

Json findingRows(const std::vector<Digest>& digests, const std::vector<std::string>& sections) {
  Json rows = Json::array();
  for (const Severity severity : {Severity::kError, Severity::kWarning, Severity::kNote}) {
    for (std::size_t i = 0; i < digests.size(); ++i) {
      for (const Finding& finding : digests[i].findings) {
        if (finding.severity != severity) continue;
        Json row = findingRow(finding);
        row["findingCapture"] = printable(digests[i].capture.name);
        row["findingLink"] = sections[i].empty() ? Json(false) : Json(sections[i]);
        rows.push_back(std::move(row));
      }
    }
  }
  return rows;
}

}  // namespace simrec::report
