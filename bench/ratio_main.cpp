// Runs the benchmarks and prints, for each pair, how many times slower the
// library's way is than the direct way. A pair is two benchmarks named
// "<pair>/library" and "<pair>/direct".
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const auto& run : runs) {
            if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
            std::string name = run.benchmark_name();
            auto slash = name.rfind('/');
            if (slash == std::string::npos) continue;
            times_[name.substr(0, slash)][name.substr(slash + 1)] = run.GetAdjustedCPUTime();
        }
    }

    void printRatios() const {
        std::printf("\n%-40s %14s %14s %8s\n", "pair", "library (ns)", "direct (ns)", "ratio");
        for (const auto& [pair, sides] : times_) {
            auto lib = sides.find("library"), direct = sides.find("direct");
            if (lib == sides.end() || direct == sides.end() || direct->second <= 0) continue;
            std::printf("%-40s %14.1f %14.1f %8.2f\n", pair.c_str(), lib->second, direct->second,
                        lib->second / direct->second);
        }
    }

private:
    std::map<std::string, std::map<std::string, double>> times_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printRatios();
    benchmark::Shutdown();
    return 0;
}
