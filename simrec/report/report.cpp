#include "simrec/report/report.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <limits>

#include "simrec/error.h"
#include "simrec/report/assets.h"
#include "simrec/report/capture_view.h"
#include "simrec/report/comparison_view.h"
#include "simrec/report/overview_view.h"
#include "simrec/report/templates.h"
#include "simrec/text.h"

namespace simrec::report {
namespace {

/// More findings are only counted.
constexpr std::size_t kMostFindings = 2000;

class Page {
 public:
  Page(const Request& request, const std::function<void(const std::string& piece)>& write)
      : request_(request), write_(write) {}

  void gather(const std::function<void()>& step) {
    Doctor doctor(surveySizes(request_.store));
    for (const Capture& capture : capturesShown()) {
      Digest digest = digestOf(capture, doctor);
      // Somebody else's folder has nothing to do with captures.
      if (digest.overview.looksLikeCapture || isNamed()) digests_.push_back(std::move(digest));
      step();
    }
    chooseSections();
    timelines_ = timelines(digests_);
    consistency_ = requestConsistency(digests_);
  }

  std::size_t write() {
    writeHead();
    if (request_.compared) writeComparison();
    writeOverview();
    for (std::size_t i = 0; i < digests_.size(); ++i) {
      if (!sections_[i].empty()) writeCapture(digests_[i], sections_[i], isLarge_[i]);
    }
    put("foot.html", {{"plot", asset("dygraph.js").text}, {"script", asset("page.js").text}});
    return digests_.size();
  }

 private:
  bool isComparedWithItself() const {
    return request_.compared && request_.compared->first.path == request_.compared->second.path;
  }

  bool isNamed() const { return !request_.captures.empty() || request_.compared; }

  /// Each one once.
  std::vector<Capture> capturesShown() const {
    if (!isNamed()) return request_.store.captures();
    std::vector<Capture> captures;
    const auto add = [&](const Capture& capture) {
      const bool known = std::any_of(captures.begin(), captures.end(), [&](const Capture& each) {
        return each.path == capture.path;
      });
      if (!known) captures.push_back(capture);
    };
    for (const Capture& capture : request_.captures) add(capture);
    if (request_.compared) {
      add(request_.compared->first);
      add(request_.compared->second);
    }
    return captures;
  }

  bool isNamedItself(const Capture& capture) const {
    return std::any_of(request_.captures.begin(), request_.captures.end(),
                       [&](const Capture& each) { return each.path == capture.path; });
  }

  /// The newest images, those first that have most to show.
  std::vector<std::size_t> newestImages() const {
    std::vector<std::size_t> images;
    for (std::size_t i = 0; i < digests_.size(); ++i) {
      if (digests_[i].capture.kind == CaptureKind::kImage) images.push_back(i);
    }
    const auto rank = [&](std::size_t i) {
      return std::pair(digests_[i].pictures, digests_[i].overview.newest.value_or(
                                                 std::numeric_limits<std::int64_t>::min()));
    };
    std::stable_sort(images.begin(), images.end(),
                     [&](std::size_t a, std::size_t b) { return rank(a) > rank(b); });
    images.resize(std::min(images.size(), kNewest));
    return images;
  }

  /// What is named and large ones, which have pictures, have sections; so do images with findings.
  void chooseSections() {
    for (const Digest& digest : digests_) {
      isLarge_.push_back(request_.allPictures || isNamedItself(digest.capture));
    }
    if (!isNamed()) {
      for (const std::size_t i : newestImages()) isLarge_[i] = true;
    }
    for (std::size_t i = 0; i < digests_.size(); ++i) {
      const bool isDamagedImage =
          digests_[i].capture.kind == CaptureKind::kImage && !digests_[i].findings.empty();
      const bool shown = isNamed() || isLarge_[i] || isDamagedImage;
      sections_.push_back(shown ? fmt::format("c{}", i) : "");
    }
  }

  /// A page of one capture tells of it alone.
  bool isOfMany() const { return !isNamed() || digests_.size() > 1; }

  /// Of a few that were named, only if there is something to see.
  bool hasTimelines() const {
    return isOfMany() && (!isNamed() || timelines_.is_object() || consistency_.is_object());
  }

