#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <valgrind/callgrind.h>
#include <vector>

#include "allocation.h"
#include "jvm.h"

namespace {

using benchmark::Counter;

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// How long a round lasts, in nanoseconds. Short ones are seldom interrupted on a machine that does other work
// too; with two threads, their start must not matter.
constexpr double shortRound = 300'000;
constexpr double roundOfThreads = 20'000'000;

/// Nanoseconds that `calls` calls take, without what the platform does beforehand.
double timeOf(const Cases& cases, int index, Way way, int calls) {
    cases.makeReady(index, calls);
    return cases.time(index, way, calls);
}

/// How many calls make a round.
int callsPerRound(const Cases& cases, int index, double enough) {
    int calls = 1;
    while (timeOf(cases, index, floorCode, calls) < enough) calls *= 2;
    return calls;
}

/// Makes the data ready and the JVM compile the loops. False, after a message: the results differ.
bool prepare(benchmark::State& state, const Cases& cases, int index) {
    const std::string difference = cases.prepare(index);
    if (!difference.empty()) {
        state.SkipWithError(difference.c_str());
        return false;
    }
    const int warmUp = std::max(2, 20'000 / cases.size(index));
    for (int way = 0; way < cases.ways(index); ++way) {
        static_cast<void>(timeOf(cases, index, Way{way}, warmUp));
    }
    return true;
}

/// All ways of one case in turn, round after round; the figures are the medians.
void measureCase(benchmark::State& state, const Cases& cases, int index) {
    if (!prepare(state, cases, index)) return;
    const int calls = callsPerRound(cases, index, shortRound);
    std::vector<double> times[3];
    std::vector<double> ratios;
    bool isBridgeFirst = true;
    for (auto _ : state) {
        for (int turn = 0; turn < cases.ways(index); ++turn) {
            const Way way{turn == jna || isBridgeFirst ? turn : floorCode - turn};
            times[way].push_back(timeOf(cases, index, way, calls) / calls);
        }
        isBridgeFirst = !isBridgeFirst;
        ratios.push_back(times[bridge].back() / times[floorCode].back());
        state.SetIterationTime(times[bridge].back() * 1e-9);
    }
    state.counters["size"] = cases.size(index);
    state.counters["bridge_ns"] = median(times[bridge]);
    state.counters["floor_ns"] = median(times[floorCode]);
    state.counters["ratio"] = median(ratios);
    if (cases.ways(index) > jna) state.counters["jna_ns"] = median(times[jna]);

    for (const Way way : {bridge, floorCode}) {
        const std::string prefix = way == bridge ? "bridge_" : "floor_";
        cases.makeReady(index, 1);
        const Allocated before = allocated();
        const double javaBefore = cases.javaBytes();
        static_cast<void>(cases.time(index, way, 1));
        const double javaBytes = cases.javaBytes() - javaBefore;
        const Allocated after = allocated();
        state.counters[prefix + "blocks"] = static_cast<double>(after.blocks - before.blocks);
        state.counters[prefix + "bytes"] = static_cast<double>(after.bytes - before.bytes) + javaBytes;
    }
}

/// What two threads do in the time in which one does 1.
double gainOfTwoThreads(const Cases& cases, int index, Way way, int calls) {
    const double one = timeOf(cases, index, way, calls);
    cases.makeReady(index, 2 * calls);
    return 2 * one / cases.timeOfTwoThreads(index, way, calls);
}

/// The gain of the bridge, beside those of the floor and of a spin loop in the same rounds.
void measureTwoThreads(benchmark::State& state, const Cases& cases, int index, int spinIndex) {
    if (!prepare(state, cases, spinIndex) || !prepare(state, cases, index)) return;
    const int calls = callsPerRound(cases, index, roundOfThreads);
    const int spins = callsPerRound(cases, spinIndex, roundOfThreads);
    std::vector<double> gains, floorGains, spinGains;
    for (auto _ : state) {
        gains.push_back(gainOfTwoThreads(cases, index, bridge, calls));
        floorGains.push_back(gainOfTwoThreads(cases, index, floorCode, calls));
        spinGains.push_back(gainOfTwoThreads(cases, spinIndex, bridge, spins));
        state.SetIterationTime(roundOfThreads * 1e-9);
    }
    state.counters["bridge_gain"] = median(gains);
    state.counters["floor_gain"] = median(floorGains);
    state.counters["spin_gain"] = median(spinGains);
}

/// Makes the calls of each case between two dumps of callgrind, whose figures scripts/bench takes from them.
void countInstructions(const Cases& cases) {
    std::string part;  // callgrind reads it some time after the request
    for (int index = 0; index < cases.count() - 1; ++index) {
        const int size = cases.size(index);
        if (size > 1000 || !cases.prepare(index).empty()) continue;
        const std::string name = cases.name(index) + "/" + std::to_string(size);
        for (const Way way : {bridge, floorCode}) {  // until the JVM has compiled what both call
            static_cast<void>(timeOf(cases, index, way, std::max(20, 5000 / size)));
        }
        for (const Way way : {bridge, floorCode}) {
            cases.makeReady(index, 10);
            CALLGRIND_START_INSTRUMENTATION;
            static_cast<void>(cases.time(index, way, 10));
            CALLGRIND_STOP_INSTRUMENTATION;
            part = name + (way == bridge ? " bridge" : " floor");
            CALLGRIND_DUMP_STATS_AT(part.c_str());
        }
    }
}

/// Prints tables of what was measured.
class Tables : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                std::exit(1);
            }
            if (run.counters.count("ratio") != 0) {
                printCase(run);
            } else {
                printThreads(run);
            }
        }
        std::fflush(stdout);
    }

    void Finalize() override {
        if (ratios_.empty()) return;
        std::printf("\nmedian of the ratios: %.3f\n", median(ratios_));
        std::printf("\n%-12s %30s\n", "per element", "1,000,000 against 1,000");
        for (const auto& [name, costs] : costs_) {
            if (costs.count(1'000'000) == 0 || costs.count(1000) == 0) continue;
            const auto &last = costs.at(1'000'000), &first = costs.at(1000);
            std::printf(
                "%-12s   time %5.2f (floor %5.2f)   memory %5.2f\n", name.c_str(), last[0] / first[0],
                last[1] / first[1], last[2] / first[2]);
        }
    }

  private:
    static double counter(const Run& run, const char* name) {
        const auto found = run.counters.find(name);
        return found == run.counters.end() ? 0 : found->second.value;
    }

    /// The name without its size.
    static std::string nameOf(const Run& run) {
        const std::string& name = run.run_name.function_name;
        return name.substr(0, name.find('/'));
    }

    void printCase(const Run& run) {
        if (ratios_.empty()) {
            std::printf(
                "%-22s %9s %14s %14s %7s %9s %16s\n", "shape", "size", "floor ns", "bridge ns", "ratio", "JNA ns",
                "new: fl. / br.");
        }
        const double size = counter(run, "size");
        std::printf(
            "%-22s %9.0f %14.1f %14.1f %7.3f ", nameOf(run).c_str(), size, counter(run, "floor_ns"),
            counter(run, "bridge_ns"), counter(run, "ratio"));
        if (const double jna = counter(run, "jna_ns"); jna > 0) {
            std::printf("%9.1f", jna);
        } else {
            std::printf("%9s", "");
        }
        std::printf(" %7.0f %8.0f\n", counter(run, "floor_blocks"), counter(run, "bridge_blocks"));
        ratios_.push_back(counter(run, "ratio"));
        costs_[nameOf(run)][static_cast<int>(size)] = {
            counter(run, "bridge_ns") / size, counter(run, "floor_ns") / size, counter(run, "bridge_bytes") / size};
    }

    void printThreads(const Run& run) {
        if (!hasThreads_) {
            std::printf("\n%-36s %8s %8s %8s %8s\n", "gain by a second thread", "spin", "floor", "bridge", "of spin");
        }
        hasThreads_ = true;
        const double spin = counter(run, "spin_gain");
        const double bridgeGain = counter(run, "bridge_gain");
        std::printf(
            "%-36s %8.2f %8.2f %8.2f %8.2f\n", nameOf(run).c_str(), spin, counter(run, "floor_gain"), bridgeGain,
            bridgeGain / spin);
    }

    bool hasThreads_ = false;
    std::vector<double> ratios_;
    std::map<std::string, std::map<int, std::vector<double>>> costs_;
};

}  // namespace

