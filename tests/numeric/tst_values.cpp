#include "common.h"
#include "laws.h"

class TestValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arrays()
    {
        const SArray<int> zeros(1000);
        QCOMPARE(std::count(zeros.begin(), zeros.end(), 0), 1000);
        for (const qsizetype size : {qsizetype(0), qsizetype(-1), Min<qsizetype>, Max<qsizetype>,
                 Max<qsizetype> / 4 + 1, Max<qsizetype> / 4}) {
            QCOMPARE(SArray<int>(size).size(), 0);
            QCOMPARE(SArray<char>(size).size(), 0);
            QCOMPARE(SArray<QString>(size).size(), 0);
            QVERIFY(SArray<int>(size) == SArray<int>());
        }

        SArray<QString> array(3);
        array[0] = "x"_s;
        SArray<QString> copy = array;
        QVERIFY(copy == array);
        QVERIFY(copy.data() != array.data());
        copy.fill(copy[0]); // An element of its own.
        QCOMPARE(copy.at(2), "x"_s);
        QVERIFY(copy != array);
        for (const qsizetype index : {qsizetype(-1), qsizetype(3), Max<qsizetype>})
            QVERIFY(copy.at(index).isNull());

        SArray<QString> moved = std::move(copy);
        QVERIFY(copy.isEmpty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        const SArray<QString> &same = moved;
        moved = same;
        QCOMPARE(moved.at(2), "x"_s);
    }

    void writesAndReads()
    {
        const QLocale c = QLocale::c();
        const QLocale german(QLocale::German);
        QCOMPARE(SPointF(0.1, -12345.5).toString(german), "0,1; -12345,5"_s);
        QCOMPARE(SSizeF(3, 1e21).toString(c), "3; 1e+21"_s);
        QCOMPARE(SRectF(1, 2, 3, 4).toString(c), "1; 2; 3; 4"_s);
        QCOMPARE(SPadding(1, 2, 3, 4).toString(c), "1; 2; 3; 4"_s);
        QCOMPARE(SPointF::fromString(" 1.5;-2 "_s, c), SPointF(1.5, -2));
        QVERIFY(SPointF(0.1 + 0.2, 0) != SPointF(0.3, 0)); // Qt takes these for equal.
        QVERIFY(SRectF(1, 2, 3, 4) == QRectF(1, 2, 3, 4));
        // A point between digits is no decimal point here.
        QVERIFY(!SPointF::fromString("1.5; 2"_s, german));
        for (const char *text : {"", ";", "1", "1;", ";1", "1;2;3", "1,2", "1 2", "1;x", "1;0x2"}) {
            QVERIFY2(!SPointF::fromString(string(text), c), text);
            QVERIFY2(!SRectF::fromString(string(text), c), text);
        }
    }

    void areValues()
    {
        QCOMPARE(savedAndRead(SPointF(0.1, -2)), SPointF(0.1, -2));
        QCOMPARE(savedAndRead(SPadding(1, 2, 3, 4)), SPadding(1, 2, 3, 4));
        QCOMPARE(qHash(SSizeF(0.0, 1)), qHash(SSizeF(-0.0, 1))); // They are equal.
        QVERIFY(std::hash<SRectF>()({1, 2, 3, 4}) != std::hash<SRectF>()({1, 2, 4, 3}));
        QString text;
        QDebug(&text) << SPointF(1.5, -2) << SCrc32();
        QCOMPARE(text, string("SPointF(1.5, -2) SCrc32(0xffffffff, polynomial 0x4c11db7) "));
    }

    void readsBackInEveryLocale()
    {
        using Limits = std::numeric_limits<double>;
        const double rows[][4] = {
            {Limits::lowest(), Limits::max(), Limits::denorm_min(), -Limits::min()},
            {0.1, -1234567.875, 1e-7, -1}, {-1.234, 2, 100000, 0.0001},
            {Limits::infinity(), -Limits::infinity(), -0.0, 1e300}};
        for (const QLocale &locale : everyLocale()) {
            for (const auto &[a, b, c, d] : rows) {
                const QList<bool> all{readsBack(SPointF(a, b), locale),
                    readsBack(SSizeF(c, d), locale), readsBack(SRectF(a, b, c, d), locale),
                    readsBack(SPadding(a, b, c, d), locale)};
                COMPARE_ROW(locale.name(), all, QList<bool>(4, true));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
