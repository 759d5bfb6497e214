#include "simrec/trial_memory.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <system_error>

namespace simrec {
namespace {

constexpr std::size_t kLive = kLargestLiveRecord;

/// More than a readback of a file of 64 MB can leap over: lens shading alone lets the
/// file tell a place, four bytes further for each element, which takes four of text.
constexpr std::size_t kHole = std::size_t{128} << 20;

constexpr std::size_t kIsland[2] = {kHole, kHole + kLive + kHole};
constexpr std::size_t kTotal = kIsland[1] + kLive + kHole;

[[noreturn]] void failed() {
  throw std::system_error(errno, std::generic_category(), "no memory to try readbacks in");
}

char* map(void* place, std::size_t size, int protection, int flags) {
  void* const memory = mmap(place, size, protection, flags | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) failed();
  return static_cast<char*>(memory);
}

}  // namespace

void TrialSheet::addLine(int level, std::string_view text) {
  const std::size_t length = text.size();
  if (sizeof log - logUsed < sizeof level + sizeof length + length) return;
  char* const out = log + logUsed;
  std::memcpy(out, &level, sizeof level);
  std::memcpy(out + sizeof level, &length, sizeof length);
  text.copy(out + sizeof level + sizeof length, length);
  logUsed += sizeof level + sizeof length + length;
}

std::vector<LogLine> TrialSheet::lines() const {
  std::vector<LogLine> found;
  const char* at = log;
  const char* const stop = log + std::min(logUsed, sizeof log);
  int level;
  std::size_t length;
  while (static_cast<std::size_t>(stop - at) >= sizeof level + sizeof length) {
    std::memcpy(&level, at, sizeof level);
    std::memcpy(&length, at + sizeof level, sizeof length);
    at += sizeof level + sizeof length;
    if (static_cast<std::size_t>(stop - at) < length) break;
    found.push_back({level, std::string(at, length)});
    at += length;
  }
  return found;
}

TrialMemory::TrialMemory() : holes_(map(nullptr, kTotal, PROT_NONE, MAP_PRIVATE)) {
  try {
    for (const std::size_t island : kIsland) {
      map(holes_ + island, kLive, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED);
    }
    sheet_ = new (map(nullptr, sizeof(TrialSheet), PROT_READ | PROT_WRITE, MAP_SHARED)) TrialSheet;
  } catch (...) {
    munmap(holes_, kTotal);
    throw;
  }
}

TrialMemory::~TrialMemory() {
  munmap(sheet_, sizeof(TrialSheet));
  munmap(holes_, kTotal);
}

char* TrialMemory::live(std::size_t which, std::size_t size) const {
  return holes_ + kIsland[which] + kLive - size;
}

bool TrialMemory::isHole(const void* address) const {
  return address >= holes_ && address < holes_ + kTotal;
}

void TrialMemory::release() const {
  for (const std::size_t island : kIsland) madvise(holes_ + island, kLive, MADV_REMOVE);
}

}  // namespace simrec
