#include <tavex/convert/sconvert.h>

#include <tavex/convert/svariantconvert.h>
#include <tavex/enums/bool.h>
#include <tavex/enums/operatingsystem.h>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QUrl>
#include <QUuid>

#include <algorithm>
#include <limits>
#include <optional>

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

/// The expression of a format, and the numbers of its groups; -1 for a component that it leaves
/// out.
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
    // One or two digits of ASCII need no parser where they are the locale's own. A group that the
    // format names itself may be any text.
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

/// Takes the first option off \a format; nothing if it does not begin with one that has a number.
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

/// "{f:2}" and the like. Without it, the \a shortest text from which the value can be read back.
QString realText(double value, int shortest, const QString &format, const QLocale &locale)
{
    constexpr int MaxPrecision = 99;
    QStringView rest = QStringView(format).trimmed();
    const std::optional<Option> option = takeOption(rest);
    const bool isUsable = option && rest.isEmpty() && option->name.size() == 1
        && QStringView(u"feg").contains(option->name.front()) && option->number >= 0
        && option->number <= MaxPrecision;
    if (!isUsable)
        return locale.toString(value, 'g', shortest);
    return locale.toString(value, option->name.front().toLatin1(), option->number);
}

/// How many digits it takes to read \a value back; six never lose a digit that was there. QLocale
/// reads a double and refuses it above the largest float, to which the nearest short texts round
/// up.
int digitsOf(float value)
{
    constexpr int MaxDigits = std::numeric_limits<double>::max_digits10;
    const auto number = static_cast<double>(value);
    int digits = std::numeric_limits<float>::digits10;
    while (std::isfinite(value) && digits < MaxDigits) {
        const double read = QByteArray::number(number, 'e', digits - 1).toDouble();
        if (std::abs(read) <= static_cast<double>((std::numeric_limits<float>::max)())
            && static_cast<float>(read) == value)
            break;
        ++digits;
    }
    return digits;
}

template <typename T>
QString timeText(const T &value, const QString &format, const QLocale &locale)
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
    return locale.toString(value, format);
}

bool isIndentedJson(const QString &format)
{
    return QStringView(format).trimmed() == u"{json:indent}";
}

bool isJson(const QString &format)
{
    return QStringView(format).trimmed() == u"{json}" || isIndentedJson(format);
}

QString jsonText(const QJsonDocument &document, const QString &format)
{
    const bool isIndented = isIndentedJson(format) || QStringView(format).trimmed() == u"{indent}";
    return QString::fromUtf8(
        document.toJson(isIndented ? QJsonDocument::Indented : QJsonDocument::Compact))
        .trimmed();
}

/// A blank follows, so that the text can be taken apart in spite of decimal commas.
QString separator(const QLocale &locale)
{
    return locale.decimalPoint() == u',' ? QStringLiteral("; ") : QStringLiteral(", ");
}

template <typename T>
constexpr bool isList = false;
template <typename T>
constexpr bool isList<QList<T>> = true;

/// Whether \a value holds a T. Types that no one has registered are compared by their names: asking
/// for an id would register this library's description of them, which the library does not outlive.
template <typename T>
bool holds(const QVariant &value)
{
    constexpr auto type = QMetaType::fromType<T>();
    return type.isRegistered() ? value.userType() == type.id()
                               : qstrcmp(value.metaType().name(), type.name()) == 0;
}

/// Calls \a visitor with what \a value holds, if it is one of the types.
template <typename... T, typename Visitor>
bool visit(STypeList<T...>, const QVariant &value, const Visitor &visitor)
{
    return (
        (holds<T>(value) && (visitor(*static_cast<const T *>(value.constData())), true)) || ...);
}

using ScalarTypes = STypeList<bool, int, double, qlonglong, uint, qulonglong, float, signed char,
    uchar, short, ushort, long, ulong, QString>;
using ListTypes = STypeList<QVariantList, QStringList, QList<bool>, QList<signed char>,
    QList<uchar>, QList<short>, QList<ushort>, QList<int>, QList<uint>, QList<long>, QList<ulong>,
    QList<qlonglong>, QList<qulonglong>, QList<float>, QList<double>, OperatingSystem>;

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

    QLocale plain = base == 10 ? locale : QLocale::c();
    plain.setNumberOptions(plain.numberOptions() | QLocale::OmitGroupSeparator);
    const QString digits =
        base == 10 ? plain.toString(magnitude) : QString::number(magnitude, base);
    const QString zero = plain.zeroDigit();
    const qsizetype zeros = width - digits.size() / zero.size();
    return (isNegative ? plain.negativeSign() : QString())
        + zero.repeated(std::max<qsizetype>(zeros, 0)) + digits;
}

QString SConvert::text(float value, const QString &format, const QLocale &locale)
{
    return realText(static_cast<double>(value), digitsOf(value), format, locale);
}

QString SConvert::text(double value, const QString &format, const QLocale &locale)
{
    if (format.isEmpty())
        return locale.toString(value, 'g', QLocale::FloatingPointShortest);
    return realText(value, QLocale::FloatingPointShortest, format, locale);
}

QString SConvert::text(bool value, const QString &, const QLocale &locale)
{
    const QString key = Bool_T::instance().toString(Bool(value));
    return locale.language() == QLocale().language() ? Bool_TR::instance().etr(key) : key;
}

QString SConvert::text(OperatingSystem value, const QString &, const QLocale &locale)
{
    return OperatingSystem_T::instance().toString(value, locale);
}

