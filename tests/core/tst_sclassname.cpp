#include <tavex/SClassName>

#include <QTest>

using Quorvex::SClassName;

namespace Quorvex {
class SMetaInt32
{
public:
    virtual ~SMetaInt32() = default;
};
} // namespace Quorvex

class TestSClassName : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameOfType()
    {
        QCOMPARE(SClassName::name(typeid(Quorvex::SMetaInt32)), QStringLiteral("SMetaInt32"));
        QCOMPARE(SClassName::name(typeid(int)), QStringLiteral("int"));
    }

    void words_data()
    {
        QTest::addColumn<QString>("words");
        QTest::newRow("SMetaInt32") << QStringLiteral("Int 32");
        QTest::newRow("SMetaJsonDocument") << QStringLiteral("Json Document");
        QTest::newRow("SMetaListUInt16") << QStringLiteral("List UInt 16");
        QTest::newRow("SMetaDateTime") << QStringLiteral("Date Time");
        QTest::newRow("My_Own__Value") << QStringLiteral("My Own Value");
        QTest::newRow("a|b") << QStringLiteral("a |b"); // The bar begins a word as a digit does.
        QTest::newRow("Sample") << QStringLiteral("Sample");
        QTest::newRow("S") << QStringLiteral("S");
        QTest::newRow("") << QStringLiteral("");
    }
    void words()
    {
        QFETCH(QString, words);
        QCOMPARE(SClassName::displayName(QString::fromLatin1(QTest::currentDataTag())), words);
    }
};

QTEST_APPLESS_MAIN(TestSClassName)
#include "tst_sclassname.moc"
