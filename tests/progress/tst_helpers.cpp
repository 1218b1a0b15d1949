#include <tavex/SChronograph>
#include <tavex/SLocker>
#include <tavex/SSignalResult>
#include <tavex/SSysInfo>
#include <tavex/SThreading>

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Quorvex;

namespace {

class Lockable : public Interfaces::ILockable
{
public:
    void lock() override { log += 'l'; }
    void unlock() override { log += 'u'; }
    QByteArray log;
};

} // namespace

class TestHelpers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void waits()
    {
        SSignalResult result;
        QSignalSpy spy(&result, &SSignalResult::finished);
        QTimer::singleShot(0, &result, &SSignalResult::success);
        QVERIFY(!result.succeeded() && result.waitResult());
        result.failed();
        QCOMPARE(spy.count(), 1);
        // An outcome that is there already does not end a wait.
        QTimer::singleShot(0, &result, &SSignalResult::failed);
        QTimer::singleShot(10, &result, &SSignalResult::finished);
        QVERIFY(result.waitResult());
        QCOMPARE(spy.count(), 2);
        SSignalResult failure;
        failure.failed();
        QVERIFY(!failure.succeeded());
    }

    void scopes()
    {
        Lockable lockable;
        int elapsed = -1;
        {
            const SChronograph chronograph(&elapsed);
            const SChronograph none;
            const SLocker locker(&lockable);
            const SLocker constant(&std::as_const(lockable));
            const SLocker null(nullptr);
            QCOMPARE(lockable.log + char('0' + elapsed), "ll0");
            QTest::qSleep(20);
        }
        QCOMPARE(lockable.log, "lluu");
        QVERIFY(elapsed != 0);
    }

    void concurrence()
    {
        const int all = SSysInfo::cpuCount();
        QCOMPARE(SThreading::defaultConcurrence(), all);
        QCOMPARE(SThreading::concurrenceCount(ConcurrenceMode(0)), 1);
        for (const auto mode : {ConcurrenceMode::Default, ConcurrenceMode(6), ConcurrenceMode(-1)})
            QCOMPARE(SThreading::concurrenceCount(mode), 0);
        QCOMPARE(SThreading::concurrenceCount(ConcurrenceMode::MoreThanHalf),
            qMax(1, all - (all + 3) / 4));
        for (const int count : {all + 1, 0, 3, -3}) {
            SThreading::setDefaultConcurrence(count);
            QCOMPARE(SThreading::defaultConcurrence(), count > 0 ? count : all);
        }
        SThreading::setDefaultConcurrence(ConcurrenceMode(0));
        QCOMPARE(SThreading::defaultConcurrence(), 1);
        SThreading::setDefaultConcurrence(ConcurrenceMode::Default);
        QCOMPARE(SThreading::defaultConcurrence(), all);
    }
};

QTEST_GUILESS_MAIN(TestHelpers)
#include "tst_helpers.moc"
