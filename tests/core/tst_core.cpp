#include "common.h"

#include <QVersionNumber>

#include <unordered_set>

namespace {

enum Packed { Number = 131084 };

// Only a number that is named one becomes a version.
template <typename T>
constexpr bool IsPacked = std::is_assignable_v<SVersion, T>;
static_assert(IsPacked<int> && !IsPacked<double> && !IsPacked<bool> && !IsPacked<char>);
static_assert(!std::is_constructible_v<SVersion, float> && !std::is_convertible_v<int, SVersion>);
static_assert(!std::is_copy_constructible_v<SPointerList<int>>);

struct Counted
{
    Counted() { ++alive; }
    Q_DISABLE_COPY_MOVE(Counted)
    ~Counted() { --alive; }
    static inline int alive = 0;
};

} // namespace

class TestCore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownership()
    {
        std::unique_ptr<Counted> kept;
        {
            SPointer<Counted> first(new Counted);
            SPointer<Counted> second(new Counted);
            kept.reset(first.release());
            VERIFY_ALL(first.isReleased(), first.get() == kept.get());
            second = SPointer<Counted>(new Counted);
            QCOMPARE(Counted::alive, 2);

            SPointerList<Counted> list;
            auto *a = new Counted;
            auto *b = new Counted;
            for (Counted *object : {a, b, kept.get(), a})
                list.add(object);
            QCOMPARE(list.toList(), (QList<Counted *>{a, b, kept.get()}));
            VERIFY_ALL(list.remove(b), !list.remove(b), !list.contains(b));
            VERIFY_ALL(list.release(kept.get()), !list.release(kept.get()));
            QCOMPARE(Counted::alive, 3);
        }
        QCOMPARE(Counted::alive, 1);
    }

    void namesOfClasses()
    {
        QCOMPARE(SClassName::name(typeid(SMetaInt32)), "SMetaInt32"_s);
        QCOMPARE(SClassName::name(typeid(int)), "int"_s);
        for (const auto &[name, words] :
            {std::pair("SMetaInt32", "Int 32"), {"SMetaJsonDocument", "Json Document"},
                {"SMetaListUInt16", "List UInt 16"}, {"My_Own__Value", "My Own Value"},
                {"a|b", "a |b"}, // A bar begins a word, as a digit does.
                {"Sample", "Sample"}, {"S", "S"}, {"", ""}})
            QCOMPARE(SClassName::displayName(string(name)), QLatin1String(words));
    }

    void versionCarriesCrossComponents()
    {
        QVERIFY(TavexInfo::version() == 131084);
        QVERIFY(TavexInfo::copyright().contains(TavexInfo::company()));
        QVERIFY(TavexInfo::description() != TavexInfo::moduleName());
        SVersion version(1, 2, 255);
        QCOMPARE(version++, SVersion(1, 2, 255));
        QCOMPARE(version, SVersion(1, 3, 0));
        QCOMPARE(--version, SVersion(1, 2, 255));
        QCOMPARE(SVersion(1, 0, 0).addPatch(300), SVersion(1, 1, 44));
        QCOMPARE(SVersion(1, 2, 3).addMajor(2).addMinor(-1), SVersion(3, 1, 3));
        version = 5;
        const int before = version--;
        VERIFY_ALL(before == 5, version == 4, 1 + version == 5, 7 - version == 3);
        QCOMPARE(SVersion(1, 2, 200) + SVersion(0, 0, 100), SVersion(1, 3, 44));
        QCOMPARE(SVersion(1, 0, 0) - SVersion(0, 0, 1), SVersion(0, 255, 255));
        QCOMPARE(SVersion(1, 300, 0), SVersion(1, 44, 0));
        QCOMPARE(--SVersion(), SVersion::invalidVersion());
        VERIFY_ALL(!SVersion::invalidVersion().isValid(), !SVersion::invalidVersion().isNull());
        VERIFY_ALL(SVersion().isValid(), SVersion().isNull());
        // Wrapping is defined; the sanitizers watch.
        QCOMPARE((++SVersion(Max<int>)).value(), Min<int>);
        QCOMPARE((SVersion(Min<int>) - SVersion(1)).value(), Max<int>);
        QCOMPARE(SVersion(0).addMajor(Min<int>).value(), 0);
        QVERIFY(SVersion(-1, -1, -1) == -1);
    }

    // Each setter clears its own choice of high bits, and none masks its argument.
    void versionSetters()
    {
        for (const auto &[set, n, expected] : {std::tuple(&SVersion::setPatch, 5, 0xFFFF05),
                 {&SVersion::setMinor, 5, 0xFF05FF}, {&SVersion::setMajor, 1, 0x1FFFF},
                 {&SVersion::setPatch, 0x300, 0xFFFF00}, {&SVersion::setMajor, -1, -1}}) {
            SVersion version = SVersion::invalidVersion();
            (version.*set)(n);
            QCOMPARE(version.value(), expected);
        }
    }

    void versionComparesWithAnyNumber()
    {
        const SVersion version(2, 0, 12);
        VERIFY_ALL(version == 131084, 131084L == version, version == std::size_t(131084));
        VERIFY_ALL(version != (quint64(1) << 32 | 131084), version == 131084.0);
        VERIFY_ALL(version < 131085U, version >= qint64(131084), 1 < version);
        VERIFY_ALL(SVersion::invalidVersion() != 0xFFFFFFFFU, SVersion::invalidVersion() < 0U);
        VERIFY_ALL(version + 1 == SVersion(2, 0, 13), version - 1L == SVersion(2, 0, 11));
        // What the language takes for a number counts as one.
        VERIFY_ALL(version == Number, Number == version, version - Number == SVersion());
        VERIFY_ALL(SVersion(97) == 'a', SVersion(1) == true, version > true, 'a' < version);
    }

    void versionsAreValues()
    {
        const SVersion version(2, 0, 12);
        QCOMPARE(savedAndRead(version), version);
        QCOMPARE((std::unordered_set{version, SVersion(1), version}.size()), 2U);
        QString text;
        QDebug(&text).nospace() << version << SVersion::invalidVersion() << 7;
        QCOMPARE(text, "SVersion(2.0.12)SVersion(-1)7"_s);
        QCOMPARE(version.toVersionNumber(), QVersionNumber(2, 0, 12));
        QVERIFY(SVersion::invalidVersion().toVersionNumber().isNull());
        for (const auto &[number, expected] : {std::pair(QVersionNumber(), SVersion()),
                 {QVersionNumber(1, 255), {1, 255, 0}}, {QVersionNumber({1, 2, 3, 400}), {1, 2, 3}},
                 {QVersionNumber(1, 256), SVersion::invalidVersion()},
                 {QVersionNumber(-1), SVersion::invalidVersion()}})
            QCOMPARE(SVersion::fromVersionNumber(number), expected);
    }

    void readsVersions()
    {
        struct Row
        {
            const char *text;
            SVersion expected;
            const char *format = "";
        };
        const Row rows[] = {{"10.20.30", {10, 20, 30}}, {"v1.2.3-beta", {1, 2, 3}},
            {"1-2-3", {1, 2, 3}}, {"1.2.345", {1, 2, 34}},
            {"123.4.5", {1, 3, 4}}, // A dot stands for any character, even a digit.
            {"1.2", {}}, {"abc", {}}, {"", {}}, {"3/2/1", {1, 2, 3}, " {pp}/{mm}/{MM} "},
            {"7", {7, 0, 0}, "{MM}"}, {"7,000", {7000, 0, 0}, "(?<major>.+)"},
            {"99999999999", {}, "(?<major>.+)"}, {"x", {}, "(?<major>.+)"},
            {"1.1", {}, "{MM}.{MM}"}, {"(1", {}, "({MM}"}};
        for (const Row &row : rows) {
            const QString text = string(row.text);
            const QString format = string(row.format);
            QCOMPARE(SConvert::toVersion(text, format, QLocale::c()), row.expected);
            QCOMPARE(SConvert::toVersion(QVariant(text), format, QLocale::c()), row.expected);
            if (format.isEmpty())
                QCOMPARE(SConvert::toVersion(text, QLocale::c()), row.expected);
        }
    }

    void convertsVersions()
    {
        const SVersion version(1, 2, 30);
        QCOMPARE(SConvert::toString(version, "{pp}/{mm}/{MM}/{mm}"_s, QLocale::c()), "30/2/1/2"_s);
        QCOMPARE(SConvert::toString(version, QLocale(QLocale::Arabic, QLocale::Egypt)),
            "\u0661.\u0662.\u0663\u0660"_s);

        QCOMPARE(SConvert::toVersion(131084LL + (1LL << 32)), SVersion(2, 0, 12));
        QCOMPARE(SConvert::toVersion(static_cast<signed char>(-1)), SVersion::invalidVersion());
        QCOMPARE(SConvert::toVersion(131084.9), SVersion(2, 0, 12));
        QCOMPARE(SConvert::toVersion(1e300).value(), Max<int>);
        QVERIFY(SConvert::toVersion(std::numeric_limits<float>::quiet_NaN()).isNull());

        const QVariant variant = SConvert::toVariant({2, 0, 12});
        QCOMPARE(variant.typeName(), "Quorvex::SVersion");
        QCOMPARE(SConvert::toVersion(variant), SVersion(2, 0, 12));
        for (const QVariant &other : {QVariant(), QVariant(QByteArray("x"))})
            QVERIFY(SConvert::toVersion(other).isNull());
        QMetaType::registerConverter<QSize, SVersion>([](QSize s) { return SVersion(s.width()); });
        QCOMPARE(SConvert::toVersion(QVariant(QSize(12, 0))), SVersion(12));
    }
};

QTEST_APPLESS_MAIN(TestCore)
#include "tst_core.moc"
