// The benchmarks: each operation on each drawing that it is for, under the name OPERATION/DRAWING.

#include "measure/Operation.h"

#include "Siblings.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <sys/resource.h>

namespace {

using benchmark_measure::Bench;
using benchmark_measure::Operation;
using benchmark_measure::OperationKind;
using benchmark_measure::Specimen;

constexpr const char* kUsage =
    "usage: benchmark_module TOWNS EXAMPLES SETTINGS [--benchmark_...]\n"
    "\n"
    "Measures with the drawings of the folder TOWNS and those of the folder EXAMPLES, with the "
    "settings\n"
    "folder SETTINGS. --benchmark_list_tests shows the names, --benchmark_filter=REGEX picks among "
    "them;\n"
    "user_ms is the time in user mode of one operation in milliseconds.\n";

/// Seconds of this process in user mode.
double userSeconds() {
    constexpr double microseconds = 1e-6;
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec) +
           microseconds * static_cast<double>(usage.ru_utime.tv_usec);
}

void measure(benchmark::State& state, const OperationKind& kind, Bench& bench,
             const Specimen& specimen) {
    constexpr double milliseconds = 1000.0;
    try {
        const std::unique_ptr<Operation> operation = kind.make(bench, specimen);
        double user = 0.0;
        bool first = true;
        while (state.KeepRunning()) {
            operation->prepare();
            const double userBegin = userSeconds();
            const auto begin = std::chrono::steady_clock::now();
            operation->run();
            const auto end = std::chrono::steady_clock::now();
            user += userSeconds() - userBegin;
            state.SetIterationTime(std::chrono::duration<double>(end - begin).count());
            operation->check(first);
            first = false;
        }
        state.counters["user_ms"] =
            benchmark::Counter(user * milliseconds, benchmark::Counter::kAvgIterations);
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

void registerAll(const std::vector<OperationKind>& kinds, const std::vector<Specimen>& specimens,
                 Bench& bench) {
    for (const Specimen& specimen : specimens) {
        for (const OperationKind& kind : kinds) {
            if (!kind.appliesTo(specimen)) {
                continue;
            }
            const std::string name = kind.name + "/" + specimen.name;
            benchmark::RegisterBenchmark(name.c_str(),
                                         [kind, specimen, &bench](benchmark::State& state) {
                                             measure(state, kind, bench, specimen);
                                         })
                ->Unit(benchmark::kMillisecond)
                ->UseManualTime();
        }
    }
}

int run(int argc, char** argv) {
    constexpr int folders = 3;
    if (argc <= folders || std::strncmp(argv[1], "-", 1) == 0) {
        std::fputs(kUsage, stderr);
        return 2;
    }
#ifndef NDEBUG
    std::fputs("benchmark_module: built without optimisation; its times mean nothing\n", stderr);
    return 1;
#else
    Bench bench;
    const std::vector<Specimen> specimens = benchmark_measure::findSpecimens(argv[1], argv[2]);
    siblings::setSystemPath(argv[3]);
    // Those that change the drawing come last, so that it is not loaded anew for the others.
    registerAll(benchmark_measure::partOperations(), specimens, bench);
    registerAll(benchmark_measure::searchOperations(), specimens, bench);
    registerAll(benchmark_measure::fileOperations(), specimens, bench);
    argv[folders] = argv[0];
    argc -= folders;
    benchmark::Initialize(&argc, argv + folders);
    if (benchmark::ReportUnrecognizedArguments(argc, argv + folders)) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
#endif
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "benchmark_module: %s\n", error.what());
        return 1;
    }
}
