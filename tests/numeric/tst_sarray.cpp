#include <tavex/SArray>

#include <QString>
#include <QTest>

#include <limits>
#include <numeric>

using Quorvex::SArray;

class TestSArray : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsAtZero()
    {
        const SArray<int> array(1000);
        QCOMPARE(array.size(), 1000);
        QVERIFY(std::all_of(array.begin(), array.end(), [](int n) { return n == 0; }));
        for (const qsizetype size :
            {qsizetype(0), qsizetype(-1), (std::numeric_limits<qsizetype>::min)()}) {
            const SArray<int> empty(size);
            QVERIFY(empty.isEmpty() && !empty.data() && empty == SArray<int>());
            QCOMPARE(empty.at(0), 0);
        }
    }

    void checksBounds()
    {
        SArray<QString> array(2);
        array[1] = QStringLiteral("b");
        QCOMPARE(array.at(1), QStringLiteral("b"));
        for (const qsizetype index :
            {qsizetype(-1), qsizetype(2), (std::numeric_limits<qsizetype>::max)()})
            QVERIFY(array.at(index).isNull());
    }

    void isAValue()
    {
        SArray<QString> array(3);
        array.fill(QStringLiteral("x"));
        array.fill(array[0] + array[0]);
        SArray<QString> copy = array;
        QVERIFY(copy == array && copy.data() != array.data());
        copy[2].clear();
        QVERIFY(copy != array);
        array.fill(array[1]); // An element of its own.
        QCOMPARE(array.at(2), QStringLiteral("xx"));

        SArray<QString> moved = std::move(array);
        QVERIFY(array.isEmpty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        QCOMPARE(moved.size(), 3);
        const SArray<QString> &same = moved;
        moved = same;
        QCOMPARE(moved.at(0), QStringLiteral("xx"));
        moved = SArray<QString>(1);
        QCOMPARE(moved.size(), 1);
        QVERIFY(moved != copy);
    }
};

QTEST_GUILESS_MAIN(TestSArray)
#include "tst_sarray.moc"
