// A data folder of a test's own, the commands of simrec on it, and what it looks like.
#pragma once

#include <sys/types.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

inline const std::string kData = "/data/vendor/camera/";  ///< private to the test process

struct Outcome {
  int status;  ///< -1: killed
  std::string out, err;
};

/// Runs simrec in a process of its own; `before` is called in there.
Outcome simrec(
    const std::vector<std::string>& arguments, const std::function<void()>& before = [] {},
    const std::function<void(pid_t)>& meanwhile = [](pid_t) {});

/// Not done: status 2, one line that tells why.
bool isRefusal(const Outcome& outcome);

void put(const std::string& path, const std::string& content);
std::string contentOf(const std::string& path);

/// Its last change was that long ago.
void age(const std::string& path, long seconds);

/// All that is below the data folder but for simrec's own folder.
using Picture = std::map<std::string, std::string>;

/// Of each file and link: the node, its kind, rights, owner, time and content; of a folder its
/// kind.
Picture picture();

/// Contents only, or where a link leads: what a copy has, too.
Picture contents();

/// Empties the data folder and fills it: images IMG_A (five records, two of them lens shading) and
/// IMG_B, one of a request, and seven entries of a user's straight in it.
void fill();
