#include "harness.h"

#include <QMap>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace Bench {
namespace {

using Function = void (*)(const Topic &);

QMap<QString, Function> &functions()
{
    static QMap<QString, Function> functions;
    return functions;
}

/// Collects the times of every repetition. The benchmarks' names are numbers from 0.
class Collector : public benchmark::BenchmarkReporter
{
public:
    explicit Collector(std::size_t count)
        : m_times(count)
    {
    }

    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type != Run::RT_Iteration)
                continue;
            const double seconds = run.run_name.time_type == "manual_time"
                ? run.real_accumulated_time
                : run.cpu_accumulated_time;
            m_times.at(std::stoul(run.run_name.function_name))
                .push_back(seconds * 1e9 / static_cast<double>(run.iterations));
        }
    }

    /// The median of benchmark \a index in nanoseconds per iteration.
    [[nodiscard]] double median(std::size_t index)
    {
        std::vector<double> &times = m_times.at(index);
        std::sort(times.begin(), times.end());
        const std::size_t half = times.size() / 2;
        return times.size() % 2 ? times.at(half) : (times.at(half - 1) + times.at(half)) / 2;
    }

private:
    std::vector<std::vector<double>> m_times;
};

/// The benchmark library takes this setting from its command line only.
void enableInterleaving()
{
    static const bool once = [] {
        std::string program = "bench";
        std::string option = "--benchmark_enable_random_interleaving=true";
        char *arguments[] = {program.data(), option.data(), nullptr};
        int count = 2;
        benchmark::Initialize(&count, arguments);
        return true;
    }();
    (void)once;
}

#ifdef __x86_64__
__attribute__((target("avx"))) void clearUpperHalves()
{
    _mm256_zeroupper();
}
#endif

} // namespace

Topic::Topic(QString name, const Effort &effort, Show show)
    : m_name(std::move(name))
    , m_effort(effort)
    , m_show(std::move(show))
{
}

void Topic::fail(const QString &message)
{
    std::fprintf(stderr, "bench: %s\n", qPrintable(message));
    std::exit(1);
}

void Topic::failCheck(const char *name, const char *peer) const
{
    fail(QStringLiteral("%1, %2: the result of %3 is another one")
             .arg(m_name, QString::fromUtf8(name), QString::fromUtf8(peer)));
}

void Topic::clearVectorRegisters()
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx"))
        clearUpperHalves();
#endif
}

void Topic::measure(const char *name, const std::vector<Candidate> &candidates) const
{
    // Each case is a run of its own: its candidates alternate within a few seconds, in which the
    // machine changes little.
    enableInterleaving();
    benchmark::ClearRegisteredBenchmarks();
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        auto *const registered =
            benchmark::RegisterBenchmark(std::to_string(i).c_str(), candidates[i].loop);
        registered->Repetitions(m_effort.repetitions);
        if (candidates[i].isManual)
            registered->UseManualTime()->Iterations(1);
        else
            registered->MinTime(m_effort.seconds);
    }
    Collector collector(candidates.size());
    benchmark::RunSpecifiedBenchmarks(&collector, ".");

    const auto time = [&](std::size_t i) {
        return collector.median(i) / candidates[i].callsPerIteration;
    };
    const double ours = time(0);
    for (std::size_t i = 1; i < candidates.size(); ++i)
        m_show({m_name, QString::fromUtf8(name), ours, QString::fromUtf8(candidates[i].peer),
            time(i)});
}

Registration::Registration(const char *name, Function function)
{
    functions().insert(QString::fromUtf8(name), function);
}

QStringList topics()
{
    return functions().keys();
}

void run(const QString &name, const Effort &effort, const Topic::Show &show)
{
    functions().value(name)(Topic(name, effort, show));
}

} // namespace Bench
