#include "common.h"

#include <vector>

namespace {

template <typename Function, typename... Arguments>
concept Takes = requires(Function f, Arguments... a)
{
    f(a...);
};

/// All overloads of a function of SConvert as one object.
#define OVERLOADS(Name)                                                                            \
    [](auto &&...a) -> decltype(SConvert::Name(a...)) { return SConvert::Name(a...); }
constexpr auto toBool = OVERLOADS(toBool);
constexpr auto toDouble = OVERLOADS(toDouble);
constexpr auto toInt32 = OVERLOADS(toInt32);
constexpr auto toString = OVERLOADS(toString);

// Neither a pointer nor text that needs a conversion may end up as a number or a truth value.
static_assert(!Takes<decltype(toInt32), const char *>);
static_assert(!Takes<decltype(toDouble), const int *>);
static_assert(!Takes<decltype(toInt32), char>);
static_assert(!Takes<decltype(toInt32), QString, bool>);
static_assert(!Takes<decltype(toBool), const char *> && !Takes<decltype(toBool), void *>);
static_assert(!Takes<decltype(toString), const char *> && !Takes<decltype(toString), int *>);
static_assert(!Takes<decltype(toString), char>);
static_assert(!Takes<decltype(toInt32), QString, QLocale::Territory>);

// Functions have addresses.
qint32 (*const FromText)(const QString &, bool *, const QLocale &, int) = &SConvert::toInt32;
quint8 (*const FromReal)(double) = &SConvert::toUInt8;
double (*const FromVariant)(const QVariant &, const QLocale &) = &SConvert::toDouble;
float (*const ToKiB)(float, BinaryUnit) = &SUnitConvert::toKiB;

/// For the compiler and, so that its code is seen too, at run time.
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

