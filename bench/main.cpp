// Measures the library against its plain version and the floor, in a private,
// empty /data/vendor/camera in memory. Tables go to stdout, progress to stderr.
#include <benchmark/benchmark.h>
#include <private_data.h>
#include <standard_streams.h>
#include <sys/stat.h>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>

#include "bench/cases.h"
#include "bench/clock.h"
#include "bench/contest.h"
#include "bench/ring.h"
#include "bench/table.h"

namespace bench {
namespace {

/// Whether the row misses what it must reach.
bool misses(const Contest& contest, const Case& row, Direction direction) {
  const Goals& goals = direction == kDump ? row.dump : row.readback;
  const double library = contest.secondsOf(kLibrary);
  const double floor = contest.secondsOf(row.plainIsFloor ? kPlain : kFloor);
  return goals.missedBySpeedup(contest.secondsOf(kPlain) / library) ||
         goals.missedByFloors(library / floor);
}

/// A row that misses is measured on: on a busy machine some inputs have had no quiet
/// moment yet. What is really too slow stays so.
void measure(benchmark::State& state, const Case& row, Direction direction) {
  constexpr int kMostSeries = 5;
  Contest contest(row.make(row.inputs));
  for (auto _ : state) state.SetIterationTime(contest.round(direction));
  for (int series = 1; series < kMostSeries && misses(contest, row, direction); ++series) {
    for (int round = 0; round < row.rounds; ++round) contest.round(direction);
  }
  const double library = contest.secondsOf(kLibrary);
  const double plain = contest.secondsOf(kPlain);
  const double floor = contest.secondsOf(row.plainIsFloor ? kPlain : kFloor);
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

  /// Debian builds the benchmark library without NDEBUG. Its warning of that reads as
  /// if the records were measured so; they are timed by a clock of our own.
  bool ReportContext(const Context& context) override {
    SetOutputStream(&std::cerr);
    std::stringstream text;
    SetErrorStream(&text);
    const bool wanted = ConsoleReporter::ReportContext(context);
    SetErrorStream(&std::cerr);
    for (std::string line; std::getline(text, line);) {
      if (line.find("Library was built as DEBUG") == std::string::npos) std::cerr << line << '\n';
    }
    return wanted;
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
  simulation_host::holdStandardStreams();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const std::string problem = simulation_host::useEmptyCameraData();
  if (!problem.empty()) {
    std::cerr << "the benchmarks need a private /data: " << problem << '\n';
    return 2;
  }
  if (!simulation_host::hasPrivateView()) {
    std::cerr
        << "no name space is to be had: these are figures of the machine's disk, not of memory\n";
  }
  umask(0);
  setenv("persist.vendor.camera.simulation.loglevel", "7", 1);  // nothing is logged
  for (const bench::Case& row : bench::kCases) {
    bench::registerCase(row, "/dump", bench::kDump);
    bench::registerCase(row, "/readback", bench::kReadback);
  }
  bench::registerRing();
  bench::Collector collector;
  if (benchmark::RunSpecifiedBenchmarks(&collector) == 0) return 2;  // the filter fits none
  if (collector.results.empty()) return 0;                           // they were listed
  const bool reached = bench::printTables(collector.results) == 0;
  return simulation_host::outputArrived("simulation_bench") && reached ? 0 : 1;
}
