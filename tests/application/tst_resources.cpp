#include <tavex/BinaryUnit>
#include <tavex/Bool>
#include <tavex/ConcurrenceMode>
#include <tavex/OperatingSystemType>
#include <tavex/S3rdParty>
#include <tavex/TavexApplication>

#include <QDir>
#include <QFile>
#include <QResource>
#include <QTest>
#include <QXmlStreamReader>

using namespace Quorvex;

class TestResources : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every key has words in every language, in a catalogue of its own.
    void catalogues()
    {
        const QStringList languages =
            QStringLiteral("bg cs de en es fr it nl pl pt ru sv tlh tr zh").split(QLatin1Char(' '));
        const SEnumTranslatorBase *translators[] = {&Bool_TR::instance(),
            &BinaryUnit_TR::instance(), &ConcurrenceMode_TR::instance(),
            &OperatingSystemType_TR::instance()};
        int count = 0;
        for (const QString &language : languages) {
            const auto file = [&](const QString &name) {
                return QStringLiteral(":/translations/%1_%2.qm").arg(name, language);
            };
            for (const SEnumTranslatorBase *enumeration : translators) {
                QTranslator catalogue;
                if (!catalogue.load(file(enumeration->name())))
                    continue;
                ++count;
                for (const QString &key : enumeration->keys()) {
                    QVERIFY2(!catalogue
                                  .translate(enumeration->name().toLatin1().constData(),
                                      key.toLatin1().constData())
                                  .isEmpty(),
                        qPrintable(language + key));
                }
            }
            QTranslator general;
            QVERIFY(general.load(file(QStringLiteral("tavex"))));
            QVERIFY(!general.translate("QObject", "Copyright").isEmpty());
        }
        QCOMPARE(count, 4 * 15 - 1);
        QVERIFY(!QFile::exists(QStringLiteral(":/translations/BinaryUnit_tlh.qm")));
    }

    void flags()
    {
        const QDir folder(QStringLiteral(":/flags/svg"));
        const QStringList files = folder.entryList(QDir::Files);
        QCOMPARE(files.size(), 256);
        for (const QString &name : files) {
            QFile file(folder.filePath(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QXmlStreamReader xml(&file);
            QVERIFY(xml.readNextStartElement() && xml.name() == QStringLiteral("svg"));
            while (!xml.atEnd())
                xml.readNext();
            QVERIFY2(!xml.hasError(), qPrintable(name));
        }
        for (const char *code : {"de", "eu", "un", "gb-eng", "gb-nir", "gb-sct", "gb-wls", "tlh"})
            QVERIFY(files.contains(QString::fromLatin1(code) + QStringLiteral(".svg")));
    }

    void licences()
    {
        QFile qt(S3rdParty::licensePath(QStringLiteral("Qt")));
        QVERIFY(qt.open(QIODevice::ReadOnly));
        const QByteArray text = qt.readAll();
        QVERIFY(text.contains("GNU LESSER GENERAL PUBLIC LICENSE\r\n"));
        QCOMPARE(text.count('\n'), text.count("\r\n"));
        QCOMPARE(QFileInfo(QStringLiteral(":/HALF_LICENSE")).size(), 1100);
        QCOMPARE(QResource(QStringLiteral(":/QT_LICENSE")).compressionAlgorithm(),
            QResource::NoCompression);
    }

    void components()
    {
        QCOMPARE(S3rdParty::modules(), QStringList{QStringLiteral("Qt")});
        QVERIFY(S3rdParty::version(QStringLiteral("Qt")).isValid());
        S3rdParty::registerModule(QStringLiteral("x"), {}, QStringLiteral("old"), SVersion());
        S3rdParty::registerModule(
            QStringLiteral("x"), {}, QStringLiteral("new"), SVersion(1, 2, 3));
        S3rdParty::registerModule({}, {}, {}, SVersion());
        QCOMPARE(S3rdParty::modules().size(), 2);
        QCOMPARE(S3rdParty::site(QStringLiteral("x")), QStringLiteral("new"));
        QVERIFY(!S3rdParty::isRegistered(QStringLiteral("y")));
        QVERIFY(S3rdParty::version(QStringLiteral("y")).isNull());
    }

    void legalInformation()
    {
        const QString hostile = QStringLiteral("\"><script>%1</script>&");
        S3rdParty::registerModule(hostile, QStringLiteral(":/HALF_LICENSE"),
            QStringLiteral("javascript:alert(1)"), SVersion(1, 2, 3));
        S3rdParty::registerModule(QStringLiteral("lost"), QStringLiteral(":/none"), hostile, {});
        const QString page = S3rdParty::legalInformation();
        QVERIFY(page.contains(QStringLiteral("GNU LESSER GENERAL PUBLIC LICENSE")));
        QVERIFY(page.contains(QStringLiteral("&quot;&gt;&lt;script&gt;%1&lt;/script&gt;&amp;")));
        QVERIFY(!page.contains(QStringLiteral("<script")));
        QVERIFY(!page.contains(QStringLiteral("href=\"javascript")));
        QCOMPARE(page.count(QStringLiteral("not available")), 2); // lost, and x of components().
        QCOMPARE(page.count(QStringLiteral("<section")), 2);
        QVERIFY(page.contains(QStringLiteral("<a href=\"https://www.qt.io\">")));
    }
};

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
