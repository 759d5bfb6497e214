#include "fuzz/support/fuzz.h"

#include <fcntl.h>
#include <private_data.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "fuzz/support/host.h"

namespace fuzz {
namespace {

constexpr char kCamera[] = "/data/vendor/camera/";

/// The number that the next file to be opened gets.
int nextDescriptor() {
  const int descriptor = dup(STDERR_FILENO);
  close(descriptor);
  return descriptor;
}

/// The first `size` bytes of what records hold before a readback.
std::string_view pattern(std::size_t size) {
  static std::string bytes;
  for (std::size_t i = bytes.size(); i < size; ++i) {
    bytes += static_cast<char>(i * 37 + i / 256 + 11);
  }
  return std::string_view(bytes).substr(0, size);
}

bool endsWith(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

}  // namespace

void require(bool holds, const char* claim) {
  if (holds) return;
  std::fprintf(stderr, "not true: %s\n", claim);
  std::abort();
}

void setInput(std::string_view input) {
  const int file = open(kInputFile, O_WRONLY | O_CREAT | O_TRUNC, 0666);
  const bool written = write(file, input.data(), input.size()) == ssize_t(input.size());
  require(written && close(file) == 0, "the input can be written to a file");
}

Outcome outcomeOf(const std::function<void()>& action) {
  try {
    action();
    return Outcome::kReturned;
  } catch (const std::invalid_argument&) {
    return Outcome::kInvalidArgument;
  } catch (const std::out_of_range&) {
    return Outcome::kOutOfRange;
  } catch (const Fatal&) {
    return Outcome::kBoundBroken;
  }
}

Record::Record(std::size_t size) : bytes_(new char[size]), live_(size, '\0') { refill(); }

void Record::refill() {
  live_ = pattern(size());
  live_.copy(bytes_.get(), size());
}

bool Record::isLive(std::size_t begin, std::size_t end) const {
  return std::memcmp(bytes_.get() + begin, live_.data() + begin, end - begin) == 0;
}

bool Result::logged(std::string_view text) const {
  return std::any_of(log.begin(), log.end(),
                     [text](std::string_view line) { return line.substr(0, text.size()) == text; });
}

bool Result::claimsSuccess() const {
  return std::any_of(log.begin(), log.end(),
                     [](const std::string& line) { return endsWith(line, " success"); });
}

Result run(Outcome due, const std::function<void(Simulation&)>& operation) {
  const int descriptor = nextDescriptor();
  Result result;
  startWatching();
  const Outcome outcome = outcomeOf([&] { operation(*SimulationMgr::getInstance()); });
  result.keptDocument = releaseKeptDocument();
  result.keptBlocks = releaseKeptBlocks();
  result.log = takeLog();
  require(outcome == due, "it ends as it should: returns, throws or aborts");
  require(nextDescriptor() == descriptor, "no descriptor is left open");
  require(!result.claimsSuccess() || result.log.size() == 1,
          "success is claimed once, and after nothing else");
  require(!result.claimsSuccess() || outcome == Outcome::kReturned,
          "success is claimed by who returns");
  return result;
}

SimulationInfo readback() { return {{}, "IMG_0001", 1}; }

}  // namespace fuzz

/// The fuzzer calls this first: before it starts threads.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const std::string problem = simulation_host::useEmptyCameraData();
  if (!problem.empty()) {
    std::fprintf(stderr, "a private /data is needed: %s\n", problem.c_str());
    std::exit(2);
  }
  for (const char* const* name = fuzz::kRecordFiles; *name != nullptr; ++name) {
    const std::string path = std::string(fuzz::kCamera) + *name;
    fuzz::require(symlink(fuzz::kInputFile, path.c_str()) == 0, "record files can be linked");
  }
  return 0;
}
