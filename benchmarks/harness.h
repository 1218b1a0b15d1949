#pragma once

#include <benchmark/benchmark.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <iterator>
#include <utility>
#include <vector>

/// \file
/// How a topic is measured. A topic's source ends with
///
///     const Bench::Registration registration("crc32", &crc32);
///
/// and its function calls Topic::compare() once for every case.

namespace Bench {

/// One line of the table: ours beside one peer.
struct Row
{
    QString topic;
    QString name;
    double ours; ///< Nanoseconds, like \a peerTime: the median of the repetitions.
    QString peer;
    double peerTime;

    [[nodiscard]] double ratio() const noexcept { return peerTime / ours; }
};

/// How long is measured.
struct Effort
{
    int repetitions = 15;
    double seconds = 0.05; ///< The least time that each repetition measures.
};

/// Other code for the same work: it is called with the same input and has to give the same result.
template <typename Operation>
struct Peer
{
    const char *name;
    Operation operation;
};
template <typename Operation>
Peer(const char *, Operation) -> Peer<Operation>;

/// Other work whose time gives the scale, such as a limit. Its result is not compared.
template <typename Operation>
struct Yardstick
{
    const char *name;
    Operation operation;
};
template <typename Operation>
Yardstick(const char *, Operation) -> Yardstick<Operation>;

class Topic
{
public:
    using Show = std::function<void(const Row &)>;

    Topic(QString name, const Effort &effort, Show show);

    [[nodiscard]] const Effort &effort() const noexcept { return m_effort; }

    /// Measures \a ours and all \a peers in one run and shows a row for each of the peers. The
    /// operations are called with every element of \a inputs; the times are for one call. CPU time
    /// counts, so that a process that takes the processor away does not.
    template <typename Inputs, typename Ours, typename... Peers>
    void compare(const char *name, const Inputs &inputs, Ours ours, Peers... peers) const
    {
        (check(name, inputs, ours, peers), ...);
        const auto calls = static_cast<double>(std::size(inputs));
        measure(name,
            {{nullptr, loop(inputs, ours), calls},
                {peers.name, loop(inputs, peers.operation), calls}...});
    }

    /// The same for operations that take their time themselves: they return seconds, and each is
    /// called once in a repetition.
    template <typename Ours, typename... Peers>
    void compareTimes(const char *name, Ours ours, Peers... peers) const
    {
        measure(name,
            {{nullptr, manualLoop(ours), 1, true},
                {peers.name, manualLoop(peers.operation), 1, true}...});
    }

    /// Ends the program because of \a message.
    [[noreturn]] static void fail(const QString &message);

private:
    struct Candidate
    {
        const char *peer; ///< Null for ours.
        std::function<void(benchmark::State &)> loop;
        double callsPerIteration;
        bool isManual = false;
    };

    template <typename Inputs, typename Ours, typename Operation>
    void check(const char *name, const Inputs &inputs, Ours &ours, Peer<Operation> &peer) const
    {
        for (const auto &input : inputs) {
            if (!(ours(input) == peer.operation(input)))
                failCheck(name, peer.name);
        }
    }
    template <typename Inputs, typename Ours, typename Operation>
    void check(const char *, const Inputs &, Ours &, Yardstick<Operation> &) const
    {
    }

    template <typename Inputs, typename Operation>
    static auto loop(const Inputs &inputs, Operation operation)
    {
        return [&inputs, operation](benchmark::State &state) {
            clearVectorRegisters();
            for ([[maybe_unused]] auto _ : state) {
                for (const auto &input : inputs)
                    benchmark::DoNotOptimize(operation(input));
            }
        };
    }

    template <typename Operation>
    static auto manualLoop(Operation operation)
    {
        return [operation](benchmark::State &state) {
            for ([[maybe_unused]] auto _ : state)
                state.SetIterationTime(operation());
        };
    }

    /// Undoes what a peer may have left behind: vector code that returns without clearing the upper
    /// halves of the registers makes floating-point code slower that runs after it.
    static void clearVectorRegisters();

    void measure(const char *name, const std::vector<Candidate> &candidates) const;
    [[noreturn]] void failCheck(const char *name, const char *peer) const;

    QString m_name;
    Effort m_effort;
    Show m_show;
};

/// Makes a topic known by a name. Topics run in the order of their names.
class Registration
{
public:
    Registration(const char *name, void (*function)(const Topic &));
};

/// The names of all topics, sorted.
[[nodiscard]] QStringList topics();

/// Runs the topic \a name, which has to be one of topics().
void run(const QString &name, const Effort &effort, const Topic::Show &show);

} // namespace Bench
