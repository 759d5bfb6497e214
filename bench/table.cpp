#include "bench/table.h"

#include <algorithm>
#include <cstdio>

#include "bench/cases.h"

namespace bench {
namespace {

/// "23.1 (20, 30)": measured, must, aim.
class Cell {
 public:
  Cell(double measured, const Goal& goal, bool missed) : missed_(missed) {
    int length = std::snprintf(text_, sizeof text_, "%.2f", measured);
    if (goal.must == 0) {
      if (goal.aim != 0) std::snprintf(text_ + length, kRoom, " (-, %g)", goal.aim);
      return;
    }
    if (goal.aim == 0) {
      length += std::snprintf(text_ + length, kRoom, " (%g)", goal.must);
    } else {
      length += std::snprintf(text_ + length, kRoom, " (%g, %g)", goal.must, goal.aim);
    }
    if (missed_) std::snprintf(text_ + length, kRoom, " MISSED");
  }

  const char* text() const { return text_; }
  bool missed() const { return missed_; }

 private:
  static constexpr std::size_t kRoom = 24;
  char text_[3 * kRoom] = "";
  bool missed_;
};

int printSide(const Results& results, const std::string& name, const Goals& goals) {
  const auto found = results.find(name);
  if (found == results.end()) {
    std::printf(" %-22s | %-22s |", "", "");
    return 0;
  }
  const auto& counters = found->second;
  const double ratios[] = {counters.at("speedup"), counters.at("floors")};
  const Cell speedup(ratios[0], goals.speedup, goals.missedBySpeedup(ratios[0]));
  const Cell floors(ratios[1], goals.floors, goals.missedByFloors(ratios[1]));
  std::printf(" %-22s | %-22s |", speedup.text(), floors.text());
  return speedup.missed() + floors.missed();
}

void printTimes(const Results& results, const std::string& name) {
  const auto found = results.find(name);
  for (const char* side : {"library_us", "baseline_us", "floor_us"}) {
    std::printf(" %11.1f |", found == results.end() ? 0 : found->second.at(side));
  }
}

bool ran(const Results& results, const Case& row) {
  return results.count(std::string(row.title) + "/dump") != 0 ||
         results.count(std::string(row.title) + "/readback") != 0;
}

int printRatios(const Results& results) {
  int missed = 0;
  std::printf(
      "Measured (must, aim). A column \"x baseline\" is baseline / library, a column "
      "\"/ floor\"\nlibrary / floor; of each input's fastest round, the median.\n\n");
  std::printf("| %-22s | %-22s | %-22s | %-22s | %-22s |\n", "operation", "dump x baseline",
              "dump / floor", "readback x baseline", "readback / floor");
  std::printf("| --- | --- | --- | --- | --- |\n");
  for (const Case& row : kCases) {
    if (!ran(results, row)) continue;
    std::printf("| %-22s |", row.title);
    missed += printSide(results, std::string(row.title) + "/dump", row.dump);
    missed += printSide(results, std::string(row.title) + "/readback", row.readback);
    std::printf("\n");
  }
  return missed;
}

void printAllTimes(const Results& results) {
  std::printf("\n| %-22s | %-11s | %-11s | %-11s | %-11s | %-11s | %-11s |\n", "microseconds",
              "dump", "baseline", "floor", "readback", "baseline", "floor");
  std::printf("| --- | --- | --- | --- | --- | --- | --- |\n");
  for (const Case& row : kCases) {
    if (!ran(results, row)) continue;
    std::printf("| %-22s |", row.title);
    printTimes(results, std::string(row.title) + "/dump");
    printTimes(results, std::string(row.title) + "/readback");
    std::printf("\n");
  }
}

/// A thousand times the folders: a cost that heeds them grows by far more.
int printRing(const Results& results) {
  constexpr double kMostGrowth = 2;
  const auto first = results.find("ring/10");
  if (first == results.end()) return 0;
  std::printf("\nRequest map, microseconds per request with dumps, by folders in tmp:\n ");
  double growth = 0;
  for (int folders = 10; folders <= kMostFolders; folders *= 10) {
    const auto found = results.find("ring/" + std::to_string(folders));
    if (found == results.end()) continue;
    const double time = found->second.at("library_us");
    growth = std::max(growth, time / first->second.at("library_us"));
    std::printf(" %d: %.1f", folders, time);
  }
  std::printf("; most / first: %.2f (%g)%s\n", growth, kMostGrowth,
              growth > kMostGrowth ? " MISSED" : "");
  return growth > kMostGrowth ? 1 : 0;
}

}  // namespace

int printTables(const Results& results) {
  int missed = printRatios(results);
  printAllTimes(results);
  missed += printRing(results);
  std::printf("\n%s\n", missed == 0 ? "Nothing that must be reached is missed."
                                    : (std::to_string(missed) + " missed.").c_str());
  return missed;
}

}  // namespace bench
