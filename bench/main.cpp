#include <benchmark/benchmark.h>
#include <fmt/core.h>

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// Runs all measurements several times over, in mixed order, and prints a table: the median of each, and the ratio of
// those that belong together ("NAME/T-SQL" and "NAME/Hand").
namespace {

class TableReporter : public benchmark::ConsoleReporter {
 public:
  // The library's own words tell how Debian built the library (with assertions, which cost next to nothing in a loop of
  // microseconds), not how this program was built.
  bool ReportContext(const Context& context) override {
#ifdef NDEBUG
    constexpr std::string_view kBuild = "Release: optimiert, ohne Prüfungen";
#else
    constexpr std::string_view kBuild = "KEIN Release: die Zeiten gelten nicht";
#endif
    fmt::print(stderr, "{}; {} Prozessoren", kBuild, context.cpu_info.num_cpus);
    if (!context.cpu_info.load_avg.empty())
      fmt::print(stderr, ", Last {:.2f}", context.cpu_info.load_avg.front());
    fmt::print(stderr, "\n");
    return true;
  }

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      const std::string name = run.run_name.function_name;
      if (!times_.contains(name)) order_.push_back(name);
      const bool waits =
          !run.run_name.time_type.empty();  // for the disk: its time counts, not the processor's
      const double seconds = waits ? run.real_accumulated_time : run.cpu_accumulated_time;
      times_[name].push_back(seconds / static_cast<double>(run.iterations) * 1e6);
      labels_[name] = run.report_label;
    }
  }

  void Finalize() override {
    fmt::print("\n| Messung | Zeit | von Hand | Verhältnis | |\n|---|---:|---:|---:|---|\n");
    for (const std::string& name : order_) {
      const auto slash = name.find("/T-SQL");
      if (name.ends_with("/Hand") || name.find("/Hand/") != std::string::npos) continue;
      if (slash == std::string::npos) {
        fmt::print("| {} | {} | | | {} |\n", name, Shown(Median(name)), labels_[name]);
        continue;
      }
      std::string hand = name;
      hand.replace(slash, 6, "/Hand");
      fmt::print("| {} | {} | {} | {:.2f} | {} |\n", name.substr(0, slash), Shown(Median(name)),
                 Shown(Median(hand)), Median(name) / Median(hand), labels_[name]);
    }
  }

 private:
  double Median(const std::string& name) {
    std::vector<double>& times = times_[name];
    if (times.empty()) return 0;
    std::ranges::sort(times);
    return times[times.size() / 2];
  }

  static std::string Shown(double microseconds) {
    return microseconds < 1000 ? fmt::format("{:.2f} µs", microseconds)
                               : fmt::format("{:.2f} ms", microseconds / 1000);
  }

  std::vector<std::string> order_;
  std::map<std::string, std::vector<double>> times_;
  std::map<std::string, std::string> labels_;
};

}  // namespace

int main(int argc, char** argv) {
  std::vector<std::string> texts(argv, argv + argc);
  texts.insert(texts.begin() + 1, {"--benchmark_repetitions=7", "--benchmark_enable_random_interleaving=true",
                                   "--benchmark_min_time=0.2"});
  std::vector<char*> arguments;
  for (std::string& text : texts) arguments.push_back(text.data());
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  TableReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
