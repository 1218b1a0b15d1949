#include <QAssociativeIterable>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QMetaType>
#include <QSequentialIterable>
#include <QTest>
#include <QTranslator>

#include <array>
#include <memory>
#include <utility>

#ifdef Q_OS_WIN
#include <windows.h>

#include <psapi.h>
#endif

// The program's own description of one of the library's types.
namespace Quorvex {
enum class SIPrefix : qint32;
}

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

template <typename... T>
bool areUnknown()
{
    return (!isKnown(QMetaType::fromType<T>().name()) && ...);
}

/// Takes free numbers of types.
template <int... I>
void registerMany(std::integer_sequence<int, I...>)
{
    (QMetaType::fromType<std::array<char, I + 1>>().id(), ...);
}

/// Whether Qt knows the program's lists of \a T by a number and a description that are theirs.
template <typename T>
bool isKept()
{
    const QList<T> list{1, 2};
    const QVariant variant = QVariant::fromValue(list);
    const QMetaType known(variant.userType());
    return qstrcmp(known.name(), QMetaType::fromType<QList<T>>().name()) == 0
        && variant.value<QList<T>>() == list
        && QVariant(known, &list).value<QList<T>>() == list; // So queued signals copy it.
}

/// Whether Qt also reaches the elements.
template <typename T>
bool isWhole()
{
    const QVariant variant = QVariant::fromValue(QList<T>{1, 2});
    return isKept<T>() && variant.toList() == QVariantList{T(1), T(2)}
    && variant.value<QSequentialIterable>().size() == 2;
}

bool areMapsWhole()
{
    const auto map = QVariant::fromValue(QMap<QString, short>{{QStringLiteral("a"), 2}});
    const auto pair = QVariant::fromValue(std::pair<short, QString>(1, {}));
    return map.toMap().size() == 1 && map.value<QAssociativeIterable>().size() == 1
        && pair.value<std::pair<QVariant, QVariant>>().first == 1;
}

} // namespace

class TestLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Whoever is the first to use a type, the program can go on using it.
    void typesOfTheProgram()
    {
        enum { Int8, UInt8, Int16, Single, Double, Size };
        const QMetaType own = QMetaType::fromType<Quorvex::SIPrefix>();
        own.id();
        QVERIFY(isWhole<qint8>());
        const QVariant alive = QVariant::fromValue(QList<qint8>{1, 2});
        for (int round = 0; round < 3; ++round) {
            QLibrary modules[] = {
                QLibrary(QStringLiteral(PLUGIN_FILE)), QLibrary(QStringLiteral(OTHER_PLUGIN_FILE))};
            QVariantList made;
            for (QLibrary &module : modules) {
                QVERIFY(module.load());
                made.clear();
                reinterpret_cast<void (*)(QVariantList *)>(module.resolve("makeLists"))(&made);
                QCOMPARE(made.size(), Size);
            }
            if (round == 0) {
                const bool isSilent = areUnknown<QList<quint8>, QList<qint16>, QList<float>,
                    QList<double>, QList<bool>, QList<QList<int>>, QList<int>>();
                QVERIFY(isSilent && !isKnown("PluginEnum"));
            } else {
                QVERIFY(isWhole<qint16>());
            }
            QVERIFY(isWhole<qint8>() && isWhole<quint8>());
            QCOMPARE(made[Int8].toList(), alive.toList());
            QCOMPARE(made[UInt8].value<QList<quint8>>(), (QList<quint8>{1, 2}));
            // The program asks for the numbers of lists that the library has made.
            QCOMPARE(made[Single].value<QList<float>>(), (QList<float>{1, 2}));
            QVERIFY(made[Single] == made[Single] && made[Double].toList().size() == 2);
            QVERIFY(isWhole<float>());
            made.clear();
            QVERIFY(modules[round % 2].unload());
            QVERIFY(isWhole<qint8>() && isWhole<quint8>() && isWhole<float>());
            QVERIFY(modules[1 - round % 2].unload());
            QVERIFY(!isMapped(QStringLiteral(LIBRARY_FILE)));

            if (round == 0)
                registerMany(std::make_integer_sequence<int, 50>());
            QVERIFY(isWhole<qint8>() && isWhole<quint8>() && isWhole<qint16>() && isWhole<int>());
            QVERIFY(areMapsWhole());
            QCOMPARE(alive.toList(), (QVariantList{1, 2}));
            QVERIFY(isKept<float>() && isKept<double>());
            QVERIFY(QMetaType::fromName(own.name()).iface() == own.iface());
        }
        // What went was only the way to the elements of the lists whose numbers the library gave.
        QVERIFY(!isWhole<float>() && !isWhole<double>());
        qRegisterMetaType<QList<float>>("QList<float>");
        QVERIFY(isWhole<float>());
    }

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
        QVERIFY(isKept<quint16>());
        QVERIFY(QMetaType(id).isValid() && QMetaType(id).name() != nullptr);
        for (int type = QMetaType::User; type < QMetaType::User + 100; ++type)
            QVERIFY(!QMetaType::isRegistered(type) || QMetaType(type).name());
        QTranslator translator;
        QVERIFY(!translator.load(QStringLiteral(":/translations/tavex_de.qm")));
    }
};

QTEST_GUILESS_MAIN(TestLoad)
#include "tst_load.moc"