    void everyLocale()
    {
        const QList<QLocale> locales = QLocale::matchingLocales(
            QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
        QVERIFY(locales.size() > 500);
        const auto check = [&](const auto &parser, auto type, const QLocale &locale) {
            using T = decltype(type);
            for (const T value : samples<T>()) {
                for (const char *format : {"", "{width:30}", "{base:10}", "{unknown}"}) {
                    bool ok = false;
                    const QString text = SConvert::toString(value, string(format), locale);
                    const T read = parser(text, &ok, locale);
                    QVERIFY2(ok && read == value, qPrintable(locale.name() + u' ' + text));
                    QVERIFY(1 / double(read) == 1 / double(value)); // The signs of 0 differ.
                    QCOMPARE(parser(QVariant(text), locale), value);
                }
            }
        };
        for (const QLocale &locale : locales) {
            check(OVERLOADS(toInt8), qint8(), locale);
            check(OVERLOADS(toUInt8), quint8(), locale);
            check(OVERLOADS(toUInt16), quint16(), locale);
            check(OVERLOADS(toInt32), qint32(), locale);
            check(OVERLOADS(toInt64), qint64(), locale);
            check(OVERLOADS(toUInt64), quint64(), locale);
            check(OVERLOADS(toSingle), float(), locale);
            check(OVERLOADS(toDouble), double(), locale);
            QLocale::setDefault(locale);
            QVERIFY(SConvert::toBool(SConvert::toString(true), locale));
            QVERIFY(!SConvert::toBool(SConvert::toString(false), locale));
        }
    }

    // Whatever QLocale refuses stays refused, but for what the library writes.
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
                QVERIFY2(SConvert::toDouble(text, &ok, locale) == 0 && !ok, qPrintable(text));
                QVERIFY2(SConvert::toInt32(text, &ok, locale) == 0 && !ok, qPrintable(text));
            }
            for (const char *format : {"", "{f:2}", "{e:4}", "{g:9}"})
                QCOMPARE(
                    SConvert::toDouble(SConvert::toString(-1234.5, string(format), locale), locale),
                    -1234.5);
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
            QCOMPARE(SConvert::toInt32(text, &ok, base), expected);
            QCOMPARE(ok, fits);
            QCOMPARE(SConvert::toInt32(text, nullptr, base), expected);
            QCOMPARE(FromText(text, nullptr, german, base), expected);
            QCOMPARE(SConvert::toInt32(text, base), expected);
            QCOMPARE(SConvert::toInt32(text, long(base)), expected);
            QCOMPARE(SConvert::toInt32(text, nullptr, short(base)), expected);
            QCOMPARE(SConvert::toInt32(text, (1LL << 32) + base), 0); // Not cut to an int.
            QCOMPARE(SConvert::toInt32(text, german, base), expected);
            if (base == 10) {
                QCOMPARE(SConvert::toInt32(text), expected);
                QCOMPARE(SConvert::toInt32(text, QLocale::German), expected);
                QCOMPARE(SConvert::toInt32(text, &ok, QLocale::German), expected);
            }
        }
    }

    void narrowsAndReadsVariants()
    {
        const auto row = [](const auto &parser, const char *text, bool fits, auto expected,
                             const auto &...how) {
            bool ok = !fits;
            QCOMPARE(parser(string(text), &ok, how...), expected);
            QCOMPARE(ok, fits);
        };
        row(OVERLOADS(toInt8), "300", true, qint8(44));
        row(OVERLOADS(toUInt8), "300", true, quint8(44));
        row(OVERLOADS(toUInt8), "12c", true, quint8(44), 16);
        row(OVERLOADS(toInt16), "40000", false, qint16(0));
        row(OVERLOADS(toDouble), "1,5", true, 1.5, QLocale(QLocale::German));
        row(OVERLOADS(toSingle), "1e60", false, std::numeric_limits<float>::infinity());
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
        QCOMPARE(SConvert::toUInt8(QVariant(string("300"))), quint8(44));
        QCOMPARE(SConvert::toInt32(QVariant(string("1.000")), QLocale(QLocale::German)), 1000);
        QVERIFY(SConvert::toBool(QVariant(2)) && SConvert::toBool(QVariant(string("true"))));
        QVERIFY(!SConvert::toBool(QVariant(string("1"))) && !SConvert::toBool(QVariant()));
    }

    void wordsOfBool()
    {
        const QLocale german(QLocale::German);
        TavexApplication::init(german);
        const QString word = SConvert::toString(true);
        QVERIFY(word != string("True") && !word.isEmpty());
        QVERIFY(SConvert::toBool(u' ' + word.toUpper() + u'\t'));
        QVERIFY(SConvert::toBool(word, QLocale(QLocale::German, QLocale::Austria)));
        for (const char *text : {"", " ", "1", "on", "False"})
            QVERIFY2(!SConvert::toBool(string(text)), text);
        // In another language only the keys count.
        QVERIFY(SConvert::toBool(string(" TRUE "), QLocale::c()));
        QVERIFY(!SConvert::toBool(word, QLocale::c()));
        QCOMPARE(SConvert::toString(true, QLocale::c()), string("True"));

        // A change of the language is seen, in every language that there is.
        QSet<QString> words;
        for (const char *name : {"bg", "cs", "de", "en", "es", "fr", "it", "nl", "pl", "pt", "ru",
                 "sv", "tlh", "tr", "zh"}) {
            TavexApplication::init(SLocale(string(name)));
            const QString other = SConvert::toString(true);
            words.insert(other);
            QVERIFY2(SConvert::toBool(other) && SConvert::toBool(string("true")), name);
            QVERIFY2(!SConvert::toBool(SConvert::toString(false)), name);
        }
        QCOMPARE(words.size(), 15); // No two share the word.
        TavexApplication::init(QLocale::c());
    }

    void writes()
    {
        const auto row = [](const QVariant &value, const char *format, const char *expected,
                             const QLocale &locale = QLocale(QLocale::English)) {
            QCOMPARE(SConvert::toString(value, string(format), locale), string(expected));
        };
        const QLocale german(QLocale::German);
        row(-1234567, "", "-1,234,567");
        row(-255, "{base:16}", "-ff");
        row(255, " {width:8} {base:2} ", "11111111");
        row(QVariant::fromValue<signed char>(-5), "{width:3}", "-005");
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
        QCOMPARE(SConvert::toString(1.5, string("{f:99}")).size(), 101);
        for (const char *language : {"en", "ccp"}) { // The latter's digits are two QChars each.
            const QLocale locale(string(language));
            QCOMPARE(SConvert::toString(7, string("{width:64}"), locale).size(),
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
        row(QUrl(string("http://a/b?c=d")), "", "http://a/b?c=d");
        row(QUuid(), "", "{00000000-0000-0000-0000-000000000000}");
        row(QVariant::fromValue(SVersion(1, 2, 3)), "{mm}", "2");
        row(QVariant::fromValue(SIPrefix::Kilo), "", "Kilo");
        row(QVariant::fromValue(OperatingSystem::Linux), "", "Linux");
        row(QVariant::fromValue(EnumTranslationOptions::NoKeyFallback), "", "4");
        row(QVariant(), "{f:2}", "");
        row(QChar(u'x'), "{f:2}", "x");
        const QJsonObject object{{string("a"), QJsonArray{1, QJsonValue()}}};
        row(object, "", "{\"a\":[1,null]}");
        const char *const indented = "{\n    \"a\": [\n        1,\n        null\n    ]\n}\n";
        for (const char *format : {"{indent}", "{json:indent}"}) {
            row(object, format, indented);
            row(QJsonDocument(object), format, indented);
            row(QJsonValue(object), format, indented);
            row(QVariant(object.toVariantMap()), "{json:indent}", indented);
        }
        row(object, " {indent}", "{\"a\":[1,null]}");
        row(QJsonValue(object[string("a")]), "{indent}", "[\n    1,\n    null\n]\n");
        row(QJsonArray{1}, "", "[1]");
        row(QJsonValue(string("\"x")), "", "\"\\\"x\"");
        row(QJsonValue(QJsonValue::Undefined), "", "");
        row(QStringList{string("a"), string("b")}, "", "a, b");
        row(QVariantList{1, string("a")}, "{json}", "[1,\"a\"]");
        row(QVariant::fromValue(QList<double>{1.5, 2}), "{f:1}", "1,5; 2,0", german);
        row(QVariant::fromValue(QList<signed char>{-1, 2}), "", "-1, 2");
        row(QVariant::fromValue(QList<quint64>{15}), "{base:16}", "f");
        const QVariantMap map{
            {string("k"), QVariantList{1, QVariantList{QVariantMap{{string("x"), 2.5}}}}},
            {string("l"), QVariantList()}};
        row(map, "", "k: [1, [{x: 2.5}]], l: []");
        row(QVariantHash{{string("b"), 1}, {string("a"), QVariantHash()}}, "", "a: {}, b: 1");
        row(map, "{json}", "{\"k\":[1,[{\"x\":2.5}]],\"l\":[]}");
        const qlonglong exact = qlonglong(1) << 53;
        row(QVariantList{QVariant::fromValue(SVersion(1, 2, 3)), QVariant::fromValue(Bool::True),
                QVariant::fromValue(QList<QList<QDate>>{{QDate(2024, 2, 29)}}), exact, -exact - 1,
                Max<quint64>, 0.1F, QVariant(), QByteArray("a"),
                QVariant::fromValue(QHash<QString, SIPrefix>{{string("u"), SIPrefix::Kilo}}),
                QVariant::fromValue(Qt::AlignLeft | Qt::AlignTop)},
            "{json}",
            "[\"1.2.3\",\"True\",[[\"2024-02-29\"]],9007199254740992,\"-9007199254740993\","
            "\"18446744073709551615\",0.1,null,\"a\",{\"u\":\"Kilo\"},"
            "\"AlignLeading|AlignTop\"]");
        // Qt knows how to reach the elements.
        row(QVariant::fromValue(std::vector<QTime>{{1, 2}}), "{iso}", "01:02:00.000");
    }

    // What a value gives, it gives in lists and maps and from variants.
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
                const QString json = SConvert::toString(QVariantList{variant}, string("{json}"));
                QVERIFY2(json.size() > 4 && json != string("[null]"), qPrintable(json));
            };
            gives(QList<T>{value, value}, text + string(", ") + text);
            gives(QList<QList<T>>{{value}, {}}, u'[' + text + string("], []"));
            gives(QMap<QString, T>{{string("k"), value}}, string("k: ") + text);
            gives(QHash<QString, T>{{string("k"), value}}, string("k: ") + text);
        };
        // Of each kind of type one: what these take to compile grows with their number.
        check(true, "");
        check(quint8(200), "{base:16}");
        check(QByteArray("bytes"), "");
        check(QDate(2024, 2, 29), "{iso}");
        check(QJsonValue(1.5), "");
        check(SVersion(1, 2, 3), "{pp}");
        check(QVariant(2), "");
        check(OperatingSystem::Linux, "");
        check(Qt::Checked, "");
        const std::pair<QVariant, const char *> lists[] = {
            {QVariant::fromValue(QList<Bool>{Bool::True}), "True"},
            {QVariant::fromValue(QList<signed char>{-1}), "-1"},
            {QVariant::fromValue(QList<long>{-1}), "-1"},
            {QVariant::fromValue(QList<ulong>{1}), "1"},
            {QVariant::fromValue(QList<qulonglong>{1}), "1"},
            {QVariant::fromValue(QList<QUrl>{QUrl(string("http://a/"))}), "http://a/"},
            {QVariant::fromValue(QStringList{string("a"), string("b")}), "a, b"}};
        for (const auto &[list, text] : lists)
            QCOMPARE(SConvert::toString(list), string(text));

        // A value of an enumeration that no one has registered stays so: it may be a plug-in's.
        enum class Own : quint8 { Value = 200 };
        QCOMPARE(SConvert::toString(Own::Value), string("200"));
        QCOMPARE(SConvert::toString(QList<QList<Own>>{{Own::Value}}), string("[200]"));
        QCOMPARE(SConvert::toString(QList<Own>{Own::Value}, string("{json}")), string("[\"200\"]"));
        QVERIFY(!QMetaType::fromType<Own>().isRegistered());
        QVERIFY(!QMetaType::fromType<QList<Own>>().isRegistered());
    }

    // The overloads for values give what a variant of the value gives.
    void writesValues()
    {
        const QLocale german(QLocale::German);
        QCOMPARE(SConvert::toString(1234L, german), string("1.234"));
        QCOMPARE(SConvert::toString(std::size_t(255), string("{base:16}")), string("ff"));
        QCOMPARE(SConvert::toString(0.5, string("{f:2}"), german), string("0,50"));
        QCOMPARE(SConvert::toString(QLatin1String("text")), string("text"));
        QCOMPARE(SConvert::toString(SIPrefix::Mega, german), string("Mega"));
    }
};

QTEST_GUILESS_MAIN(TestSConvert)
#include "tst_sconvert.moc"
