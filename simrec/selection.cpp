#include "simrec/selection.h"

#include <algorithm>

#include "simrec/error.h"

namespace simrec {
namespace {

std::vector<const catalogue::Kind*> kindsFor(const std::string& form) {
  std::vector<const catalogue::Kind*> kinds = catalogue::kindsLike(form);
  if (kinds.empty()) throw Error("no kind of record is called '" + form + "'");
  if (kinds.size() == 1 || catalogue::isWildcard(form)) return kinds;
  std::string names;
  for (const auto* kind : kinds) names += std::string(names.empty() ? "" : ", ") + kind->name;
  throw Error("'" + form + "' may be any of " + names);
}

}  // namespace

Selection::Selection(const std::vector<std::string>& kinds, std::optional<int> camera)
    : camera_(camera) {
  for (const std::string& form : kinds) {
    const auto found = kindsFor(form);
    kinds_.insert(kinds_.end(), found.begin(), found.end());
  }
}

bool Selection::takes(const catalogue::FileName& parts) const {
  const bool kind =
      kinds_.empty() || std::find(kinds_.begin(), kinds_.end(), parts.kind) != kinds_.end();
  return kind && (!camera_ || !parts.camera || *parts.camera == *camera_);
}

std::vector<File> Selection::of(std::vector<File> files) const {
  const auto left = [this](const File& file) { return !file.parts || !takes(*file.parts); };
  files.erase(std::remove_if(files.begin(), files.end(), left), files.end());
  return files;
}

const catalogue::Kind& kindFor(const std::string& form) {
  const auto kinds = kindsFor(form);
  if (kinds.size() > 1) throw Error("'" + form + "' stands for several kinds of record");
  return *kinds.front();
}

}  // namespace simrec
