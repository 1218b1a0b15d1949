#include <tavex/SArray>

#include <QTest>

#include <limits>

using Quorvex::SArray;

class TestSArray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isAValueWithBounds()
    {
        using Limits = std::numeric_limits<qsizetype>;
        const SArray<int> zeros(1000);
        QCOMPARE(std::count(zeros.begin(), zeros.end(), 0), 1000);
        for (const qsizetype size : {qsizetype(0), qsizetype(-1), (Limits::min)()})
            QVERIFY(SArray<int>(size).isEmpty() && SArray<int>(size) == SArray<int>());

        SArray<QString> array(3);
        array[0] = QStringLiteral("x");
        SArray<QString> copy = array;
        QVERIFY(copy == array && copy.data() != array.data());
        copy.fill(copy[0]); // An element of its own.
        QCOMPARE(copy.at(2), QStringLiteral("x"));
        QVERIFY(copy != array);
        for (const qsizetype index : {qsizetype(-1), qsizetype(3), (Limits::max)()})
            QVERIFY(copy.at(index).isNull());

        SArray<QString> moved = std::move(copy);
        QVERIFY(copy.isEmpty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        const SArray<QString> &same = moved;
        moved = same;
        QCOMPARE(moved.at(2), QStringLiteral("x"));
    }
};

QTEST_GUILESS_MAIN(TestSArray)
#include "tst_sarray.moc"
