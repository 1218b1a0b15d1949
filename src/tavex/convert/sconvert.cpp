#include <tavex/convert/sconvert.h>

#include <QRegularExpression>

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
    int major = -1;
    int minor = -1;
    int patch = -1;
};

SVersion findVersion(const QString &text, const VersionPattern &pattern, const QLocale &locale)
{
    if (!pattern.expression.isValid())
        return {};
    const QRegularExpressionMatch match = pattern.expression.match(text);
    if (!match.hasMatch())
        return {};
    const auto component = [&](int group) { return locale.toInt(match.capturedView(group)); };
    return {component(pattern.major), component(pattern.minor), component(pattern.patch)};
}

} // namespace

QString SConvert::toString(const SVersion &version)
{
    return toString(version, QString());
}

QString SConvert::toString(const SVersion &version, const QLocale &locale)
{
    return toString(version, QString(), locale);
}

QString SConvert::toString(const SVersion &version, const QString &format, const QLocale &locale)
{
    QString text = usableFormat(format);
    text.replace(MajorToken.text, locale.toString(version.major()));
    text.replace(MinorToken.text, locale.toString(version.minor()));
    text.replace(PatchToken.text, locale.toString(version.patch()));
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
