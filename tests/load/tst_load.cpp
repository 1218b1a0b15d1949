#include <QFile>
#include <QMetaType>
#include <QTest>
#include <QTranslator>

#include <dlfcn.h>

#include <memory>

namespace {

bool isMapped(const QByteArray &name)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name);
}

/// The memory of the process that is its own, in KiB.
qint64 ownMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith("RssAnon:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
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
    void loadUseUnload_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<bool>("use");
        QTest::newRow("library") << QStringLiteral(LIBRARY_FILE) << false;
        QTest::newRow("plug-in") << QStringLiteral(PLUGIN_FILE) << true;
    }
    void loadUseUnload()
    {
        QFETCH(QString, file);
        QFETCH(bool, use);
        [[maybe_unused]] qint64 settledMemory = 0;
        for (int round = 0; round < 150; ++round) {
            void *module = dlopen(QFile::encodeName(file).constData(), RTLD_NOW | RTLD_LOCAL);
            QVERIFY2(module, dlerror());
            QVERIFY(isKnown("Quorvex::Bool") && isKnown("Quorvex::SVersion"));
            QVERIFY(QFile::exists(QStringLiteral(":/flags/svg/de.svg")));
            QVERIFY(QFile::exists(QStringLiteral(":/HALF_LICENSE")));
            if (use) {
                const auto useLibrary = reinterpret_cast<int (*)()>(dlsym(module, "useLibrary"));
                QVERIFY(useLibrary);
                QCOMPARE(useLibrary(), 0);
            }
            QCOMPARE(dlclose(module), 0);

            QVERIFY(!isMapped("libtavex"));
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