QString SConvert::text(const QString &value, const QString &, const QLocale &)
{
    return value;
}

QString SConvert::text(const QByteArray &value, const QString &, const QLocale &)
{
    return QString::fromUtf8(value);
}

QString SConvert::text(const QDate &value, const QString &format, const QLocale &locale)
{
    return timeText(value, format, locale);
}

QString SConvert::text(const QTime &value, const QString &format, const QLocale &locale)
{
    return timeText(value, format, locale);
}

QString SConvert::text(const QDateTime &value, const QString &format, const QLocale &locale)
{
    return timeText(value, format, locale);
}

QString SConvert::text(const QUrl &value, const QString &, const QLocale &)
{
    return value.toString();
}

QString SConvert::text(const QUuid &value, const QString &, const QLocale &)
{
    return value.toString();
}

QString SConvert::text(const QJsonDocument &value, const QString &format, const QLocale &)
{
    return jsonText(value, format);
}

QString SConvert::text(const QJsonObject &value, const QString &format, const QLocale &)
{
    return jsonText(QJsonDocument(value), format);
}

QString SConvert::text(const QJsonArray &value, const QString &format, const QLocale &)
{
    return jsonText(QJsonDocument(value), format);
}

QString SConvert::text(const QJsonValue &value, const QString &format, const QLocale &)
{
    if (value.isUndefined())
        return {};
    if (value.isObject())
        return jsonText(QJsonDocument(value.toObject()), format);
    if (value.isArray())
        return jsonText(QJsonDocument(value.toArray()), format);
    // Documents hold no other values by themselves.
    const QString array = jsonText(QJsonDocument(QJsonArray{value}), QString());
    return array.mid(1, array.size() - 2);
}

QString SConvert::text(const QVariantList &value, const QString &format, const QLocale &locale)
{
    if (isJson(format))
        return jsonText(QJsonDocument(QJsonArray::fromVariantList(value)), format);
    QStringList texts;
    texts.reserve(value.size());
    for (const QVariant &element : value)
        texts.append(variantText(element, format, locale, true));
    return texts.join(separator(locale));
}

QString SConvert::text(const QVariantMap &value, const QString &format, const QLocale &locale)
{
    if (isJson(format))
        return jsonText(QJsonDocument(QJsonObject::fromVariantMap(value)), format);
    QStringList texts;
    texts.reserve(value.size());
    for (auto entry = value.cbegin(); entry != value.cend(); ++entry)
        texts.append(
            entry.key() + QStringLiteral(": ") + variantText(entry.value(), format, locale, true));
    return texts.join(separator(locale));
}

QString SConvert::text(const QVariantHash &value, const QString &format, const QLocale &locale)
{
    // In the order of the keys, so that the text does not change from run to run.
    QVariantMap sorted;
    for (auto entry = value.cbegin(); entry != value.cend(); ++entry)
        sorted.insert(entry.key(), entry.value());
    return text(sorted, format, locale);
}

QString SConvert::text(const QVariant &value, const QString &format, const QLocale &locale)
{
    return variantText(value, format, locale, false);
}

QString SConvert::variantText(
    const QVariant &value, const QString &format, const QLocale &locale, bool isElement)
{
    if (const auto converter = SVariantConvert::sVariantToStringFunction(value.userType()))
        return converter(value, format, locale);

    QString result;
    const auto write = [&]<typename T>(const T &held) {
        if constexpr (std::same_as<T, QVariant>)
            result = variantText(held, format, locale, isElement);
        else
            result = text(held, format, locale);
        if (isElement && isList<T>)
            result = u'[' + result + u']';
        else if (isElement && (std::same_as<T, QVariantMap> || std::same_as<T, QVariantHash>))
            result = u'{' + result + u'}';
    };
    if (visit(ScalarTypes(), value, write) || visit(STextTypes(), value, write)
        || visit(ListTypes(), value, write))
        return result;

    result = value.toString();
    const QMetaType::TypeFlags flags = value.metaType().flags();
    if (result.isEmpty() && flags.testFlag(QMetaType::IsEnumeration)) {
        result = flags.testFlag(QMetaType::IsUnsignedEnumeration)
            ? locale.toString(value.toULongLong())
            : locale.toString(value.toLongLong());
    }
    return result;
}

QString SConvert::text(const SVersion &value, const QString &format, const QLocale &locale)
{
    QString text = usableFormat(format);
    text.replace(MajorToken.text, locale.toString(value.major()));
    text.replace(MinorToken.text, locale.toString(value.minor()));
    text.replace(PatchToken.text, locale.toString(value.patch()));
    return text;
}

SVersion SConvert::toVersion(const QString &text, const QLocale &locale)
{
    static const VersionPattern pattern{QString()};
    return findVersion(text, pattern, locale);
}

SVersion SConvert::toVersion(const QString &text, const QString &format, const QLocale &locale)
{
    return findVersion(text, VersionPattern(format), locale);
}

SVersion SConvert::variantToVersion(
    const QVariant &value, const QString &format, const QLocale &locale)
{
    if (value.userType() == QMetaType::QString)
        return toVersion(value.toString(), format, locale);
    const auto type = QMetaType::fromType<SVersion>();
    if (value.metaType() == type)
        return *static_cast<const SVersion *>(value.constData());
    SVersion version;
    if (!QMetaType::convert(value.metaType(), value.constData(), type, &version))
        return {};
    return version;
}

QVariant SConvert::toVariant(const SVersion &version)
{
    return QVariant::fromValue(version);
}

} // namespace Quorvex
