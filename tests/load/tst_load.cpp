#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QMetaType>
#include <QTest>
#include <QTranslator>

#include <memory>

#ifdef Q_OS_WIN
#include <windows.h>

#include <psapi.h>
#endif

namespace {

bool isMapped(const QString &file)
{
    const QString name = QFileInfo(file).fileName();
#ifdef Q_OS_WIN
    return GetModuleHandleW(reinterpret_cast<LPCWSTR>(name.utf16())) != nullptr;
#else
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name.toUtf8());
#endif
}

/// The memory of the process that is its own, in KiB.
qint64 ownMemory()
{
#ifdef Q_OS_WIN
    PROCESS_MEMORY_COUNTERS counters{};
    if (K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters)))
        return static_cast<qint64>(counters.PagefileUsage / 1024);
#else
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("RssAnon:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
#endif
    return 0;
}

bool isKnown(const char *type)
{
    return QMetaType::fromName(type).isValid();
}

} // namespace

class TestLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loadUseUnload()
    {
        for (const auto &[file, use] : {std::pair(LIBRARY_FILE, false), {PLUGIN_FILE, true}}) {
            [[maybe_unused]] qint64 settledMemory = 0;
            for (int round = 0; round < 150; ++round) {
                QLibrary module(QString::fromUtf8(file));
                module.setLoadHints(QLibrary::ResolveAllSymbolsHint);
                QVERIFY2(module.load(), qPrintable(module.errorString()));
                QVERIFY(isKnown("Quorvex::Bool") && isKnown("Quorvex::SVersion"));
                QVERIFY(QFile::exists(QStringLiteral(":/flags/svg/de.svg")));
                QVERIFY(QFile::exists(QStringLiteral(":/HALF_LICENSE")));
                if (use) {
                    const auto useLibrary =
                        reinterpret_cast<int (*)()>(module.resolve("useLibrary"));
                    QVERIFY(useLibrary);
                    QCOMPARE(useLibrary(), 0);
                }
                QVERIFY(isMapped(QStringLiteral(LIBRARY_FILE)));
                QVERIFY(module.unload());

                QVERIFY(!isMapped(QStringLiteral(LIBRARY_FILE)));
                QVERIFY(!isKnown("Quorvex::Bool") && !isKnown("Quorvex::SVersion"));
                QVERIFY(!isKnown("QList<short>"));
                QVERIFY(!QFile::exists(QStringLiteral(":/flags/svg/de.svg")));
                QVERIFY(!QFile::exists(QStringLiteral(":/HALF_LICENSE")));
                if (round == 30)
                    settledMemory = ownMemory();
            }
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
            // 120 rounds that lost only their key tables would have cost more than this. (The
            // sanitizers hold memory back, and find leaks themselves.)
            QVERIFY2(ownMemory() - settledMemory < 512, qPrintable(QString::number(ownMemory())));
#endif
        }
    }

    // Types that are registered afterwards take the places of those that went.
    void qtGoesOn()
    {
        struct Local
        {
        };
        const int id = QMetaType::fromType<std::shared_ptr<Local>>().id();
        QVERIFY(QMetaType(id).isValid() && QMetaType(id).name() != nullptr);
        for (int type = QMetaType::User; type < QMetaType::User + 100; ++type)
            QVERIFY(!QMetaType::isRegistered(type) || QMetaType(type).name());
        QTranslator translator;
        QVERIFY(!translator.load(QStringLiteral(":/translations/tavex_de.qm")));
    }
};

QTEST_GUILESS_MAIN(TestLoad)
#include "tst_load.moc"