  void put(const char* name, const Json& data) { write_(filled(name, data)); }

  std::string title() const {
    if (isComparedWithItself()) {
      return printable(request_.compared->first.name) + " and itself: no difference";
    }
    if (request_.compared) {
      return fmt::format("{} and {}", printable(request_.compared->first.name),
                         printable(request_.compared->second.name));
    }
    if (digests_.size() == 1) return "Capture " + printable(digests_.front().capture.name);
    return "Captures of " + dataPath();
  }

  /// A page is read elsewhere than where it was made.
  std::string dataPath() const {
    std::error_code error;
    const auto data = std::filesystem::absolute(request_.store.data(), error);
    if (error) return printable(request_.store.data());
    const auto path = data.lexically_normal();
    return printable(path.has_filename() ? path.string() : path.parent_path().string());
  }

  std::string facts() const {
    const std::string count = counted(digests_.size(), "capture");
    if (isNamed()) return count + ".";
    return fmt::format("{} in {}.", count, dataPath());
  }

  void writeHead() {
    Json large = Json::array();
    for (std::size_t i = 0; i < digests_.size(); ++i) {
      if (!isLarge_[i]) continue;
      large.push_back(
          {{"largeId", sections_[i]}, {"largeName", printable(digests_[i].capture.name)}});
    }
    put("head.html", {{"pageTitle", title()},
                      {"pageFacts", facts()},
                      {"compared", request_.compared.has_value()},
                      {"large", large},
                      {"hasTimelines", hasTimelines()},
                      {"hasCaptures", isOfMany()},
                      {"plotHash", asset("dygraph.js").hash},
                      {"scriptHash", asset("page.js").hash},
                      {"plotStyleHash", asset("dygraph.css").hash},
                      {"styleHash", asset("page.css").hash},
                      {"plotStyle", asset("dygraph.css").text},
                      {"style", asset("page.css").text}});
  }

  void writeOverview() {
    Json findings = findingRows(digests_, sections_);
    const std::size_t count = findings.size();
    std::string sentence = counted(count, "finding") + " in all.";
    if (count > kMostFindings) {
      findings.erase(findings.begin() + kMostFindings, findings.end());
      sentence += fmt::format(" The first {} are shown.", kMostFindings);
    }
    put("overview.html",
        {{"hasFindings", count > 0},
         {"findingsSentence", sentence},
         {"soundSentence",
          digests_.empty() ? "There are no captures." : "No file is damaged, missing or unknown."},
         {"hasTimelines", hasTimelines()},
         {"hasCaptures", isOfMany()},
         {"findingList", std::move(findings)},
         {"timelines", std::move(timelines_)},
         {"consistency", std::move(consistency_)},
         {"captureList", overviewRows(digests_, sections_)}});
  }

  void writeCapture(const Digest& digest, const std::string& id, bool large) {
    put("capture.html", captureHead(digest, id, large));
    if (large) {
      forEachGroup(digest.capture, request_.view, ids_,
                   [this](const Json& group) { put("group.html", group); });
    }
    put("capture_end.html", Json::object());
  }

  void writeComparison() {
    const auto& [a, b] = *request_.compared;
    put("comparison.html", {{"nameOfA", printable(a.name)}, {"nameOfB", printable(b.name)}});
    try {
      forEachDifference(a, b, ids_, [this](const Json& group) { put("group.html", group); });
    } catch (const Error& error) {
      put("group.html", {{"groupTitle", printable(error.what())},
                         {"views", Json::array()},
                         {"tables", Json::array()}});
    }
    put("capture_end.html", Json::object());
  }

  const Request& request_;
  const std::function<void(const std::string& piece)>& write_;
  std::vector<Digest> digests_;
  std::vector<std::string> sections_;  ///< of each capture, its id; empty: it has none
  std::vector<bool> isLarge_;
  Json timelines_, consistency_;
  Ids ids_;
};

}  // namespace

std::size_t writeReport(const Request& request,
                        const std::function<void(const std::string& piece)>& write,
                        const std::function<void()>& step) {
  Page page(request, write);
  page.gather(step);
  return page.write();
}

}  // namespace simrec::report
