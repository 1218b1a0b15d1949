#include "common.h"

namespace {

const QLocale German(QLocale::German, QLocale::Germany);

/// A global whose destructor still uses the library, and only what main() has used before.
struct Global
{
    ~Global()
    {
        if (file.isEmpty())
            return;
        SFileHelper::deleteFileOnExit(file);
        std::puts(qPrintable(SConvert::toString(true) + SConvert::toString(Bool::False)));
    }
    QString file;
} global;

/// What the program does when startsAgain() starts it: it adds its arguments and its folder to the
/// file that the second argument names and, the first time, starts itself again.
int actAsChild(const QStringList &arguments)
{
    QFile log(arguments.at(2));
    QLockFile lock(log.fileName() + ".lock"_s); // Appending is not atomic on Windows.
    if (!lock.lock() || !log.open(QIODevice::Append))
        return 1;
    const bool isFirst = log.size() == 0;
    log.write((arguments.mid(3).join(u'|') + u'@' + QDir::currentPath() + u'\n').toUtf8());
    log.close();
    lock.unlock();
    const bool restarts = arguments.at(1) == QLatin1String("--restart");
    if (isFirst && restarts)
        TavexApplication::restart();
    if (!isFirst || restarts)
        return 0;
    int reboots = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&reboots] {
        if (reboots == 0)
            QCoreApplication::exit(3);
        for (; reboots > 0; --reboots)
            TavexApplication::reboot(7);
    });
    timer.start(0);
    TavexApplication::reboot(6); // Of the first loop only.
    QCoreApplication::exec();
    reboots = 4;
    return QCoreApplication::exec();
}

/// The folders for catalogues while there is no QCoreApplication.
QString alone;

} // namespace

class TestApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The earlier folder wins, down to the compiled-in catalogue.
    void searchOrder()
    {
        const QString tavex = "tavex"_s;
        const QString program = TavexApplication::applicationFolder();
        const QString beside = program + "/tavex_de.qm"_s;
        const QString below = program + "/translations/tavex_de.qm"_s;
        QVERIFY(QDir().mkpath(program + "/translations"_s));
        const auto cleanUp = qScopeGuard([&] {
            for (const QString &file : {beside, below}) {
                QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
                QFile::remove(file);
            }
        });
        QTranslator translator;
        for (const QString &file : {":/translations/tavex_de.qm"_s, below, beside}) {
            if (!QFile::exists(file))
                QVERIFY(QFile::copy(":/translations/tavex_sv.qm"_s, file));
            QVERIFY(TavexApplication::qtTranslationLoad(&translator, tavex, German));
            QCOMPARE(translator.filePath(), file);
        }
        QCOMPARE(alone, ":/ :/translations"_s);
        for (const QString &name : {QString(), QString(3, QChar()), "missing"_s})
            QVERIFY(!TavexApplication::translationLoad(&translator, name, German));
        QVERIFY(!TavexApplication::translationLoad(nullptr, tavex, German));
        QVERIFY(!TavexApplication::qtTranslationLoad(nullptr, tavex, German));
    }

    void initLoadsWhatIsRegistered()
    {
        TavexApplication::translationRegister("tavex"_s);
        TavexApplication::translationRegister("missing"_s);
        TavexApplication::init(German);
        QCOMPARE(QLocale(), German);
        const auto added = TavexApplication::translations();
        QCOMPARE(added.size(), 3); // Qt's own, then the registered ones, loaded or not.
        QCOMPARE(added.at(1)->filePath(), ":/translations/tavex_de.qm"_s);
        QVERIFY(added.at(2)->isEmpty());

        TavexApplication::init(QLocale(QLocale::Polish));
        QCOMPARE(TavexApplication::translations().mid(0, 3), added);
        QCOMPARE(TavexApplication::translations().size(), 6);
    }

    // Every key has an English word; that the other languages have the same texts, lint tells.
    void catalogues()
    {
        for (const SEnumTranslatorBase *enumeration :
            std::initializer_list<const SEnumTranslatorBase *>{&Bool_TR::instance(),
                &BinaryUnit_TR::instance(), &ConcurrenceMode_TR::instance(),
                &OperatingSystemType_TR::instance()}) {
            const QString name = enumeration->name();
            QTranslator catalogue;
            QVERIFY2(catalogue.load(":/translations/%1_en.qm"_s.arg(name)), qPrintable(name));
            for (const QString &key : enumeration->keys())
                QVERIFY2(!catalogue.translate(qPrintable(name), qPrintable(key)).isEmpty(),
                    qPrintable(name + key));
        }
        for (const auto &[locale, name, key, word] : {std::tuple("tlh", "Bool", "False", "teHbe'"),
                 {"pt_BR", "ConcurrenceMode", "Default", "Padrão"},
                 {"de_AT", "S3rdParty", "en", "de"}, {"zh_SG", "S3rdParty", "Website", "网站"},
                 {"zh_Hant", "ConcurrenceMode", "Default", "預設"},
                 {"zh_HK", "S3rdParty", "Website", "網站"}}) {
            QTranslator catalogue;
            QVERIFY(TavexApplication::translationLoad(
                &catalogue, string(*name == 'S' ? "tavex" : name), SLocale(string(locale))));
            COMPARE_ROW(locale, catalogue.translate(name, key), string(word));
        }

        QSet<QLocale::Language> expected;
        for (const QString &name : "bg cs de en es fr it nl pl pt ru sv tlh tr zh"_s.split(u' '))
            expected.insert(SLocale(name).locale().language());
        const auto found = TavexApplication::translationList("tavex"_s);
        QCOMPARE(QSet(found.begin(), found.end()), expected);
        QCOMPARE(found.size(), expected.size());
        QCOMPARE(TavexApplication::translationList("missing"_s).size(), 0);
    }

    void identityAndDataFolders()
    {
        const QTemporaryDir base;
        const QString folder = base.path() + "/Dravelle/App"_s;
        TavexApplication::infoRegister("App"_s, "Dravelle"_s, "1"_s, "b"_s, "c"_s);
        QCOMPARE(TavexApplication::createApplicationSubfolders(base.path() + u'/'), folder);
        QVERIFY(QFileInfo(folder).isDir());
        QCOMPARE(
            TavexApplication::createApplicationSubfolders("/proc/no"_s), "/proc/no/Dravelle/App"_s);
        QVERIFY(TavexApplication::userApplicationDataFolder().endsWith("/Dravelle/App"_s));
        QCOMPARE(
            TavexApplication::applicationBuild() + TavexApplication::applicationCommit(), "bc"_s);

        const QString year = QString::number(QDate::currentDate().year());
        TavexApplication::infoRegister({}, {}, {}, {}, {});
        QCOMPARE(TavexApplication::copyrightString(), "Copyright %1."_s.arg(year));
        QCoreApplication::setOrganizationName("Dravelle Inc."_s);
        QCOMPARE(
            TavexApplication::copyrightString(2030), "Copyright 2030-%1 Dravelle Inc."_s.arg(year));
    }

    void flags()
    {
        for (const auto &[locale, file] :
            {std::pair("de_AT", "at"), {"fil_PH", "ph"}, {"tlh", "tlh"}, {"C", ""}})
            COMPARE_ROW(locale, TavexApplication::flagIconName(SLocale(string(locale))),
                ":/flags/svg/%1.svg"_s.arg(string(file)));
        const QDir folder(":/flags/svg"_s);
        QVERIFY(folder.entryList(QDir::Files).size() > 250);
        for (const char *code : {"de.svg", "gb-eng.svg", "tlh.svg"})
            QVERIFY2(contentOf(folder.filePath(string(code))).contains("<svg"), code);
    }

    void licences()
    {
        const QByteArray licence = contentOf(S3rdParty::licensePath("Qt"_s));
        QVERIFY(licence.contains("GNU LESSER GENERAL PUBLIC LICENSE\r\n"));
        QCOMPARE(licence.count('\n'), licence.count("\r\n"));
        QCOMPARE(QFileInfo(":/HALF_LICENSE"_s).size(), 1100);
        QCOMPARE(QResource(":/QT_LICENSE"_s).compressionAlgorithm(), QResource::NoCompression);

        QCOMPARE(S3rdParty::modules(), QStringList{"Qt"_s});
        QVERIFY(S3rdParty::version("Qt"_s).isValid());
        QVERIFY(S3rdParty::version("y"_s).isNull());
        QVERIFY(!S3rdParty::isRegistered("y"_s));
        const QString hostile = "\"><script>%1</script>&"_s;
        const auto add = [](const QString &name, const QString &licencePath, const QString &site) {
            S3rdParty::registerModule(name, licencePath, site, SVersion(1, 2, 3));
        };
        add("lost"_s, {}, "old"_s);
        add("lost"_s, ":/none"_s, hostile);
        add({}, {}, {});
        add(hostile, ":/HALF_LICENSE"_s, "javascript:alert(1)"_s);
        const QTemporaryDir folder;
        add("no\x1b\nfile"_s, folder.path(), {});
        for (const QByteArray &text : {QByteArray(" \r\n\t\v"), QByteArray("word ").repeated(999),
                 QByteArray("One\x7f\rTwo\xc2\x85\r\nThree\xef\xb7\x90\n")}) {
            const QString file = folder.filePath(QString::number(text.size()));
            QVERIFY(putFile(file, text));
            add(file, file, {});
        }
        QCOMPARE(S3rdParty::modules().size(), 7);
        QCOMPARE(S3rdParty::site("lost"_s), hostile);

        const auto use = [&](bool writes) { // The thread sanitizer watches.
            for (int i = 0; i < 300; ++i)
                writes ? add("lost"_s, ":/none"_s, hostile)
                       : void(S3rdParty::modules() << S3rdParty::site("lost"_s));
        };
        together([&] { use(true); }, [&] { use(false); });
        // Its words are in English, although init() was given another locale.
        const QString page = S3rdParty::legalInformation();
        for (const auto &[part, count] : {std::pair("<a href=\"https://www.qt.io\">", 1),
                 {"<html lang=\"en\">", 1}, {"<script", 0}, {"href=\"javascript", 0}, {"\x1b", 0},
                 {"not available", 3}, {"<section", 4}, {"One\nTwo\nThree\n</pre>", 1},
                 {"GNU LESSER GENERAL PUBLIC LICENSE\n", 1}, {"no\nfile", 1},
                 {"word word\u2026</a>", 1}, {"&quot;&gt;&lt;script&gt;%1&lt;/script&gt;&amp;", 3}})
            COMPARE_ROW(part, int(page.count(string(part))), count);
        QTranslator swedish;
        QVERIFY(swedish.load(":/translations/tavex_sv.qm"_s));
        QCoreApplication::installTranslator(&swedish);
        QVERIFY(S3rdParty::legalInformation().contains("<html lang=\"sv\">"_s));
    }

    void servesGlobalsToTheirEnd()
    {
        for (const auto &[language, words] :
            {std::pair("de", "WahrFalse\n"), {"", "TrueFalse\n"}}) {
            const QTemporaryDir folder;
            const QString file = folder.filePath("late"_s);
            QVERIFY(putFile(file));
            QProcess process;
            process.start(
                QCoreApplication::applicationFilePath(), {"--global"_s, file, string(language)});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::NormalExit);
            QCOMPARE(process.readAllStandardOutput().replace('\r', ""), words);
            QVERIFY(!QFile::exists(file));
        }
    }

    void startsAgain()
    {
        for (const auto &[way, exitCode, times] :
            {std::tuple("--reboot", 7, 5), {"--restart", 0, 1}}) {
            const QTemporaryDir folder;
            const QString log = folder.filePath("log"_s);
            QProcess process;
            process.setWorkingDirectory(folder.path());
            process.start(QCoreApplication::applicationFilePath(),
                {string(way), log, "a b"_s, QString(), "\"c\""_s});
            QVERIFY(process.waitForFinished());
            COMPARE_ROW(way, process.exitCode(), exitCode);
            const QByteArray start = "a b||\"c\"@";
            const QString place = QFileInfo(folder.path()).canonicalFilePath();
            const QByteArray again =
                start + QFile::encodeName(TavexApplication::applicationFolder());
            QTRY_COMPARE(contentOf(log),
                start + QFile::encodeName(place) + '\n' + (again + '\n').repeated(times));
        }
    }
};

int main(int argc, char *argv[])
{
    TavexApplication::reboot(1); // Nothing to reboot or to start yet.
    TavexApplication::restart();
    alone = TavexApplication::applicationFolder() + TavexApplication::translationPaths().join(u' ');
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1).startsWith(QLatin1String("--re")))
        return actAsChild(arguments);
    if (arguments.value(1) == QLatin1String("--global")) {
        if (!arguments.value(3).isEmpty())
            TavexApplication::init(QLocale(arguments.at(3)));
        global.file = SFileHelper::deleteFileOnExit(arguments.value(2));
        return SConvert::toString(true).isEmpty();
    }
    TestApplication test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_application.moc"
