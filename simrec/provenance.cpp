#include "simrec/provenance.h"

#include "simrec/regular_file.h"
#include "simrec/text.h"

namespace simrec {
namespace {

constexpr std::size_t kLargestFile = 1 << 20;

/// Null where it isn't JSON.
Json readJson(const std::string& path) {
  const RegularFile file(path);
  if (!file.problem.empty()) return nullptr;
  std::string text(kLargestFile, '\0');
  text.resize(readUpTo(file.descriptor, text.data(), text.size()));
  Json json = Json::parse(text, nullptr, false);
  return json.is_discarded() ? Json(nullptr) : json;
}

}  // namespace

std::optional<Provenance> readProvenance(const Capture& capture) {
  if (capture.kind == CaptureKind::kStaged) return std::nullopt;
  const Json json = readJson(capture.path + "/" + kProvenanceFile);
  if (!json.is_object() || !json.contains("capture") || !json["capture"].is_string()) return {};
  Provenance provenance = {json["capture"], {}};
  try {
    provenance.capture = nameIn(json, "capture", "captureBytes");
  } catch (const std::exception&) {
    // Somebody else's: what can be read of it.
  }
  if (!json.contains("changes") || !json["changes"].is_array()) return provenance;
  for (const Json& change : json["changes"]) {
    if (change.is_string()) provenance.changes.push_back(change);
  }
  return provenance;
}

Json toJson(const Provenance& provenance) {
  Json json;
  setName(json, "capture", "captureBytes", provenance.capture);
  json["changes"] = provenance.changes;
  return json;
}

std::string sentenceFor(const Provenance& provenance) {
  std::string text = "from " + printable(provenance.capture);
  const char* word = " with ";
  for (const std::string& change : provenance.changes) {
    text += word + printable(change);
    word = ", ";
  }
  return text;
}

}  // namespace simrec
