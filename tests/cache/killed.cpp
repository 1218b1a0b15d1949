// Kills writers of a cache at any moment and looks at what they leave: killed COUNT [FOLDER].
//
// In every round several processes write a new version of the same keys, each in a cache of its
// own, and the system kills them after a random time, which is uniform over what the writing takes.
// Then each key has to have the value of one of the versions, whole; a new key may have none. The
// next cache has to remove what is left, and to work. The first half of the writers has files
// without a name, the second does without. In memory a million kills take some minutes.

#include "forms.h"
#include "refuse.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <random>

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Writers = 3;
constexpr int Kept = 3; ///< So many keys have a value at any time, the others none before a round.
const QList<int> Sizes{100, 9000, 5000, 3000, 70};

/// Fails unless \a holds, for the key \a i.
void require(bool holds, const char *otherwise, int i = -1)
{
    if (holds)
        return;
    std::printf("FAILED: %s %d\n", otherwise, i);
    std::exit(1);
}

bool write(const QString &folder, const QList<QByteArray> &values)
{
    Quorvex::SNvCache cache(QStringLiteral("cache"), folder);
    return insertAll(cache, values) == (1 << values.size()) - 1;
}

void killWriters(const QString &folder, int count)
{
    const QString left = folder + QStringLiteral("/cache/new-c0e6a09c-c943-4039-94b5-ccaee60e32e8");
    const QString index = folder + QStringLiteral("/cache/index");
    std::mt19937_64 random{std::random_device()()};
    long longest = 500;
    int killed = 0;
    int leftCount = 0;
    QList<QByteArray> values = valuesOf(0, Sizes).first(Kept);
    require(write(folder, values), "the first writer failed");
    for (int version = 1; killed < count;) {
        QList<QList<QByteArray>> versions{values};
        for (int i = 0; i < Writers; ++i) {
            versions += valuesOf(version++, Sizes);
            const itimerval time{{}, {0, std::uniform_int_distribution(1L, longest)(random)}};
            const pid_t writer = fork();
            if (writer == 0) {
                const bool isTimed = setitimer(ITIMER_REAL, &time, nullptr) == 0;
                std::_Exit(isTimed && write(folder, versions.constLast()) ? 0 : 2);
            }
            require(writer > 0, "no process could be made");
        }
        int ended = 0;
        for (int status = 0; wait(&status) > 0; ended += status == 0)
            require(status == 0 || WTERMSIG(status) == SIGALRM, "a writer failed");
        killed += Writers - ended;
        // One of 16 or so comes to its end.
        longest = std::min(longest + (ended ? -longest / 32 : 1 + longest / 128), 900'000L);

        leftCount += QFileInfo::exists(left);
        Quorvex::SNvCache cache(QStringLiteral("cache"), folder);
        require(!QFileInfo::exists(left), "the folder of new files is still there");
        values.clear();
        for (int i = 0; i < Sizes.size(); ++i) {
            const QByteArray value = cache.value(QString::number(i));
            const auto isWhole = [&](const auto &all) { return value == all.value(i); };
            require(std::any_of(versions.cbegin(), versions.cend(), isWhole),
                value.isEmpty() ? "missing:" : "torn:", i);
            values += value;
        }
        values.resize(Kept);
        // That of a writer which came to its end, or that of the cache here.
        const qint64 entries = QFileInfo(index).size() - 24;
        constexpr qint64 Entry = 4 + 2 + 4 + 32;
        require(entries == Kept * Entry || entries == Sizes.size() * Entry, "the index is torn");
        require(insertAll(cache, values) == (1 << Kept) - 1, "the next writer failed");
        for (int i = Kept; i < Sizes.size(); ++i)
            require(cache.remove(QString::number(i)), "the next writer failed:", i);
    }
    std::printf("%d kills within up to %ld µs; %d left something\n", killed, longest, leftCount);
}

} // namespace

int main(int argc, char *argv[])
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 10000;
    const char *const usual = access("/dev/shm", W_OK) == 0 ? "/dev/shm" : ".";
    const QString folder = QString::fromLocal8Bit(argc > 2 ? argv[2] : usual);
    for (const bool hasNameless : {true, false}) {
        if (!hasNameless && !refuseNameless())
            std::puts("Left out: the system refuses nothing");
        const QTemporaryDir own(folder + QStringLiteral("/killed-XXXXXX"));
        require(own.isValid(), "no folder could be made");
        killWriters(own.path(), count / 2);
    }
}
