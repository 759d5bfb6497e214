// Counts what single calls allocate, with the heap's own functions replaced: the
// most that one record operation holds at a time, and how often the request map
// allocates. Prints to stdout; status 1 when a bound is broken.
#include <malloc.h>
#include <private_data.h>
#include <simulation/records.h>
#include <standard_streams.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "bench/family.h"
#include "bench/ring.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);
}

namespace {

struct Heap {
  std::size_t allocations = 0;
  std::size_t live = 0;
  std::size_t peak = 0;
} heap;

void* counted(void* memory) {
  ++heap.allocations;
  heap.live += malloc_usable_size(memory);
  heap.peak = std::max(heap.peak, heap.live);
  return memory;
}

}  // namespace

extern "C" {
void* malloc(std::size_t size) { return counted(__libc_malloc(size)); }
void* calloc(std::size_t count, std::size_t size) { return counted(__libc_calloc(count, size)); }
void* realloc(void* memory, std::size_t size) {
  heap.live -= malloc_usable_size(memory);
  return counted(__libc_realloc(memory, size));
}
void free(void* memory) {
  heap.live -= malloc_usable_size(memory);
  __libc_free(memory);
}
}

namespace bench {
namespace {

constexpr double kMegabyte = 1 << 20;

/// The most that the call holds at a time, in MB.
double peakOf(const Family& family, unsigned int mode, Bytes& record) {
  Call call = {{{}, "memory", mode}, 100, 0};
  const std::size_t before = heap.live;
  heap.peak = before;
  family.library(call, record.data());
  return static_cast<double>(heap.peak - before) / kMegabyte;
}

/// `longest`: where the bytes begin whose text is longest when all are ones.
bool printPeaks(const char* title, Family family, std::size_t longest, std::size_t size,
                double must) {
  Bytes& record = family.inputs[0];
  std::fill_n(record.begin() + static_cast<std::ptrdiff_t>(longest), size, '\xFF');
  const double dump = peakOf(family, 0, record);
  const int copied =
      std::system("cp '/data/vendor/camera/tmp/RequestID[100]_camId[0]/'* /data/vendor/camera/");
  record[longest] = '\0';
  const double readback = peakOf(family, 1, record);
  const bool replayed = copied == 0 && record[longest] == '\xFF';
  std::printf("| %-28s | %8.2f | %8.2f | %4.1f |%s\n", title, dump, readback, must,
              replayed ? "" : " NOT REPLAYED");
  return replayed && dump <= must && readback <= must;
}

/// Allocations of one request's calls, the most of many requests.
std::size_t ringAllocations(bool dumps) {
  Ring ring(10);
  std::size_t most = 0;
  for (int i = 0; i < 200; ++i) {
    ring.prepare(dumps);
    const std::size_t before = heap.allocations;
    ring.insert();
    most = std::max(most, heap.allocations - before);
  }
  return most;
}

bool printAll() {
  constexpr std::size_t kRegions = offsetof(BayerGridOutput, regions);
  std::printf("\n| %-28s | %8s | %8s | %4s |\n| --- | --- | --- | --- |\n",
              "most memory of a call, MB", "dump", "readback", "must");
  bool held = printPeaks("QSeg, longest text", qsegRandomBytes(1)[0],
                         offsetof(QSegImageInfo, qsegStatsInfo), QSegImageInfo::kStatsSize, 6);
  held &= printPeaks("statistics, longest text", plainStatistics(1)[0], kRegions,
                     BayerGridOutput::kMaxRegions * sizeof(BGRegionStats), 3);
  const std::size_t bare = ringAllocations(false);
  const std::size_t moving = ringAllocations(true);
  std::printf(
      "\nRequest map, allocations per request: %zu (must be 1, the copy of an image's frame\n"
      "numbers); %zu when dumps are moved, which opens a folder.\n",
      bare, moving);
  return held && bare == 1;
}

}  // namespace
}  // namespace bench

int main() {
  simulation_host::holdStandardStreams();
  const std::string problem = simulation_host::useEmptyCameraData();
  if (!problem.empty()) {
    std::fprintf(stderr, "the benchmarks need a private /data: %s\n", problem.c_str());
    return 2;
  }
  umask(0);
  setenv("persist.vendor.camera.simulation.loglevel", "7", 1);  // nothing is logged
  const bool held = bench::printAll();
  return simulation_host::outputArrived("simulation_memory") && held ? 0 : 1;
}
