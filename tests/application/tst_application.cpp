#include "common.h"

namespace {

const QLocale German(QLocale::German, QLocale::Germany);

/// A global that uses the library to its end, and of the library what main() has used before.
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
    QLockFile lock(log.fileName() + string(".lock")); // Windows does not append at once.
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

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Where there would be catalogues without an application.
QString alone;

} // namespace

class TestApplication : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The earlier folder wins, down to the compiled-in catalogue.
    void searchOrder()
    {
        const QString tavex = string("tavex");
        const QString program = TavexApplication::applicationFolder();
        const QString beside = program + string("/tavex_de.qm");
        const QString below = program + string("/translations/tavex_de.qm");
        QVERIFY(QDir().mkpath(program + string("/translations")));
        const auto cleanUp = qScopeGuard([&] {
            for (const QString &file : {beside, below}) {
                QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner);
                QFile::remove(file);
            }
        });
        QTranslator translator;
        for (const QString &file : {string(":/translations/tavex_de.qm"), below, beside}) {
            QVERIFY(QFile::exists(file) || QFile::copy(string(":/translations/tavex_sv.qm"), file));
            QVERIFY(TavexApplication::qtTranslationLoad(&translator, tavex, German));
            QCOMPARE(translator.filePath(), file);
        }
        QCOMPARE(alone, string(":/ :/translations"));
        for (const QString &name : {QString(), QString(3, QChar()), string("missing")})
            QVERIFY(!TavexApplication::translationLoad(&translator, name, German));
        QVERIFY(!TavexApplication::translationLoad(nullptr, tavex, German));
        QVERIFY(!TavexApplication::qtTranslationLoad(nullptr, tavex, German));
    }

    void initLoadsWhatIsRegistered()
    {
        TavexApplication::translationRegister(string("tavex"));
        TavexApplication::translationRegister(string("missing"));
        TavexApplication::init(German);
        QCOMPARE(QLocale(), German);
        const auto added = TavexApplication::translations();
        QCOMPARE(added.size(), 3); // Qt's own, then the registered ones, loaded or not.
        QCOMPARE(added.at(1)->filePath(), string(":/translations/tavex_de.qm"));
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
        for (const QString &language :
            string("bg cs de en es fr it nl pl pt ru sv tlh tr zh zh_TW zh_HK zh_MO").split(u' ')) {
            QTranslator catalogue;
            const auto load = [&](const QString &name) {
                return catalogue.load(string(":/translations/%1_%2.qm").arg(name, language));
            };
            for (const SEnumTranslatorBase *enumeration : translators) {
                const QString name = enumeration->name();
                if (!load(name))
                    continue;
                ++count;
                for (const QString &key : enumeration->keys()) {
                    const QString word = catalogue.translate(qPrintable(name), qPrintable(key));
                    QVERIFY2(!word.isEmpty() && !word.contains(u'_'), qPrintable(language + key));
                    QVERIFY2(name != u"BinaryUnit" || word.size() <= 3, qPrintable(language));
                }
            }
            QVERIFY(load(string("tavex")));
            QVERIFY(!catalogue.translate("QObject", "Copyright").isEmpty());
            QVERIFY(
                catalogue.translate("S3rdParty", "en").startsWith(language.section(u'_', 0, 0)));
            expected.insert(SLocale(language).locale().language());
        }
        QCOMPARE(count, 4 * 18 - 1);
        for (const auto &[locale, name, key, word] : {std::tuple("tlh", "Bool", "False", "teHbe'"),
                 {"pt_BR", "ConcurrenceMode", "Default", "Padrão"},
                 {"pl", "ConcurrenceMode", "Default", "Domyślny"},
                 {"en", "ConcurrenceMode", "Full", "All"}, {"pt", "S3rdParty", "Website", "Site"},
                 {"zh_SG", "ConcurrenceMode", "Default", "默认"},
                 {"zh_Hant", "ConcurrenceMode", "Default", "預設"},
                 {"zh_HK", "S3rdParty", "Website", "網站"}}) {
            QTranslator catalogue;
            QVERIFY(TavexApplication::translationLoad(
                &catalogue, string(*name == 'S' ? "tavex" : name), SLocale(string(locale))));
            QCOMPARE(catalogue.translate(name, key), string(word));
        }
        QVERIFY(!QFile::exists(string(":/translations/BinaryUnit_tlh.qm")));

        const auto found = TavexApplication::translationList(string("tavex"));
        QCOMPARE(found.size(), 15);
        QCOMPARE(QSet(found.begin(), found.end()), expected);
        QVERIFY(TavexApplication::translationList(string("missing")).isEmpty());
    }

    void identityAndDataFolders()
    {
        const QTemporaryDir base;
        const QString folder = base.path() + string("/Dravelle/App");
        TavexApplication::infoRegister(
            string("App"), string("Dravelle"), string("1"), string("b"), string("c"));
        QCOMPARE(TavexApplication::createApplicationSubfolders(base.path() + u'/'), folder);
        QVERIFY(QFileInfo(folder).isDir());
        QCOMPARE(TavexApplication::createApplicationSubfolders(string("/proc/no")),
            string("/proc/no/Dravelle/App"));
        QVERIFY(TavexApplication::userApplicationDataFolder().endsWith(string("/Dravelle/App")));
        QCOMPARE(TavexApplication::applicationBuild() + TavexApplication::applicationCommit(),
            string("bc"));

        const QString year = QString::number(QDate::currentDate().year());
        TavexApplication::infoRegister({}, {}, {}, {}, {});
        QCOMPARE(TavexApplication::copyrightString(), string("Copyright %1.").arg(year));
        QCoreApplication::setOrganizationName(string("Dravelle Inc."));
        QCOMPARE(TavexApplication::copyrightString(2030),
            string("Copyright 2030-%1 Dravelle Inc.").arg(year));
    }

    void flags()
    {
        for (const auto &[locale, file] :
            {std::pair("de_AT", "at"), {"fil_PH", "ph"}, {"tlh", "tlh"}, {"C", ""}})
            QCOMPARE(TavexApplication::flagIconName(SLocale(string(locale))),
                string(":/flags/svg/%1.svg").arg(string(file)));

        const QDir folder(string(":/flags/svg"));
        const QStringList files = folder.entryList(QDir::Files);
        QCOMPARE(files.size(), 256);
        for (const QString &name : files) {
            QXmlStreamReader xml(content(folder.filePath(name)));
            QVERIFY(xml.readNextStartElement() && xml.name() == QStringLiteral("svg"));
            while (!xml.atEnd())
                xml.readNext();
            QVERIFY2(!xml.hasError(), qPrintable(name));
        }
        for (const char *code : {"de", "eu", "un", "gb-eng", "gb-nir", "gb-sct", "gb-wls", "tlh"})
            QVERIFY2(files.contains(string(code) + string(".svg")), code);
    }

    void licences()
    {
        const QByteArray licence = content(S3rdParty::licensePath(string("Qt")));
        QVERIFY(licence.contains("GNU LESSER GENERAL PUBLIC LICENSE\r\n"));
        QCOMPARE(licence.count('\n'), licence.count("\r\n"));
        QCOMPARE(QFileInfo(string(":/HALF_LICENSE")).size(), 1100);
        QCOMPARE(
            QResource(string(":/QT_LICENSE")).compressionAlgorithm(), QResource::NoCompression);

        QCOMPARE(S3rdParty::modules(), QStringList{string("Qt")});
        QVERIFY(S3rdParty::version(string("Qt")).isValid());
        QVERIFY(S3rdParty::version(string("y")).isNull() && !S3rdParty::isRegistered(string("y")));
        const QString hostile = string("\"><script>%1</script>&");
        const auto add = [](const QString &name, const QString &licencePath, const QString &site) {
            S3rdParty::registerModule(name, licencePath, site, SVersion(1, 2, 3));
        };
        add(string("lost"), {}, string("old"));
        add(string("lost"), string(":/none"), hostile);
        add({}, {}, {});
        add(hostile, string(":/HALF_LICENSE"), string("javascript:alert(1)"));
        const QTemporaryDir folder;
        add(string("no\x1b\nfile"), folder.path(), {});
        for (const QByteArray &text : {QByteArray(" \r\n\t\v"), QByteArray("word ").repeated(999),
                 QByteArray("One\x7f\rTwo\xc2\x85\r\nThree\xef\xb7\x90\n")}) {
            QFile file(folder.filePath(QString::number(text.size())));
            QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
            add(file.fileName(), file.fileName(), {});
        }
        QCOMPARE(S3rdParty::modules().size(), 7);
        QCOMPARE(S3rdParty::site(string("lost")), hostile);

        const auto use = [&](bool writes) { // The thread sanitizer watches.
            for (int i = 0; i < 300; ++i)
                writes ? add(string("lost"), string(":/none"), hostile)
                       : void(S3rdParty::modules() << S3rdParty::site(string("lost")));
        };
        together([&] { use(true); }, [&] { use(false); });
        // Its words are in English, in spite of the locale that init() was given.
        const QString page = S3rdParty::legalInformation();
        for (const auto &[part, count] : {std::pair("<a href=\"https://www.qt.io\">", 1),
                 {"<html lang=\"en\">", 1}, {"<script", 0}, {"href=\"javascript", 0}, {"\x1b", 0},
                 {"not available", 3}, {"<section", 4}, {"One\nTwo\nThree\n</pre>", 1},
                 {"GNU LESSER GENERAL PUBLIC LICENSE\n", 1}, {"no\nfile", 1},
                 {"word word\u2026</a>", 1}, {"&quot;&gt;&lt;script&gt;%1&lt;/script&gt;&amp;", 3}})
            QVERIFY2(page.count(string(part)) == count, part);
        QTranslator swedish;
        QVERIFY(swedish.load(string(":/translations/tavex_sv.qm")));
        QCoreApplication::installTranslator(&swedish);
        QVERIFY(S3rdParty::legalInformation().contains(string("<html lang=\"sv\">")));
    }

    void servesGlobalsToTheirEnd()
    {
        for (const auto &[language, words] :
            {std::pair("de", "WahrFalse\n"), {"", "TrueFalse\n"}}) {
            const QTemporaryDir folder;
            QFile file(folder.filePath(string("late")));
            QVERIFY(file.open(QFile::WriteOnly));
            file.close();
            QProcess process;
            process.start(QCoreApplication::applicationFilePath(),
                {string("--global"), file.fileName(), string(language)});
            QVERIFY(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit);
            QCOMPARE(process.readAllStandardOutput().replace('\r', ""), words);
            QVERIFY(!file.exists());
        }
    }

    void startsAgain()
    {
        for (const auto &[way, exitCode, times] :
            {std::tuple("--reboot", 7, 5), {"--restart", 0, 1}}) {
            const QTemporaryDir folder;
            const QString log = folder.filePath(string("log"));
            QProcess process;
            process.setWorkingDirectory(folder.path());
            process.start(QCoreApplication::applicationFilePath(),
                {string(way), log, string("a b"), QString(), string("\"c\"")});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), exitCode);
            const QByteArray start = "a b||\"c\"@";
            const QString place = QFileInfo(folder.path()).canonicalFilePath();
            const QByteArray again =
                start + QFile::encodeName(TavexApplication::applicationFolder());
            QTRY_COMPARE(content(log),
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
