#include <tavex/SPadding>
#include <tavex/SPointF>
#include <tavex/SRectF>
#include <tavex/SSizeF>

#include <QTest>
#include <QVariant>

#include <limits>

using namespace Quorvex;

class TestGeometry : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void convertsAndCompares()
    {
        const SPointF point = QPointF(1, 2);
        const QPointF plain = point;
        QVERIFY(point == plain && plain == point && point == SPointF(1, 2));
        QVERIFY(SSizeF(QSizeF(3, 4)) == SSizeF(3, 4) && QSizeF(SSizeF(3, 4)).height() == 4);
        QVERIFY(SRectF(1, 2, 3, 4) == QRectF(1, 2, 3, 4) && SRectF(1, 2, 3, 4) != SRectF());
        QVERIFY(SPadding(1, 2, 3, 4) == QMarginsF(1, 2, 3, 4));
        QVERIFY(SPadding(1, 2, 3, 4).right() == 3 && SPadding(1, 2, 3, 4).bottom() == 4);
        // Qt takes these for equal.
        QVERIFY(SPointF(0.1 + 0.2, 0) != SPointF(0.3, 0));
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(SPointF(nan, 0) != SPointF(nan, 0));
    }

    void livesInVariants()
    {
        const QVariant value = QVariant::fromValue(SRectF(1, 2, 3, 4));
        QCOMPARE(value.value<SRectF>(), SRectF(1, 2, 3, 4));
        QCOMPARE(value, QVariant::fromValue(SRectF(1, 2, 3, 4)));
        QCOMPARE(QByteArray(value.typeName()), QByteArray("Quorvex::SRectF"));
    }

    void writes()
    {
        const QLocale german(QLocale::German);
        QCOMPARE(SPointF(0.1, -12345.5).toString(german), QStringLiteral("0,1; -12345,5"));
        QCOMPARE(SSizeF(3, 1e21).toString(QLocale::c()), QStringLiteral("3; 1e+21"));
        QCOMPARE(SRectF(1, 2, 3, 4).toString(QLocale::c()), QStringLiteral("1; 2; 3; 4"));
        QCOMPARE(SPadding(1, 2, 3, 4).toString(QLocale::c()), QStringLiteral("1; 2; 3; 4"));
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"", ";", "1", "1;", ";1", "1;2;3", "1,2", "1 2", "1;x", "1;0x2"})
            QTest::newRow(text) << QString::fromLatin1(text);
    }
    void refuses()
    {
        QFETCH(QString, text);
        QVERIFY(!SPointF::fromString(text, QLocale::c()));
        QVERIFY(!SRectF::fromString(text, QLocale::c()));
    }

    void reads()
    {
        QCOMPARE(SPointF::fromString(QStringLiteral(" 1.5;-2 "), QLocale::c()), SPointF(1.5, -2));
        // A point between digits is no decimal point here.
        QVERIFY(!SPointF::fromString(QStringLiteral("1.5; 2"), QLocale(QLocale::German)));
    }

    void readsBackInEveryLocale()
    {
        using Limits = std::numeric_limits<double>;
        const QList<QLocale> locales = QLocale::matchingLocales(
            QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
        QVERIFY(locales.size() > 300);
        for (const QLocale &locale : locales) {
            for (const SRectF &rect :
                {SRectF(Limits::lowest(), (Limits::max)(), Limits::denorm_min(), -(Limits::min)()),
                    SRectF(0.1, -1234567.875, 1e-7, -1),
                    SRectF(Limits::infinity(), -Limits::infinity(), -0.0, 1e300)}) {
                const QString text = rect.toString(locale);
                const auto again = SRectF::fromString(text, locale);
                QVERIFY2(again && *again == rect, qPrintable(locale.name() + text));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestGeometry)
#include "tst_geometry.moc"
