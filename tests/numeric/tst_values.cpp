#include "common.h"

class TestValues : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void arrays()
    {
        using Limits = std::numeric_limits<qsizetype>;
        const SArray<int> zeros(1000);
        QCOMPARE(std::count(zeros.begin(), zeros.end(), 0), 1000);
        for (const qsizetype size : {qsizetype(0), qsizetype(-1), (Limits::min)(), (Limits::max)(),
                 (Limits::max)() / 4 + 1, (Limits::max)() / 4}) {
            QVERIFY(SArray<int>(size).isEmpty() && SArray<int>(size) == SArray<int>());
            QVERIFY(SArray<char>(size).isEmpty() && SArray<QString>(size).isEmpty());
        }

        SArray<QString> array(3);
        array[0] = string("x");
        SArray<QString> copy = array;
        QVERIFY(copy == array && copy.data() != array.data());
        copy.fill(copy[0]); // An element of its own.
        QCOMPARE(copy.at(2), string("x"));
        QVERIFY(copy != array);
        for (const qsizetype index : {qsizetype(-1), qsizetype(3), (Limits::max)()})
            QVERIFY(copy.at(index).isNull());

        SArray<QString> moved = std::move(copy);
        QVERIFY(copy.isEmpty()); // NOLINT(bugprone-use-after-move,clang-analyzer-cplusplus.Move)
        const SArray<QString> &same = moved;
        moved = same;
        QCOMPARE(moved.at(2), string("x"));
    }

    void writesAndReads()
    {
        const QLocale c = QLocale::c();
        const QLocale german(QLocale::German);
        QCOMPARE(SPointF(0.1, -12345.5).toString(german), string("0,1; -12345,5"));
        QCOMPARE(SSizeF(3, 1e21).toString(c), string("3; 1e+21"));
        QCOMPARE(SRectF(1, 2, 3, 4).toString(c), string("1; 2; 3; 4"));
        QCOMPARE(SPadding(1, 2, 3, 4).toString(c), string("1; 2; 3; 4"));
        QCOMPARE(SPointF::fromString(string(" 1.5;-2 "), c), SPointF(1.5, -2));
        QVERIFY(SPointF(0.1 + 0.2, 0) != SPointF(0.3, 0)); // Qt takes these for equal.
        // A point between digits is no decimal point here.
        QVERIFY(!SPointF::fromString(string("1.5; 2"), german));
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
        const QList<QLocale> locales = QLocale::matchingLocales(
            QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
        QVERIFY(locales.size() > 300);
        const auto check = []<typename T>(const T &value, const QLocale &locale) {
            const QString text = value.toString(locale);
            const std::decay_t<decltype(value.value())> plain = value;
            QVERIFY2(T::fromString(text, locale) == value && value == plain, qPrintable(text));
            QVERIFY(!T::fromString(text + u'x', locale));
        };
        const double rows[][4] = {
            {Limits::lowest(), Limits::max(), Limits::denorm_min(), -Limits::min()},
            {0.1, -1234567.875, 1e-7, -1}, {-1.234, 2, 100000, 0.0001},
            {Limits::infinity(), -Limits::infinity(), -0.0, 1e300}};
        for (const QLocale &locale : locales) {
            for (const auto &[a, b, c, d] : rows) {
                check(SPointF(a, b), locale);
                check(SSizeF(c, d), locale);
                check(SRectF(a, b, c, d), locale);
                check(SPadding(a, b, c, d), locale);
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestValues)
#include "tst_values.moc"
