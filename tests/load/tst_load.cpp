#include "checks.h"

#include <array>

#ifdef Q_OS_WIN
#include <windows.h>

#include <psapi.h>
#endif

// Declared by the program itself, which does not see the library's headers.
namespace Quorvex {
enum class SIPrefix : qint32;
}

namespace {

bool isLibraryMapped()
{
    const QString name = QFileInfo(QStringLiteral(LIBRARY_FILE)).fileName();
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
    if (status.open(QIODevice::ReadOnly)) {
        const QByteArrayList words = status.readAll().simplified().split(' ');
        return words.value(words.indexOf("RssAnon:") + 1).toLongLong();
    }
#endif
    return 0;
}

/// Whether the meta type of the program's lists of \a T is still that of the program.
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

/// Whether Qt also reaches the elements, in a map and a pair too.
template <typename T>
bool isWhole()
{
    const QVariant list = QVariant::fromValue(QList<T>{1, 2});
    const QVariant map = QVariant::fromValue(QMap<T, QString>{{1, {}}});
    const QVariant pair = QVariant::fromValue(std::pair<T, QString>(1, {}));
    return isKept<T>() && list.toList() == QVariantList{T(1), T(2)}
    && list.value<QSequentialIterable>().size() == 2 && map.toMap().size() == 1
        && map.value<QAssociativeIterable>().size() == 1
        && pair.value<std::pair<QVariant, QVariant>>().first == T(1);
}

} // namespace

class TestLoad : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The program can use its types before, between and after loads, whoever used them first.
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
                made = {alive};
                reinterpret_cast<void (*)(QVariantList *)>(module.resolve("makeLists"))(&made);
                QCOMPARE(made.size(), Size);
            }
            for (const char *type :
                {"QList<uchar>", "QList<short>", "QList<float>", "QList<double>", "QList<bool>",
                    "QList<int>", "QList<QList<int>>", "PluginEnum"})
                QVERIFY2(round > 0 || !QMetaType::fromName(type).isValid(), type);
            QVERIFY(isWhole<quint8>());
            QCOMPARE(made[Int8].toList(), alive.toList());
            QCOMPARE(made[UInt8].value<QList<quint8>>(), (QList<quint8>{1, 2}));
            // The program asks for the type ids of lists that the library has registered.
            QCOMPARE(made[Single].value<QList<float>>(), (QList<float>{1, 2}));
            VERIFY_ALL(made[Double].toList().size() == 2, isWhole<float>());
            made.clear();
            QVERIFY(modules[round % 2].unload());
            VERIFY_ALL(isWhole<qint8>(), isWhole<quint8>(), isWhole<float>());
            const QMetaType text = QMetaType::fromType<QString>();
            QVERIFY(QMetaType::hasRegisteredConverterFunction(text, own));
            VERIFY_ALL(modules[1 - round % 2].unload(), !isLibraryMapped());
            QVERIFY(!QMetaType::hasRegisteredConverterFunction(text, own));
            QVERIFY(!QMetaType::hasRegisteredConverterFunction(own, text));

            // These take the type ids that became free.
            const auto take = []<int... I>(std::integer_sequence<int, I...>)
            {
                (QMetaType::fromType<std::array<char, I + 1>>().id(), ...);
            };
            take(std::make_integer_sequence<int, 50>());
            VERIFY_ALL(isWhole<qint8>(), isWhole<quint8>(), isWhole<qint16>(), isWhole<int>());
            VERIFY_ALL(alive.toList() == (QVariantList{1, 2}), isKept<float>(), isKept<double>());
            QCOMPARE(QMetaType::fromName(own.name()).iface(), own.iface());
        }
        // Only the iterators of lists that the library registered first are gone.
        VERIFY_ALL(!isWhole<float>(), !isWhole<double>());
        qRegisterMetaType<QList<float>>("QList<float>");
        QVERIFY(isWhole<float>());
    }

    void loadUseUnload()
    {
        const auto present = [] {
            return QList<bool>{isLibraryMapped(), QMetaType::fromName("Quorvex::Bool").isValid(),
                QMetaType::fromName("Quorvex::SVersion").isValid(),
                QMetaType::fromName("Quorvex::SPointF").isValid(),
                QFile::exists(QStringLiteral(":/flags/svg/de.svg")),
                QFile::exists(QStringLiteral(":/HALF_LICENSE"))};
        };
        for (const auto &[file, use] : {std::pair(LIBRARY_FILE, false), {PLUGIN_FILE, true}}) {
            [[maybe_unused]] qint64 settledMemory = 0;
            for (int round = 0; round < 150; ++round) {
                QLibrary module(QString::fromUtf8(file));
                module.setLoadHints(QLibrary::ResolveAllSymbolsHint);
                QVERIFY2(module.load(), qPrintable(module.errorString()));
                QCOMPARE(present(), QList<bool>(6, true));
                if (use)
                    QCOMPARE(reinterpret_cast<int (*)()>(module.resolve("useLibrary"))(), 0);
                QVERIFY(module.unload());
                QCOMPARE(present(), QList<bool>(6, false));
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

    void qtGoesOn()
    {
        QVERIFY(isKept<quint16>());
        for (int type = QMetaType::User; type < QMetaType::User + 100; ++type)
            QVERIFY(!QMetaType::isRegistered(type) || QMetaType(type).name());
        QVERIFY(!QTranslator().load(QStringLiteral(":/translations/tavex_de.qm")));
    }
};

QTEST_GUILESS_MAIN(TestLoad)
#include "tst_load.moc"
