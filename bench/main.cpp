// Measures the library against its plain version and the floor, in a private,
// empty /data/vendor/camera in memory. Tables go to stdout, progress to stderr.
#include <benchmark/benchmark.h>
#include <private_data.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>

#include "bench/cases.h"
#include "bench/clock.h"
#include "bench/contest.h"
#include "bench/ring.h"
#include "bench/table.h"

namespace bench {
namespace {

void measure(benchmark::State& state, const Case& row, Direction direction) {
  Contest contest(row.make(row.inputs));
  for (auto _ : state) state.SetIterationTime(contest.round(direction));
  const double library = contest.median(kLibrary);
  const double plain = contest.median(kPlain);
  const double floor = contest.median(row.plainIsFloor ? kPlain : kFloor);
  state.counters["library_us"] = library * 1e6;
  state.counters["baseline_us"] = plain * 1e6;
  state.counters["floor_us"] = floor * 1e6;
  state.counters["speedup"] = plain / library;
  state.counters["floors"] = library / floor;
}

/// One request's calls, beside a growing number of other dump folders.
void measureRing(benchmark::State& state) {
  Ring ring(static_cast<int>(state.range(0)));
  std::vector<double> times;
  for (auto _ : state) {
    ring.prepare(true);
    const double start = secondsOfThread();
    ring.insert();
    times.push_back(secondsOfThread() - start);
    state.SetIterationTime(times.back());
  }
  state.counters["library_us"] = medianOf(times) * 1e6;
}

void registerRing() {
  benchmark::RegisterBenchmark("ring", measureRing)
      ->RangeMultiplier(10)
      ->Range(10, kMostFolders)
      ->Iterations(2000)
      ->UseManualTime()
      ->Unit(benchmark::kMicrosecond);
}

void registerCase(const Case& row, const char* suffix, Direction direction) {
  const std::string name = std::string(row.title) + suffix;
  benchmark::RegisterBenchmark(name.c_str(), measure, row, direction)
      ->Iterations(row.rounds)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

/// Shows progress on stderr and keeps the counters for the tables.
class Collector : public benchmark::ConsoleReporter {
 public:
  Collector() : ConsoleReporter(OO_None) {}

  bool ReportContext(const Context& context) override {
    SetOutputStream(&std::cerr);
    return ConsoleReporter::ReportContext(context);
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs) {
      for (const auto& [name, counter] : run.counters) {
        const auto& [function, argument] = std::tie(run.run_name.function_name, run.run_name.args);
        results[argument.empty() ? function : function + "/" + argument][name] = counter.value;
      }
    }
  }

  Results results;
};

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const std::string problem = simulation_host::useEmptyCameraData();
  if (!problem.empty()) {
    std::cerr << "the benchmarks need a private /data: " << problem << '\n';
    return 2;
  }
  umask(0);
  setenv("persist.vendor.camera.simulation.loglevel", "7", 1);  // nothing is logged
  for (const bench::Case& row : bench::kCases) {
    bench::registerCase(row, "/dump", bench::kDump);
    bench::registerCase(row, "/readback", bench::kReadback);
  }
  bench::registerRing();
  bench::Collector collector;
  benchmark::RunSpecifiedBenchmarks(&collector);
  return bench::printTables(collector.results) == 0 ? 0 : 1;
}