int main(int argc, char** argv) {
    const bool countsInstructions = argc == 2 && std::string{argv[1]} == "--instructions";
    const Cases cases{countsInstructions ? Jvm::quick : Jvm::steady};
    if (countsInstructions) {
        countInstructions(cases);
        return 0;
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    const int spinIndex = cases.count() - 1;
    for (int index = 0; index < spinIndex; ++index) {
        const int size = cases.size(index);
        const int rounds = size <= 1000 ? 1001 : size <= 10'000 ? 201 : size <= 100'000 ? 51 : 31;
        benchmark::RegisterBenchmark(
            (cases.name(index) + "/" + std::to_string(size)).c_str(),
            [&cases, index](benchmark::State& state) { measureCase(state, cases, index); })
            ->UseManualTime()
            ->Iterations(rounds);
    }
    for (int index = 0; index < spinIndex; ++index) {
        if (cases.size(index) != 1 && cases.size(index) != 1000) continue;
        benchmark::RegisterBenchmark(
            (cases.name(index) + "/two threads").c_str(),
            [&, index](benchmark::State& state) { measureTwoThreads(state, cases, index, spinIndex); })
            ->UseManualTime()
            ->Iterations(31);
    }
    Tables tables;
    benchmark::RunSpecifiedBenchmarks(&tables);
}
