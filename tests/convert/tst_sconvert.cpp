#include "common.h"
#include "laws.h"

#include <vector>

namespace {

// Neither a pointer nor text that needs a conversion may end up as a number or a truth value.
#define REFUSED(CALL, ...)                                                                         \
    !std::is_invocable_v<decltype([](auto a) -> decltype(CALL) { return {}; }), __VA_ARGS__>
static_assert(REFUSED(SConvert::toInt32(a), const char *) && REFUSED(SConvert::toInt32(a), char));
static_assert(REFUSED(SConvert::toInt32(a, true), QString));
static_assert(REFUSED(SConvert::toDouble(a), const int *));
static_assert(REFUSED(SConvert::toBool(a), const char *) && REFUSED(SConvert::toBool(a), void *));
static_assert(REFUSED(SConvert::toString(a), const char *));
static_assert(REFUSED(SConvert::toString(a), int *) && REFUSED(SConvert::toString(a), char));
static_assert(!REFUSED(SConvert::toString(a), int) && !REFUSED(SConvert::toBool(a), int));
static_assert(REFUSED(SConvert::toInt32(a, QLocale::Germany), QString));

// Functions have addresses.
qint32 (*const FromText)(const QString &, bool *, const QLocale &, int) = &SConvert::toInt32;
quint8 (*const FromReal)(double) = &SConvert::toUInt8;
double (*const FromVariant)(const QVariant &, const QLocale &) = &SConvert::toDouble;
float (*const ToKiB)(float, BinaryUnit) = &SUnitConvert::toKiB;

/// Checked when compiled and at run time, where different code may run.
constexpr bool convertsNumbers()
{
    return SConvert::toInt8(300L) == 44 && SConvert::toUInt8(std::size_t(511)) == 255
        && SConvert::toInt32(3.9) == 3 && SConvert::toInt32(-3.9F) == -3
        && SConvert::toInt32(1e300) == Max<int> && SConvert::toInt8(-1e9F) == -128
        && SConvert::toUInt64(-1.0) == 0
        && SConvert::toUInt16(std::numeric_limits<double>::quiet_NaN()) == 0
        && SConvert::toSingle(true) == 1.0F && SConvert::toDouble(-7UL + 8UL) == 1.0
        && SConvert::toBool(std::numeric_limits<float>::quiet_NaN()) && !SConvert::toBool(-0.0)
        && SConvert::toBool(std::size_t(1) << 40) && !SConvert::toBool(0) && SConvert::toBool(1);
}
static_assert(convertsNumbers());

template <typename T>
std::vector<T> samples()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values{Limits::lowest(), Limits::max(), T(0), T(1), T(100), T(-1)};
    if constexpr (std::is_floating_point_v<T>) {
        const T more[] = {Limits::min(), Limits::denorm_min(), Limits::epsilon(), T(0.1), T(-2.5),
            T(1234567.875), T(1) / 3, T(1e-5), T(9.99e-6), T(-1e15), T(1e16), -T(0),
            Limits::infinity(), -Limits::infinity()};
        values.insert(values.end(), std::begin(more), std::end(more));
    }
    return values;
}

} // namespace

class TestSConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void numbersInEveryLocale()
    {
        const auto check = []<typename T>(T, const QLocale &locale) {
            for (const T value : samples<T>()) {
                for (const char *format : {"", "{width:30}", "{base:10}", "{unknown}"})
                    QVERIFY2(readsBack(value, locale, string(format)),
                        qPrintable(locale.name() + u' ' + SConvert::toString(value, locale)));
            }
        };
        QVERIFY(everyLocale().size() > 500);
        for (const QLocale &locale : everyLocale()) {
            const auto all =
                std::tuple<qint8, quint8, quint16, qint32, qint64, quint64, float, double>();
            std::apply([&](auto... number) { (check(number, locale), ...); }, all);
            QLocale::setDefault(locale);
            for (const bool value : {true, false})
                COMPARE_ROW(
                    locale.name(), SConvert::toBool(SConvert::toString(value), locale), value);
        }
    }

    // Text that QLocale refuses stays refused, unless the library itself writes it.
    void refusesWhatItDoesNotWrite()
    {
        for (const char *name : {"en_US", "he_IL", "sv_SE", "fa_IR", "de_DE"}) {
            QLocale locale{string(name)};
            const QString minus = locale.negativeSign();
            const QString group = locale.groupSeparator();
            const QString one = locale.toString(1);
            for (const QString &text : {minus + minus + one, one + minus, minus, one + group + one,
                     minus + one + group + one, one + locale.exponential(), QString(),
                     minus + one + locale.decimalPoint() + one + group + one}) {
                bool ok = true;
                COMPARE_ROW(text, SConvert::toDouble(text, &ok, locale), 0.0);
                QVERIFY2(!ok, qPrintable(text));
                COMPARE_ROW(text, SConvert::toInt32(text, &(ok = true), locale), 0);
                QVERIFY2(!ok, qPrintable(text));
            }
            for (const char *format : {"", "{f:2}", "{e:4}", "{g:9}"})
                QVERIFY2(readsBack(-1234.5, locale, string(format)), format);
            const QString grouped = SConvert::toString(-12345, locale);
            locale.setNumberOptions(QLocale::RejectGroupSeparator);
            QCOMPARE(SConvert::toInt32(grouped, locale), 0);
        }
    }

    void parsesIntegers()
    {
        const QLocale german(QLocale::German);
        QLocale::setDefault(german);
        const std::tuple<const char *, int, bool, int> rows[] = {{"ff", 16, true, 255},
            {"ff", 10, false, 0}, {"0x1f", 0, true, 31}, {"017", 0, true, 15},
            {"-Zz", 36, true, -1295}, {"2147483648", 10, false, 0},
            {"-2147483648", 10, true, Min<int>}, {"1.234", 10, true, 1234}, {"1.234", 16, false, 0},
            {"", 10, false, 0}, {"3,5", 10, false, 0}, {"101", 2, true, 5}, {"1", 1, false, 0},
            {"1", 37, false, 0}, {"1", -10, false, 0}};
        for (const auto &[latin1, base, fits, expected] : rows) {
            const QString text = string(latin1);
            bool ok = !fits;
            const QList<int> read{SConvert::toInt32(text, &ok, base),
                SConvert::toInt32(text, nullptr, base), SConvert::toInt32(text, base),
                SConvert::toInt32(text, german, base), FromText(text, nullptr, german, base),
                SConvert::toInt32(text, long(base))};
            COMPARE_ROW(latin1, read, QList<int>(6, expected));
            COMPARE_ROW(latin1, ok, fits);
            COMPARE_ROW(latin1, SConvert::toInt32(text, (1LL << 32) + base), 0);
            if (base == 10) {
                COMPARE_ROW(latin1, SConvert::toInt32(text), expected);
                COMPARE_ROW(latin1, SConvert::toInt32(text, german), expected);
                COMPARE_ROW(latin1, SConvert::toInt32(text, &ok, german), expected);
            }
        }
    }

    void narrowsAndReadsVariants()
    {
        const auto row = [](const char *text, bool fits, auto expected, const auto &...how) {
            bool ok = !fits;
            COMPARE_ROW(text, to<decltype(expected)>(string(text), &ok, how...), expected);
            COMPARE_ROW(text, ok, fits);
        };
        const QLocale german(QLocale::German);
        row("300", true, qint8(44));
        row("300", true, quint8(44));
        row("12c", true, quint8(44), 16);
        row("40000", false, qint16(0));
        row("1,5", true, 1.5, german);
        row("1e60", false, std::numeric_limits<float>::infinity());
        QCOMPARE(SConvert::toDouble(QString(), nullptr), 0.0);

        QVERIFY(convertsNumbers());
        QCOMPARE(FromReal(-1.0) + FromVariant(2.5, QLocale()) + ToKiB(512, BinaryUnit::Byte), 3.0);
        QCOMPARE(SConvert::toUInt64(QVariant(Max<qint64>)), quint64(Max<qint64>));
        QCOMPARE(SConvert::toInt32(QVariant(3.9)), 4); // As QMetaType does it.
        QCOMPARE(SConvert::toUInt8(QVariant(-3.9)), quint8(252));
        QCOMPARE(SConvert::toUInt16(QVariant::fromValue(SIPrefix::Kilo)), quint16(SIPrefix::Kilo));
        QCOMPARE(SConvert::toDouble(QVariant()), 0.0);
        QCOMPARE(SConvert::toInt16(QVariant(QUrl())), qint16(0));
        QCOMPARE(SConvert::toSingle(QVariant(2.5F)), 2.5F);
        QCOMPARE(SConvert::toUInt8(QVariant("300"_s)), quint8(44));
        QCOMPARE(SConvert::toInt32(QVariant("1.000"_s), german), 1000);
        for (const QVariant &value : {QVariant(2), QVariant("true"_s), QVariant("1"_s), QVariant()})
            COMPARE_ROW(value.typeName(), SConvert::toBool(value), value == 2 || value == "true"_s);
    }

    void wordsOfBool()
    {
        const QLocale german(QLocale::German);
        TavexApplication::init(german);
        const QString word = SConvert::toString(true);
        QCOMPARE(word, "Wahr"_s);
        for (const QString &text : {QString(u' ' + word.toUpper() + u'\t'), " TRUE "_s})
            QVERIFY2(SConvert::toBool(text), qPrintable(text));
        QVERIFY(SConvert::toBool(word, QLocale(QLocale::German, QLocale::Austria)));
        for (const char *text : {"", " ", "1", "on", "False"})
            QVERIFY2(!SConvert::toBool(string(text)), text);
        // In another language only the keys count.
        QVERIFY(SConvert::toBool(" TRUE "_s, QLocale::c()));
        QVERIFY(!SConvert::toBool(word, QLocale::c()));
        QCOMPARE(SConvert::toString(true, QLocale::c()), "True"_s);

        // A change of the language is seen, in every language that there is.
        QSet<QString> words;
        for (const QString &name : "bg cs de en es fr it nl pl pt ru sv tlh tr zh"_s.split(u' ')) {
            TavexApplication::init(SLocale(name));
            words.insert(SConvert::toString(true));
            for (const bool value : {true, false})
                COMPARE_ROW(name, SConvert::toBool(SConvert::toString(value)), value);
        }
        QCOMPARE(words.size(), 15); // No two share the word.
        TavexApplication::init(QLocale::c());
    }

    void writes()
    {
        // The overloads for values give what a variant of the value gives.
        const auto row = [](const auto &value, const char *format, const char *expected,
                             const QLocale &locale = QLocale(QLocale::English)) {
            const QVariant variant = QVariant::fromValue(value);
            COMPARE_ROW(
                format, SConvert::toString(value, string(format), locale), string(expected));
            COMPARE_ROW(
                format, SConvert::toString(variant, string(format), locale), string(expected));
        };
        const QLocale german(QLocale::German);
        row(-1234567, "", "-1,234,567");
        row(-255, "{base:16}", "-ff");
        row(255, " {width:8} {base:2} ", "11111111");
        row(qint8(-5), "{width:3}", "-005");
        row(1234, "{width:2}", "1234");
        row(7, "{width:3}", "\u0660\u0660\u0667", QLocale(QLocale::Arabic, QLocale::Egypt));
        for (const char *unknown :
            {"{base:1}", "{base:16", "%d", "{width:65}", "{base:16}x", "{width:-1}", "%s%n", "{:}",
                "}:{", "{base:99999999999}", "{x}", "ybase:16}", "{width:0}", "{f:-1}"}) {
            row(1234, unknown, "1,234");
            row(1234.5, unknown, "1,234.5");
        }
        row(qulonglong(-1), "{base:36}", "3w5e11264sgsf");
        row(Min<qlonglong>, "{base:16}", "-8000000000000000");
        row(1234.5678, "{f:2}", "1.234,57", german);
        row(1234.5678, "{e:3}", "1.235e+03", QLocale::c());
        row(1234.5678, "{g:3}", "1.23e+03", QLocale::c());
        row(1.5, "{f:100}", "1.5");
        row(1.5, "{f:0}", "2");
        QCOMPARE(SConvert::toString(1.5, "{f:99}"_s).size(), 101);
        for (const char *language : {"en", "ccp"}) { // The latter's digits are two QChars each.
            const QLocale locale(string(language));
            QCOMPARE(SConvert::toString(7, "{width:64}"_s, locale).size(),
                64 * locale.zeroDigit().size());
        }
        row(1.5, "{%:1}", "1.5");
        row(0.1F, "", "0.1");
        row(16777216.0F, "", "16,777,216");
        row(100000.0, "", "100,000");
        row(-0.0001, "{x}", "-0.0001");
        row(0.00001F, "", "0.00001");
        row(9.5e-6, "", "9.5E-06");
        row(1e15, "", "1,000,000,000,000,000");
        row(1e16F, "", "1E+16");
        row(QDate(2024, 2, 29), "", "Thursday, February 29, 2024");
        row(QDate(2024, 2, 29), "{short}", "29.02.24", german);
        row(QDate(2024, 2, 29), "{iso}", "2024-02-29", german);
        row(QDate(2024, 2, 29), " yyyy/M ", "2024/2");
        row(QDate(2024, 2, 29), "{odd}", "Thursday, February 29, 2024");
        row(QDate(2024, 2, 29), "yyyy}", "2024}");
        for (const char *format : {"", "{iso}", "{short}", "yyyy HH"}) {
            for (const QVariant &none :
                {QVariant(QDate()), QVariant(QTime()), QVariant(QDateTime())})
                row(none, format, "");
        }
        row(QTime(1, 2, 3, 4), "{iso}", "01:02:03.004");
        row(QDateTime(QDate(2024, 2, 29), QTime(1, 2, 3, 4), Qt::UTC), "{iso}",
            "2024-02-29T01:02:03.004Z");
        row(QByteArray("\xC3\xA4"), "", "\u00E4");
        row(QUrl("http://a/b?c=d"_s), "", "http://a/b?c=d");
        row(QUuid(), "", "{00000000-0000-0000-0000-000000000000}");
        row(SVersion(1, 2, 3), "{mm}", "2");
        row(SIPrefix::Kilo, "", "Kilo");
        row(OperatingSystem::Linux, "", "Linux");
        row(QVariant::fromValue(EnumTranslationOptions::NoKeyFallback), "", "4");
        row(QVariant(), "{f:2}", "");
        row(QChar(u'x'), "{f:2}", "x");
        const QJsonObject object{{"a"_s, QJsonArray{1, QJsonValue()}}};
        row(object, "", "{\"a\":[1,null]}");
        const char *const indented = "{\n    \"a\": [\n        1,\n        null\n    ]\n}\n";
        for (const char *format : {"{indent}", "{json:indent}"}) {
            row(object, format, indented);
            row(QJsonDocument(object), format, indented);
            row(QJsonValue(object), format, indented);
            row(QVariant(object.toVariantMap()), "{json:indent}", indented);
        }
        row(object, " {indent}", "{\"a\":[1,null]}");
        row(QJsonValue(object["a"_s]), "{indent}", "[\n    1,\n    null\n]\n");
        row(QJsonArray{1}, "", "[1]");
        row(QJsonValue("\"x"_s), "", "\"\\\"x\"");
        row(QJsonValue(QJsonValue::Undefined), "", "");
        row(QStringList{"a"_s, "b"_s}, "", "a, b");
        row(QVariantList{1, "a"_s}, "{json}", "[1,\"a\"]");
        row(QVariant::fromValue(QList<double>{1.5, 2}), "{f:1}", "1,5; 2,0", german);
        row(QVariant::fromValue(QList<signed char>{-1, 2}), "", "-1, 2");
        row(QVariant::fromValue(QList<quint64>{15}), "{base:16}", "f");
        const QVariantMap map{{"k"_s, QVariantList{1, QVariantList{QVariantMap{{"x"_s, 2.5}}}}},
            {"l"_s, QVariantList()}};
        row(map, "", "k: [1, [{x: 2.5}]], l: []");
        row(QVariantHash{{"b"_s, 1}, {"a"_s, QVariantHash()}}, "", "a: {}, b: 1");
        row(map, "{json}", "{\"k\":[1,[{\"x\":2.5}]],\"l\":[]}");
        const qlonglong exact = qlonglong(1) << 53;
        row(QVariantList{QVariant::fromValue(SVersion(1, 2, 3)), QVariant::fromValue(Bool::True),
                QVariant::fromValue(QList<QList<QDate>>{{QDate(2024, 2, 29)}}), exact, -exact - 1,
                Max<quint64>, 0.1F, QVariant(), QByteArray("a"),
                QVariant::fromValue(QHash<QString, SIPrefix>{{"u"_s, SIPrefix::Kilo}}),
                QVariant::fromValue(Qt::AlignLeft | Qt::AlignTop)},
            "{json}",
            "[\"1.2.3\",\"True\",[[\"2024-02-29\"]],9007199254740992,\"-9007199254740993\","
            "\"18446744073709551615\",0.1,null,\"a\",{\"u\":\"Kilo\"},"
            "\"AlignLeading|AlignTop\"]");
        // Reached through Qt's meta type of containers.
        row(QVariant::fromValue(std::vector<QTime>{{1, 2}}), "{iso}", "01:02:00.000");
    }

    // A value has the same text alone, in lists, in maps and in variants.
    void writesEveryTypeEverywhere()
    {
        const auto check = [](const auto &value, const char *format) {
            using T = std::remove_cvref_t<decltype(value)>;
            const QString f = string(format);
            const QString text = SConvert::toString(value, f);
            QVERIFY(!text.isEmpty());
            const auto gives = [&](const auto &container, const QString &expected) {
                QCOMPARE(SConvert::toString(container, f), expected);
                const QVariant variant = QVariant::fromValue(container);
                QCOMPARE(SConvert::toString(variant, f), expected);
                const QString json = SConvert::toString(QVariantList{variant}, "{json}"_s);
                QVERIFY2(json.size() > 4 && json != "[null]"_s, qPrintable(json));
            };
            gives(QList<T>{value, value}, text + ", "_s + text);
            gives(QList<QList<T>>{{value}, {}}, u'[' + text + "], []"_s);
            gives(QMap<QString, T>{{"k"_s, value}}, "k: "_s + text);
            gives(QHash<QString, T>{{"k"_s, value}}, "k: "_s + text);
        };
        // One type of each kind: every further one takes long to compile.
        check(true, "");
        check(quint8(200), "{base:16}");
        check(QByteArray("bytes"), "");
        check(QDate(2024, 2, 29), "{iso}");
        check(QJsonValue(1.5), "");
        check(SVersion(1, 2, 3), "{pp}");
        check(QVariant(2), "");
        check(OperatingSystem::Linux, "");
        check(Qt::Checked, "");
        // A value of an enumeration that no one has registered stays so: it may be a plug-in's.
        enum class Own : quint8 { Value = 200 };
        QCOMPARE(SConvert::toString(Own::Value), "200"_s);
        QCOMPARE(SConvert::toString(QList<QList<Own>>{{Own::Value}}), "[200]"_s);
        QCOMPARE(SConvert::toString(QList<Own>{Own::Value}, "{json}"_s), "[\"200\"]"_s);
        QVERIFY(!QMetaType::fromType<Own>().isRegistered());
        QVERIFY(!QMetaType::fromType<QList<Own>>().isRegistered());
    }
};

QTEST_GUILESS_MAIN(TestSConvert)
#include "tst_sconvert.moc"
