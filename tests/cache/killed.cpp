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

#include <cstdio>
#include <cstdlib>
#include <random>

#include <csignal>
#include <ctime>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int Writers = 3;
constexpr int Kept = 3;  ///< So many keys have a value at any time.
constexpr int Fresh = 2; ///< So many more have none when a round begins.
constexpr int Sizes[Kept + Fresh] = {100, 9000, 5000, 3000, 70};

QByteArray valueOf(int i, quint32 version)
{
    QByteArray value(Sizes[i] + int(version % 64), static_cast<char>(version));
    value.replace(0, 4, QByteArray::number(version % 10000).rightJustified(4));
    return value;
}

/// With so many keys.
constexpr qint64 indexSize(int count)
{
    return 24 + count * qint64{4 + 2 + 4 + 32};
}

bool write(const QString &folder, quint32 version)
{
    Quorvex::SNvCache cache(QStringLiteral("cache"), folder);
    bool done = true;
    for (int i = 0; i < Kept + Fresh; ++i)
        done = insert(cache, i, valueOf(i, version)) && done;
    return done;
}

void killMyselfIn(long microseconds)
{
    sigevent event{};
    event.sigev_notify = SIGEV_SIGNAL;
    event.sigev_signo = SIGKILL;
    timer_t timer{};
    const itimerspec time{{}, {0, 1000 * microseconds + 1}};
    if (timer_create(CLOCK_MONOTONIC, &event, &timer) != 0
        || timer_settime(timer, 0, &time, nullptr) != 0)
        std::_Exit(3);
}

class Run
{
public:
    Run(const QString &folder, bool hasNameless)
        : m_folder(folder)
        , m_new(folder + QStringLiteral("/cache/new-c0e6a09c-c943-4039-94b5-ccaee60e32e8"))
    {
        if (!hasNameless && !refuseNamelessFiles())
            std::puts("Left out: the system refuses nothing");
        if (!write(m_folder, 0))
            fail("the first writer failed");
        check(0);
    }

    void kill(int count)
    {
        int killed = 0;
        for (quint32 version = 0; killed < count; version += Writers) {
            killed += round(version + 1);
            check(version + 1);
        }
        std::printf("%d kills within up to %ld µs; %d left something, %d of the fresh were there\n",
            killed, m_microseconds, m_leftCount, m_freshCount);
    }

private:
    [[noreturn]] static void fail(const char *what, int i = -1)
    {
        std::printf("FAILED: %s %d\n", what, i);
        std::exit(1);
    }

    /// Returns how many were killed.
    int round(quint32 version)
    {
        for (int i = 0; i < Writers; ++i) {
            const long time = std::uniform_int_distribution(0L, m_microseconds)(m_random);
            const pid_t writer = fork();
            if (writer == 0) {
                killMyselfIn(time);
                std::_Exit(write(m_folder, version + quint32(i)) ? 0 : 2);
            }
            if (writer < 0)
                fail("no process could be made");
        }
        int killed = 0;
        int status = 0;
        while (wait(&status) > 0) {
            if (WIFSIGNALED(status))
                ++killed;
            else if (WEXITSTATUS(status) != 0)
                fail("a writer failed");
        }
        // One of 16 or so comes to its end.
        m_microseconds = qBound(50L,
            killed == Writers ? m_microseconds + m_microseconds / 128
                              : m_microseconds - m_microseconds / 32,
            900000L);
        return killed;
    }

    void check(quint32 version)
    {
        m_leftCount += QFileInfo::exists(m_new);
        Quorvex::SNvCache cache(QStringLiteral("cache"), m_folder);
        if (QFileInfo::exists(m_new))
            fail("the folder of new files is still there");
        for (int i = 0; i < Kept + Fresh; ++i) {
            const QByteArray value = cache.value(QString::number(i));
            bool isWhole = i < Kept ? value == m_values[i] : value.isEmpty();
            for (quint32 v = version; !isWhole && v < version + Writers; ++v)
                isWhole = value == valueOf(i, v);
            if (!isWhole)
                fail(value.isEmpty() ? "missing:" : "torn:", i);
            m_freshCount += i >= Kept && !value.isEmpty();
            m_values[i] = value;
        }
        // That of a writer which came to its end, or that of the cache here.
        const qint64 index = QFileInfo(m_folder + QStringLiteral("/cache/index")).size();
        if (index != indexSize(Kept) && index != indexSize(Kept + Fresh))
            fail("the index is torn");
        for (int i = 0; i < Kept + Fresh; ++i) {
            if (!(i < Kept ? insert(cache, i, m_values[i]) : cache.remove(QString::number(i))))
                fail("the next writer failed:", i);
        }
    }

    QString m_folder;
    QString m_new;
    QByteArray m_values[Kept + Fresh];
    long m_microseconds = 500;
    int m_leftCount = 0;
    int m_freshCount = 0;
    std::mt19937_64 m_random{std::random_device()()};
};

} // namespace

int main(int argc, char *argv[])
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 10000;
    const QString folder = argc > 2
        ? QString::fromLocal8Bit(argv[2])
        : QString::fromLatin1(access("/dev/shm", W_OK) == 0 ? "/dev/shm" : ".");
    for (const bool hasNameless : {true, false}) {
        const QTemporaryDir own(folder + QStringLiteral("/killed-XXXXXX"));
        if (!own.isValid())
            return 2;
        Run(own.path(), hasNameless).kill(count / 2);
    }
    return 0;
}
