// A page about captures, in one file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "simrec/report/views.h"
#include "simrec/store.h"

namespace simrec::report {

struct Request {
  Store store;
  std::vector<Capture> captures;  ///< that are named, each with its pictures; none: all there are
  std::optional<std::pair<Capture, Capture>> compared = {};
  bool allPictures = false;  ///< else, of all there are, the newest images have theirs
  ViewOptions view = {};
};

/// Of these many images that are the newest ones the pictures are shown without being asked for.
inline constexpr std::size_t kNewest = 3;

/// Writes the page piece by piece; `step` is called with each capture that was looked at. Whatever
/// is wrong with files and folders is told in the page. Returns the number of captures.
std::size_t writeReport(const Request& request,
                        const std::function<void(const std::string& piece)>& write,
                        const std::function<void()>& step);

}  // namespace simrec::report
