// Runs all pairs and prints own time, peer time and their ratio.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "Pairs.h"

namespace {

// Collects the medians of both sides and prints one line per pair. Times of a shared machine are
// noisy; the ratio of two that ran after each other is what to look at.
class RatioReporter : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context&) override { return true; }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name != "median") continue;
      if (run.run_type == Run::RT_Iteration && run.repetitions > 1) continue;
      const std::string full = run.run_name.function_name;
      const auto bar = full.find('|');
      const std::string name = full.substr(0, bar);
      const std::string side = full.substr(bar + 1);
      const double time = run.GetAdjustedCPUTime();
      if (side == "own") {
        own_[name] = time;
        continue;
      }
      std::printf("%-52s %14.1f %14.1f %8.2f  %s\n", name.c_str(), own_[name], time,
                  own_[name] / time, side.c_str());
      std::fflush(stdout);
    }
  }

 private:
  std::map<std::string, double> own_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  try {
    fetchkit::bench::RegisterTextHelpers();
    fetchkit::bench::RegisterClauses();
    fetchkit::bench::RegisterKeywords();
    fetchkit::bench::RegisterLists();
    fetchkit::bench::RegisterDialogs();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
  std::printf("%-52s %14s %14s %8s  %s\n", "", "own ns", "peer ns", "own/peer", "peer");
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
