#include <tavex/BinaryUnit>
#include <tavex/Bool>
#include <tavex/ConcurrenceMode>
#include <tavex/OperatingSystemType>
#include <tavex/S3rdParty>
#include <tavex/SLocale>
#include <tavex/TavexApplication>

#include <QDate>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QResource>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QXmlStreamReader>

using namespace Quorvex;

namespace {

const QLocale German(QLocale::German, QLocale::Germany);

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

const QStringList Languages =
    text("bg cs de en es fr it nl pl pt ru sv tlh tr zh").split(QLatin1Char(' '));

/// What the program does when startsAgain() starts it: it adds its arguments and its folder to the
/// file that the second argument names and, the first time, starts itself once more.
int actAsChild(const QStringList &arguments)
{
    QFile log(arguments.at(2));
    if (!log.open(QIODevice::Append))
        return 1;
    const bool isFirst = log.size() == 0;
    log.write((arguments.mid(3).join(u'|') + u'@' + QDir::currentPath() + u'\n').toUtf8());
    log.close();
    if (!isFirst)
        return 0;
    if (arguments.at(1) == QLatin1String("--restart")) {
        TavexApplication::restart();
        return 0;
    }
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [] { TavexApplication::reboot(7); });
    timer.start(0);
    return QCoreApplication::exec();
}

} // namespace

class TestApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The earlier folder wins, down to the compiled-in catalogue.
    void searchOrder()
    {
        const QString tavex = text("tavex");
        const QString program = TavexApplication::applicationFolder();
        const QString beside = program + text("/tavex_de.qm");
        const QString below = program + text("/translations/tavex_de.qm");
        QVERIFY(QDir().mkpath(program + text("/translations")));
        const auto cleanUp = qScopeGuard([&] {
            for (const QString &file : {beside, below}) {
                QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
                QFile::remove(file);
            }
        });
        QTranslator translator;
        for (const QString &file : {text(":/translations/tavex_de.qm"), below, beside}) {
            QVERIFY(QFile::exists(file) || QFile::copy(text(":/translations/tavex_sv.qm"), file));
            QVERIFY(TavexApplication::qtTranslationLoad(&translator, tavex, German));
            QCOMPARE(translator.filePath(), file);
        }
        QVERIFY(!TavexApplication::translationLoad(&translator, QString(), German));
        QVERIFY(!TavexApplication::translationLoad(&translator, text("missing"), German));
        QVERIFY(!TavexApplication::translationLoad(nullptr, tavex, German));
        QVERIFY(!TavexApplication::qtTranslationLoad(nullptr, tavex, German));
    }

    void initLoadsWhatIsRegistered()
    {
        TavexApplication::translationRegister(text("tavex"));
        TavexApplication::translationRegister(text("missing"));
        TavexApplication::init(German);
        QCOMPARE(QLocale(), German);
        const auto added = TavexApplication::translations();
        QCOMPARE(added.size(), 3); // Qt's own, then the registered ones, loaded or not.
        QCOMPARE(added.at(1)->filePath(), text(":/translations/tavex_de.qm"));
        QVERIFY(added.at(2)->isEmpty());

        TavexApplication::init(QLocale(QLocale::Polish));
        QCOMPARE(TavexApplication::translations().mid(0, 3), added);
        QCOMPARE(TavexApplication::translations().size(), 6);
    }

    // Every key has words in every language, in a catalogue of its own.
    void catalogues()
    {
        const SEnumTranslatorBase *translators[] = {&Bool_TR::instance(),
            &BinaryUnit_TR::instance(), &ConcurrenceMode_TR::instance(),
            &OperatingSystemType_TR::instance()};
        int count = 0;
        QSet<QLocale::Language> expected;
        for (const QString &language : Languages) {
            QTranslator catalogue;
            const auto load = [&](const QString &name) {
                return catalogue.load(text(":/translations/%1_%2.qm").arg(name, language));
            };
            for (const SEnumTranslatorBase *enumeration : translators) {
                const QString name = enumeration->name();
                if (!load(name))
                    continue;
                ++count;
                for (const QString &key : enumeration->keys())
                    QVERIFY2(!catalogue.translate(qPrintable(name), qPrintable(key)).isEmpty(),
                        qPrintable(language + key));
            }
            QVERIFY(load(text("tavex")));
            QVERIFY(!catalogue.translate("QObject", "Copyright").isEmpty());
            expected.insert(SLocale(language).locale().language());
        }
        QCOMPARE(count, 4 * 15 - 1);
        QVERIFY(!QFile::exists(text(":/translations/BinaryUnit_tlh.qm")));

        const auto found = TavexApplication::translationList(text("tavex"));
        QCOMPARE(found.size(), 15);
        QCOMPARE(QSet<QLocale::Language>(found.begin(), found.end()), expected);
        QVERIFY(TavexApplication::translationList(text("missing")).isEmpty());
    }

    void identityAndDataFolders()
    {
        const QTemporaryDir base;
        const QString folder = base.path() + text("/Dravelle/App");
        TavexApplication::infoRegister(
            text("App"), text("Dravelle"), text("1"), text("b"), text("c"));
        QCOMPARE(TavexApplication::createApplicationSubfolders(base.path() + u'/'), folder);
        QVERIFY(QFileInfo(folder).isDir());
        QCOMPARE(TavexApplication::createApplicationSubfolders(text("/proc/no")),
            text("/proc/no/Dravelle/App"));
        QVERIFY(TavexApplication::userApplicationDataFolder().endsWith(text("/Dravelle/App")));
        QCOMPARE(TavexApplication::applicationBuild() + TavexApplication::applicationCommit(),
            text("bc"));

        const QString year = QString::number(QDate::currentDate().year());
        TavexApplication::infoRegister({}, {}, {}, {}, {});
        QCOMPARE(TavexApplication::copyrightString(), text("Copyright %1.").arg(year));
        QCoreApplication::setOrganizationName(text("Dravelle Inc."));
        QCOMPARE(TavexApplication::copyrightString(2030),
            text("Copyright 2030-%1 Dravelle Inc.").arg(year));
    }

    void flags()
    {
        for (const auto &[locale, file] :
            {std::pair("de_AT", "at"), {"fil_PH", "ph"}, {"tlh", "tlh"}, {"C", ""}})
            QCOMPARE(TavexApplication::flagIconName(SLocale(text(locale))),
                text(":/flags/svg/%1.svg").arg(text(file)));

        const QDir folder(text(":/flags/svg"));
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
            QVERIFY2(files.contains(text(code) + text(".svg")), code);
    }

    void licences()
    {
        QFile qt(S3rdParty::licensePath(text("Qt")));
        QVERIFY(qt.open(QIODevice::ReadOnly));
        const QByteArray licence = qt.readAll();
        QVERIFY(licence.contains("GNU LESSER GENERAL PUBLIC LICENSE\r\n"));
        QCOMPARE(licence.count('\n'), licence.count("\r\n"));
        QCOMPARE(QFileInfo(text(":/HALF_LICENSE")).size(), 1100);
        QCOMPARE(QResource(text(":/QT_LICENSE")).compressionAlgorithm(), QResource::NoCompression);

        QCOMPARE(S3rdParty::modules(), QStringList{text("Qt")});
        QVERIFY(S3rdParty::version(text("Qt")).isValid());
        QVERIFY(S3rdParty::version(text("y")).isNull() && !S3rdParty::isRegistered(text("y")));
        const QString hostile = text("\"><script>%1</script>&");
        const auto add = [](const QString &name, const QString &licencePath, const QString &site) {
            S3rdParty::registerModule(name, licencePath, site, SVersion(1, 2, 3));
        };
        add(text("lost"), {}, text("old"));
        add(text("lost"), text(":/none"), hostile);
        add({}, {}, {});
        add(hostile, text(":/HALF_LICENSE"), text("javascript:alert(1)"));
        QCOMPARE(S3rdParty::modules().size(), 3);
        QCOMPARE(S3rdParty::site(text("lost")), hostile);

        const QString page = S3rdParty::legalInformation();
        for (const char *part :
            {"GNU LESSER GENERAL PUBLIC LICENSE", "&quot;&gt;&lt;script&gt;%1&lt;/script&gt;&amp;",
                "<a href=\"https://www.qt.io\">"})
            QVERIFY2(page.contains(text(part)), part);
        for (const char *part : {"<script", "href=\"javascript"})
            QVERIFY2(!page.contains(text(part)), part);
        QCOMPARE(page.count(text("not available")), 1);
        QCOMPARE(page.count(text("<section")), 2);
    }

    void startsAgain()
    {
        for (const auto &[option, exitCode] : {std::pair("--restart", 0), {"--reboot", 7}}) {
            const QTemporaryDir folder;
            QFile log(folder.filePath(text("log")));
            QProcess process;
            process.setWorkingDirectory(folder.path());
            process.start(QCoreApplication::applicationFilePath(),
                {text(option), log.fileName(), text("a b"), QString(), text("\"c\"")});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), exitCode);
            QVERIFY(log.open(QIODevice::ReadOnly));
            QByteArrayList lines;
            QTRY_VERIFY(log.seek(0) && (lines = log.readAll().split('\n')).size() == 3);
            const QString folders[] = {QFileInfo(folder.path()).canonicalFilePath(),
                TavexApplication::applicationFolder()};
            for (int i = 0; i < 2; ++i)
                QCOMPARE(lines.at(i), "a b||\"c\"@" + QFile::encodeName(folders[i]));
        }
    }
};

int main(int argc, char *argv[])
{
    TavexApplication::reboot(1); // Nothing to reboot yet.
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1).startsWith(QLatin1String("--re")))
        return actAsChild(arguments);
    TestApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_application.moc"
