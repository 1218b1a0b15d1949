#include <tavex/convert/sconvert.h>

#include <tavex/convert/svariantconvert.h>
#include <tavex/core/metatype_p.h>
#include <tavex/core/startup_p.h>
#include <tavex/enums/enumlist_p.h>
#include <tavex/enums/enumtranslationoptions.h>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QUrl>
#include <QUuid>

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace Quorvex {
namespace {

struct Token
{
    QLatin1String text;
    QLatin1String pattern;
};

constexpr Token MajorToken{QLatin1String("{MM}"), QLatin1String("(?<major>[0-9]{1,2})")};
constexpr Token MinorToken{QLatin1String("{mm}"), QLatin1String("(?<minor>[0-9]{1,2})")};
constexpr Token PatchToken{QLatin1String("{pp}"), QLatin1String("(?<patch>[0-9]{1,2})")};

QString usableFormat(const QString &format)
{
    const QString trimmed = format.trimmed();
    return trimmed.isEmpty() ? QStringLiteral("{MM}.{mm}.{pp}") : trimmed;
}

/// The regular expression of a format, and the group numbers of the components: -1 for one that the
/// format leaves out.
struct VersionPattern
{
    explicit VersionPattern(const QString &format)
    {
        QString pattern = usableFormat(format);
        for (const Token &token : {MajorToken, MinorToken, PatchToken})
            pattern.replace(token.text, token.pattern);
        expression.setPattern(pattern);
        const QStringList names = expression.namedCaptureGroups();
        major = int(names.indexOf(QStringLiteral("major")));
        minor = int(names.indexOf(QStringLiteral("minor")));
        patch = int(names.indexOf(QStringLiteral("patch")));
    }

    QRegularExpression expression;
    int major;
    int minor;
    int patch;
};

SVersion findVersion(const QString &text, const VersionPattern &pattern, const QLocale &locale)
{
    if (!pattern.expression.isValid())
        return {};
    const QRegularExpressionMatch match = pattern.expression.match(text);
    if (!match.hasMatch())
        return {};
    // One or two ASCII digits need no parser where the locale uses them. A group that the format
    // itself names "major" and so on may match any text.
    const bool isPlain = locale.zeroDigit() == u'0';
    const auto component = [&](int group) {
        const QStringView digits = match.capturedView(group);
        const auto isDigit = [](QChar c) { return c >= u'0' && c <= u'9'; };
        if (!isPlain || digits.size() > 2 || !std::all_of(digits.begin(), digits.end(), isDigit))
            return locale.toInt(digits);
        int value = 0;
        for (const QChar digit : digits)
            value = 10 * value + digit.digitValue();
        return value;
    };
    return {component(pattern.major), component(pattern.minor), component(pattern.patch)};
}

/// One part of a format, such as "{base:16}".
struct Option
{
    QStringView name;
    int number;
};

/// Removes the first option from \a format and returns it; nothing if the format does not begin
/// with an option that has a number.
std::optional<Option> takeOption(QStringView &format)
{
    const qsizetype colon = format.indexOf(u':');
    const qsizetype end = format.indexOf(u'}');
    if (!format.startsWith(u'{') || colon < 0 || end < colon)
        return {};
    bool ok = false;
    const Option option{
        format.mid(1, colon - 1), format.mid(colon + 1, end - colon - 1).toInt(&ok)};
    format = format.mid(end + 1).trimmed();
    return ok ? std::optional(option) : std::nullopt;
}

/// The shortest text that reads back: plain where the first digit stands for 1e-5 to 1e15, else
/// with an exponent.
QString shortestText(double value, const QLocale &locale)
{
    constexpr int Shortest = QLocale::FloatingPointShortest;
    // QLocale drops the sign of 0.
    if (value == 0)
        return (std::signbit(value) ? locale.negativeSign() : QString())
            + locale.toString(0.0, 'f', Shortest);
    const double size = std::abs(value);
    return locale.toString(value, size >= 1e-5 && size < 1e16 ? 'f' : 'e', Shortest);
}

/// \a value in a format such as "{f:2}"; without a usable one the shortest text of \a shortest.
QString realText(double value, double shortest, const QString &format, const QLocale &locale)
{
    constexpr int MaxPrecision = 99;
    QStringView rest = QStringView(format).trimmed();
    const std::optional<Option> option = takeOption(rest);
    const bool isUsable = option && rest.isEmpty() && option->name.size() == 1
        && QStringView(u"feg").contains(option->name.front()) && option->number >= 0
        && option->number <= MaxPrecision;
    if (!isUsable)
        return shortestText(shortest, locale);
    return locale.toString(value, option->name.front().toLatin1(), option->number);
}

/// The double that has the shortest decimal text of those that read back as \a value. QLocale reads
/// a float as a double and refuses one above the largest float, so that the text of the largest
/// needs more digits.
double decimalOf(float value)
{
    const auto exact = static_cast<double>(value);
    if (!std::isfinite(value))
        return exact;
    std::array<char, 64> text{};
    const auto read = [&](const std::to_chars_result &written) {
        return QByteArrayView(text.data(), written.ptr - text.data()).toDouble();
    };
    double decimal = read(std::to_chars(text.begin(), text.end(), value));
    for (int digits = std::numeric_limits<float>::digits10;
         std::abs(decimal) > static_cast<double>((std::numeric_limits<float>::max)())
         || static_cast<float>(decimal) != value;
         ++digits)
        decimal = read(
            std::to_chars(text.begin(), text.end(), exact, std::chars_format::scientific, digits));
    return decimal;
}

/// Pads with zeros in front to \a width digits, without separators.
QString paddedText(quint64 magnitude, bool isNegative, qsizetype width, int base, QLocale locale)
{
    locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    const QString digits =
        base == 10 ? locale.toString(magnitude) : QString::number(magnitude, base);
    const QString zero = locale.zeroDigit();
    const qsizetype zeros = width - digits.size() / zero.size();
    return (isNegative ? locale.negativeSign() : QString())
        + zero.repeated(std::max<qsizetype>(zeros, 0)) + digits;
}

/// Replaces the signs and digits of \a locale in \a text by those of C.
QString inSignsOfC(QStringView text, const QLocale &locale)
{
    const QString zero = locale.zeroDigit();
    const uint zeroCode = QStringView(zero).toUcs4().value(0);
    const std::pair<QString, QLatin1String> signs[] = {
        // An exponential sign may contain digits, so it is looked for first.
        {locale.exponential(), QLatin1String("e")},
        {locale.negativeSign(), QLatin1String("-")},
        {locale.positiveSign(), QLatin1String("+")},
        {locale.decimalPoint(), QLatin1String(".")},
        {locale.numberOptions().testFlag(QLocale::RejectGroupSeparator) ? QString()
                                                                        : locale.groupSeparator(),
            QLatin1String()},
    };
    QString result;
    while (!text.isEmpty()) {
        const auto *const sign = std::find_if(std::begin(signs), std::end(signs),
            [&](const auto &s) { return !s.first.isEmpty() && text.startsWith(s.first); });
        if (sign != std::end(signs)) {
            result += sign->second;
            text = text.mid(sign->first.size());
            continue;
        }
        const QStringView character = text.left(text.front().isHighSurrogate() ? 2 : 1);
        const uint digit = character.toUcs4().value(0) - zeroCode;
        if (digit <= 9)
            result += QChar(u'0' + digit);
        else
            result += character;
        text = text.mid(character.size());
    }
    return result;
}

/// \a text as the C locale writes it, if it is to the letter what SConvert::toString() makes of a
/// number in \a locale; else an empty text.
QString plainText(const QString &text, const QLocale &locale)
{
    QString plain = inSignsOfC(text, locale);
    QLocale c = QLocale::c();
    c.setNumberOptions(locale.numberOptions());

    bool ok = false;
    const qlonglong integer = c.toLongLong(plain, &ok);
    if (ok) {
        const auto bits = static_cast<quint64>(integer);
        const auto width = plain.size() - (integer < 0 ? 1 : 0);
        if (text == locale.toString(integer)
            || text == paddedText(integer < 0 ? 0 - bits : bits, integer < 0, width, 10, locale))
            return plain;
    }
    const double real = c.toDouble(plain, &ok);
    if (!ok)
        return {};
    // In whatever notation it was written, the text itself tells the number of decimals.
    const qsizetype point = plain.indexOf(u'.');
    const qsizetype end = plain.indexOf(u'e');
    const auto decimals = int(point < 0 ? 0 : (end < 0 ? plain.size() : end) - point - 1);
    QLocale withoutGroups = locale;
    withoutGroups.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    for (const QLocale &writer : {locale, withoutGroups}) {
        if (text == shortestText(real, writer) || text == writer.toString(real, 'f', decimals)
            || text == writer.toString(real, 'e', decimals))
            return plain;
    }
    return {};
}

/// Reads \a text by a member of QLocale, or by plainText() where that refuses it.
template <typename T>
T readText(T (QLocale::*read)(QStringView, bool *) const, const QString &text, bool *ok,
    const QLocale &locale)
{
    bool isNumber = false;
    T value = (locale.*read)(text, &isNumber);
    if (!isNumber) {
        const QString plain = plainText(text, locale);
        if (!plain.isEmpty())
            value = (QLocale::c().*read)(plain, &isNumber);
    }
    if (ok)
        *ok = isNumber;
    return value;
}

bool isIndentedJson(const QString &format)
{
    return format == QStringLiteral("{json:indent}");
}

bool isJson(const QString &format)
{
    return format == QStringLiteral("{json}") || isIndentedJson(format);
}

QString jsonText(const QJsonDocument &document, const QString &format)
{
    const bool isIndented = isIndentedJson(format) || format == QStringLiteral("{indent}");
    return QString::fromUtf8(
        document.toJson(isIndented ? QJsonDocument::Indented : QJsonDocument::Compact));
}

/// With a blank, so that the parts of the text can be told apart in spite of decimal commas.
QString separator(const QLocale &locale)
{
    return locale.decimalPoint() == u',' ? QStringLiteral("; ") : QStringLiteral(", ");
}

/// The text of a value that is no number. Where there is no overload, it is what Qt makes of it.
/// @{
template <typename T>
QString valueText(const T &value, const QString &, const QLocale &)
{
    return QVariant::fromValue(value).toString();
}

QString valueText(OperatingSystem value, const QString &, const QLocale &locale)
{
    return OperatingSystem_T::instance().toString(value, locale);
}

template <typename T>
concept Time = STypeList<QDate, QTime, QDateTime>::contains<T>;

template <Time T>
QString valueText(const T &value, const QString &format, const QLocale &locale)
{
    if (!value.isValid())
        return {};
    const QStringView name = QStringView(format).trimmed();
    if (name == u"{iso}")
        return value.toString(Qt::ISODateWithMs);
    if (name == u"{short}")
        return locale.toString(value, QLocale::ShortFormat);
    if (name.isEmpty() || (name.startsWith(u'{') && name.endsWith(u'}')))
        return locale.toString(value, QLocale::LongFormat);
    return locale.toString(value, name);
}

template <typename T>
concept Json = STypeList<QJsonDocument, QJsonObject, QJsonArray>::contains<T>;

template <Json T>
QString valueText(const T &value, const QString &format, const QLocale &)
{
    return jsonText(QJsonDocument(value), format);
}

QString valueText(const QJsonValue &value, const QString &format, const QLocale &)
{
    if (value.isUndefined())
        return {};
    if (value.isObject())
        return jsonText(QJsonDocument(value.toObject()), format);
    if (value.isArray())
        return jsonText(QJsonDocument(value.toArray()), format);
    // A document holds nothing but an object or an array.
    const QString array = jsonText(QJsonDocument(QJsonArray{value}), QString());
    return array.mid(1, array.size() - 2);
}

QString valueText(const SVersion &value, const QString &format, const QLocale &locale)
{
    QString text = usableFormat(format);
    text.replace(MajorToken.text, locale.toString(value.major()));
    text.replace(MinorToken.text, locale.toString(value.minor()));
    text.replace(PatchToken.text, locale.toString(value.patch()));
    return text;
}
/// @}

/// What \a value holds, if that is a T, else null.
template <typename T>
const T *held(const QVariant &value)
{
    return MetaType::isSame(value.metaType(), QMetaType::fromType<T>())
        ? static_cast<const T *>(value.constData())
        : nullptr;
}

template <typename T, typename Visitor>
bool visitOne(const QVariant &value, const Visitor &visitor)
{
    const T *const content = held<T>(value);
    if (content)
        visitor(*content);
    return content != nullptr;
}

/// Calls \a visitor with what \a value holds, if it is one of the types.
template <typename... T, typename Visitor>
bool visit(STypeList<T...>, const QVariant &value, const Visitor &visitor)
{
    return (visitOne<T>(value, visitor) || ...);
}

template <typename First, typename... T>
using ListAfter = STypeList<T...>;
#define ENUM_NAME(Name) , Name
/// The enumerations of the library.
using LibraryEnums =
    ListAfter<void TAVEX_META_ENUMS(ENUM_NAME, ENUM_NAME) TAVEX_OTHER_ENUMS(ENUM_NAME),
        EnumTranslationOptions>;
#undef ENUM_NAME

/// The types of the library: Qt cannot reach the elements of their lists and maps.
template <typename... T>
STypeList<T..., SVersion> withVersion(STypeList<T...>);
using OwnTypes = decltype(withVersion(LibraryEnums()));

template <typename T>
using List = QList<T>;
template <typename T>
using ListOfLists = QList<QList<T>>;
template <typename T>
using Map = QMap<QString, T>;
template <typename T>
using Hash = QHash<QString, T>;

/// Calls \a open with what \a value holds if the name of its type is \a front, the name of one of
/// the types and closing brackets. (QMetaType::fromType() of all these containers would add
/// megabytes to the library.)
template <template <typename> typename Container, typename... T, typename Open>
bool openAs(STypeList<T...>, const QVariant &value, const char *front, const Open &open)
{
    QByteArrayView name(value.metaType().name());
    if (!name.startsWith(front))
        return false;
    name = name.sliced(qsizetype(qstrlen(front)));
    while (name.endsWith('>'))
        name.chop(1);
    const auto openOne = [&]<typename One>(const Container<One> *content) {
        const bool isSame = name == QMetaType::fromType<One>().name();
        if (isSame)
            open(*content);
        return isSame;
    };
    return (openOne.template operator()<T>(static_cast<const Container<T> *>(value.constData()))
        || ...);
}

/// A value with the description of its type. It is not put into a variant, which would register the
/// type.
struct Value
{
    Value(const QVariant &variant)
        : Value(variant.metaType(), variant.constData())
    {
    }
    Value(QMetaType metaType, const void *content)
        : type(metaType)
        , data(content)
        , registered(MetaType::registered(metaType))
    {
    }

    [[nodiscard]] bool isEnum() const { return type.flags().testFlag(QMetaType::IsEnumeration); }

    /// The number of an enumeration's value.
    [[nodiscard]] QVariant number() const
    {
        constexpr int Signed[] = {
            QMetaType::SChar, QMetaType::Short, QMetaType::Int, QMetaType::LongLong};
        constexpr int Unsigned[] = {
            QMetaType::UChar, QMetaType::UShort, QMetaType::UInt, QMetaType::ULongLong};
        const auto index = std::countr_zero(static_cast<quint64>(type.sizeOf()));
        const bool isUnsigned = type.flags().testFlag(QMetaType::IsUnsignedEnumeration);
        return QVariant(QMetaType((isUnsigned ? Unsigned : Signed)[index]), data);
    }

    /// The key of an enumeration's value, if Qt's meta-object compiler knows it.
    [[nodiscard]] QString key() const
    {
        const QMetaObject *const scope = type.metaObject();
        if (!scope)
            return {};
        QByteArray name(type.name());
        name = name.mid(name.lastIndexOf(':') + 1);
        if (name.endsWith('>'))
            name.chop(1); // QFlags<Scope::Name>
        const QMetaEnum keys = scope->enumerator(scope->indexOfEnumerator(name.constData()));
        const int value = number().toInt();
        return QString::fromUtf8(
            keys.isFlag() ? keys.valueToKeys(value) : QByteArray(keys.valueToKey(value)));
    }

    /// What Qt makes of it, else an enumeration's key or number.
    [[nodiscard]] QString text(const QLocale &locale) const
    {
        QString result;
        if (registered.isValid())
            QMetaType::convert(registered, data, QMetaType::fromType<QString>(), &result);
        if (result.isEmpty() && isEnum()) {
            result = key();
            if (result.isEmpty())
                result = SConvert::toString(number(), locale);
        }
        return result;
    }

    /// The function that was registered for its type, or null.
    [[nodiscard]] SVariantConvert::Converter converter() const
    {
        return SVariantConvert::sVariantToStringFunction(registered.id());
    }

    QMetaType type;
    const void *data;
    QMetaType registered; ///< The registered description, maybe of another module; invalid if there
                          ///< is none.
};

} // namespace

bool SConvert::toBool(const QString &text, const QLocale &locale)
{
    const QString word = text.trimmed();
    const auto isWord = [&](const QString &other) {
        return word.compare(other, Qt::CaseInsensitive) == 0;
    };
    const QString trueKey = Bool_T::instance().toString(Bool::True);
    if (locale.language() == QLocale().language() && !word.isEmpty()) {
        const Bool_TR &translator = Bool_TR::instance();
        for (const EnumTranslationOptions language :
            {EnumTranslationOptions::TranslateLocale, EnumTranslationOptions::TranslateFallback}) {
            if (isWord(translator.etr(trueKey, language | EnumTranslationOptions::NoKeyFallback)))
                return true;
        }
    }
    return isWord(trueKey);
}

bool SNumberConvert::convert(const QVariant &value, QMetaType type, void *result)
{
    const Value from(value);
    if (from.registered.isValid())
        return QMetaType::convert(from.registered, from.data, type, result);
    return from.isEnum() && convert(from.number(), type, result);
}

#define DEFINE_TO_INTEGER(Name, T, Member)                                                         \
    T SNumberConvert::Name(const QString &text, bool *ok, const QLocale &locale, int base)         \
    {                                                                                              \
        if (base == 10)                                                                            \
            return static_cast<T>(readText(&QLocale::Member, text, ok, locale));                   \
        if (base == 0 || (base >= 2 && base <= 36))                                                \
            return static_cast<T>(text.Member(ok, base));                                          \
        if (ok)                                                                                    \
            *ok = false;                                                                           \
        return 0;                                                                                  \
    }
DEFINE_TO_INTEGER(toInt8, qint8, toShort)
DEFINE_TO_INTEGER(toUInt8, quint8, toUShort)
DEFINE_TO_INTEGER(toInt16, qint16, toShort)
DEFINE_TO_INTEGER(toUInt16, quint16, toUShort)
DEFINE_TO_INTEGER(toInt32, qint32, toInt)
DEFINE_TO_INTEGER(toUInt32, quint32, toUInt)
DEFINE_TO_INTEGER(toInt64, qint64, toLongLong)
DEFINE_TO_INTEGER(toUInt64, quint64, toULongLong)
#undef DEFINE_TO_INTEGER

float SNumberConvert::toSingle(const QString &text, bool *ok, const QLocale &locale)
{
    return readText(&QLocale::toFloat, text, ok, locale);
}

double SNumberConvert::toDouble(const QString &text, bool *ok, const QLocale &locale)
{
    return readText(&QLocale::toDouble, text, ok, locale);
}

QString SConvert::integerText(
    quint64 magnitude, bool isNegative, const QString &format, const QLocale &locale)
{
    constexpr int MaxBase = 36;
    constexpr int MaxWidth = 64;
    int base = 10;
    qsizetype width = 0;
    for (QStringView rest = QStringView(format).trimmed(); !rest.isEmpty();) {
        const std::optional<Option> option = takeOption(rest);
        const int number = option ? option->number : 0;
        if (number >= 2 && number <= MaxBase && option->name == u"base")
            base = number;
        else if (number >= 1 && number <= MaxWidth && option->name == u"width")
            width = number;
        else
            return isNegative ? locale.toString(static_cast<qlonglong>(0 - magnitude))
                              : locale.toString(magnitude);
    }
    return paddedText(magnitude, isNegative, width, base, base == 10 ? locale : QLocale::c());
}

QString SConvert::text(float value, const QString &format, const QLocale &locale)
{
    return realText(static_cast<double>(value), decimalOf(value), format, locale);
}

QString SConvert::text(double value, const QString &format, const QLocale &locale)
{
    return format.isEmpty() ? shortestText(value, locale) : realText(value, value, format, locale);
}

QString SConvert::text(bool value, const QString &, const QLocale &locale)
{
    const QString key = Bool_T::instance().toString(Bool(value));
    return locale.language() == QLocale().language() ? Bool_TR::instance().etr(key) : key;
}

/// \a value, or what it holds as a QVariantList or QVariantMap if that is a list or a map.
QVariant SConvert::opened(const QVariant &value, const QString &format, const QLocale &locale)
{
    if (held<QVariantList>(value) || held<QVariantMap>(value))
        return value;
    QVariant result = value;
    const auto take = [&]<typename T>(const T &content) {
        if constexpr (std::same_as<T, QVariant>)
            result = opened(content, format, locale);
    };
    const auto open = [&](const auto &content) { result = variant(content, format, locale); };
    if (visit(STextTypes(), value, take) || visitOne<QStringList>(value, open)
        || visitOne<QByteArrayList>(value, open)
        || openAs<List>(STextTypes(), value, "QList<", open)
        || openAs<List>(LibraryEnums(), value, "QList<", open)
        || openAs<ListOfLists>(OwnTypes(), value, "QList<QList<", open)
        || openAs<Map>(OwnTypes(), value, "QMap<QString,", open)
        || openAs<Hash>(OwnTypes(), value, "QHash<QString,", open))
        return result;
    // Other containers whose elements Qt can reach.
    const QMetaType type = MetaType::registered(value.metaType());
    if (!type.isValid() || QMetaType::canConvert(type, QMetaType::fromType<QString>()))
        return result;
    QVariantList list;
    if (QMetaType::convert(type, value.constData(), QMetaType::fromType<QVariantList>(), &list))
        return list;
    QVariantMap map;
    if (QMetaType::convert(type, value.constData(), QMetaType::fromType<QVariantMap>(), &map))
        return map;
    return result;
}

QJsonValue SConvert::json(const QVariant &value)
{
    const QVariant content = opened(value, QString(), QLocale::c());
    if (const auto *const list = held<QVariantList>(content)) {
        QJsonArray array;
        for (const QVariant &element : *list)
            array.append(json(element));
        return array;
    }
    if (const auto *const map = held<QVariantMap>(content)) {
        QJsonObject object;
        for (auto entry = map->cbegin(); entry != map->cend(); ++entry)
            object.insert(entry.key(), json(entry.value()));
        return object;
    }
    QJsonValue result;
    const auto write = [&]<typename T>(const T &number) {
        if constexpr (SInteger<T>) {
            // Most programs read a number as a double, which cannot hold more bits.
            constexpr auto MaxExact = qlonglong(1) << 53;
            const auto wide = widened(number);
            if (std::cmp_less_equal(wide, MaxExact) && std::cmp_greater_equal(wide, -MaxExact))
                result = static_cast<qint64>(wide);
            else
                result = QString::number(wide);
        } else if constexpr (std::same_as<T, float>) {
            result = decimalOf(number);
        } else if constexpr (std::same_as<T, SVersion>) {
            result = toString(number, QLocale::c());
        } else {
            result = QJsonValue::fromVariant(QVariant::fromValue(number));
        }
    };
    if (visit(STextTypes(), content, write))
        return result;
    const QString text = variantText(content, QString(), QLocale::c());
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QString SConvert::enumText(
    QMetaType type, const void *value, const QString &format, const QLocale &locale)
{
    if (isJson(format))
        return enumText(type, value, QString(), QLocale::c());
    if (MetaType::isSame(type, QMetaType::fromType<OperatingSystem>()))
        return OperatingSystem_T::instance().toString(
            *static_cast<const OperatingSystem *>(value), locale);
    const Value number(type, value);
    if (const auto converter = number.converter())
        return converter(QVariant(number.registered, value), format, locale);
    return number.text(locale);
}

QString SConvert::variantText(const QVariant &value, const QString &format, const QLocale &locale)
{
    const auto converter = Value(value).converter();
    return converter ? converter(value, format, locale) : valueText(value, format, locale);
}

QString SConvert::valueText(const QVariant &value, const QString &format, const QLocale &locale)
{
    const QVariant content = opened(value, format, locale);
    const auto *const list = held<QVariantList>(content);
    const auto *const map = held<QVariantMap>(content);
    if ((list || map) && isJson(format)) {
        const QJsonValue root = json(content);
        return jsonText(
            list ? QJsonDocument(root.toArray()) : QJsonDocument(root.toObject()), format);
    }
    if (list || map) {
        const auto element = [&](const QVariant &e) { return elementText(e, format, locale); };
        QStringList texts;
        if (list) {
            std::ranges::transform(*list, std::back_inserter(texts), element);
        } else {
            for (auto entry = map->cbegin(); entry != map->cend(); ++entry)
                texts.append(entry.key() + QStringLiteral(": ") + element(entry.value()));
        }
        return texts.join(separator(locale));
    }
    QString result;
    const auto write = [&]<typename T>(const T &single) {
        if constexpr (SScalar<T>)
            result = text(single, format, locale);
        else
            result = Quorvex::valueText(single, format, locale);
    };
    return visit(STextTypes(), content, write) || visitOne<OperatingSystem>(content, write)
        ? result
        : Value(content).text(locale);
}

/// As variantText(), but lists and maps are put in brackets.
QString SConvert::elementText(const QVariant &value, const QString &format, const QLocale &locale)
{
    if (const auto converter = Value(value).converter())
        return converter(value, format, locale);
    const QVariant content = opened(value, format, locale);
    const QString text = valueText(content, format, locale);
    if (held<QVariantList>(content))
        return u'[' + text + u']';
    return held<QVariantMap>(content) ? u'{' + text + u'}' : text;
}

SVersion SConvert::toVersion(const QString &text, const QLocale &locale)
{
    static constinit Lasting<VersionPattern> pattern;
    return findVersion(
        text, pattern.get([] { return std::make_unique<VersionPattern>(QString()); }), locale);
}

SVersion SConvert::toVersion(const QString &text, const QString &format, const QLocale &locale)
{
    return findVersion(text, VersionPattern(format), locale);
}

SVersion SConvert::variantToVersion(
    const QVariant &value, const QString &format, const QLocale &locale)
{
    if (isText(value))
        return toVersion(value.toString(), format, locale);
    SVersion version;
    return convert(value, QMetaType::fromType<SVersion>(), &version) ? version : SVersion();
}

QVariant SConvert::toVariant(const SVersion &version)
{
    return QVariant::fromValue(version);
}

} // namespace Quorvex
