// The classes that hold one of Qt's values.

#include <tavex/metadata/metaclass_p.h>
#include <tavex/metadata/smetabytearray.h>
#include <tavex/metadata/smetadatetime.h>
#include <tavex/metadata/smetajsondocument.h>
#include <tavex/metadata/smetastring.h>

#include <tavex/convert/sconvert.h>

#include <QStringConverter>

#define DEFINE_META_VALUE(Name, T, Flags, IsEmpty)                                                 \
    Name::Name(const T &value)                                                                     \
        : m_value(value)                                                                           \
    {                                                                                              \
    }                                                                                              \
    Name::~Name() = default;                                                                       \
    bool Name::isNull() const                                                                      \
    {                                                                                              \
        return m_value.isNull();                                                                   \
    }                                                                                              \
    bool Name::isEmpty() const                                                                     \
    {                                                                                              \
        return IsEmpty;                                                                            \
    }                                                                                              \
    MetadataFlags Name::flags()                                                                    \
    {                                                                                              \
        return MetadataFlags::Flags;                                                               \
    }                                                                                              \
    bool Name::equalsTo(const IEquatable *other) const                                             \
    {                                                                                              \
        return equalValues(this, other);                                                           \
    }

namespace Quorvex {
namespace {

/// Of how many bytes each unit of \a encoding is; 1 where it may have any number.
qsizetype unitOf(const QByteArray &encoding)
{
    switch (
        QStringConverter::encodingForName(encoding.constData()).value_or(QStringConverter::Utf8)) {
    case QStringConverter::Utf16:
    case QStringConverter::Utf16BE:
    case QStringConverter::Utf16LE:
        return 2;
    case QStringConverter::Utf32:
    case QStringConverter::Utf32BE:
    case QStringConverter::Utf32LE:
        return 4;
    default:
        return 1;
    }
}

/// What QStringDecoder misses in \a bytes of UTF-16 and UTF-32: units that are cut off, and halves
/// of pairs.
bool isWhole(const QByteArray &bytes, const QByteArray &encoding)
{
    const qsizetype unit = unitOf(encoding);
    if (unit == 1)
        return true;
    QStringDecoder decoder(encoding.constData(),
        QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder.decode(bytes);
    return bytes.size() % unit == 0 && text.isValidUtf16()
        && (unit == 2 || text.toUcs4().size() == bytes.size() / unit);
}

} // namespace

DEFINE_META_VALUE(SMetaString, QString, None, m_value.isEmpty())
DEFINE_META_VALUE(SMetaDateTime, QDateTime, Volatile, isNull() || !m_value.isValid())
DEFINE_META_VALUE(SMetaByteArray, QByteArray, None, isNull() || m_value.isEmpty())
DEFINE_META_VALUE(SMetaJsonDocument, QJsonDocument, None, m_value.isEmpty())

QString SMetaByteArray::name()
{
    return QStringLiteral("SMetaByteArray");
}

QString SMetaJsonDocument::name()
{
    return QStringLiteral("SMetaJsonDocument");
}

QString SMetaString::toString(const QString &, const QLocale &)
{
    return m_value;
}

QString SMetaDateTime::toString(const QString &format, const QLocale &locale)
{
    return SConvert::toString(m_value.toLocalTime(), format, locale);
}

QString SMetaByteArray::toString(const QString &format, const QLocale &)
{
    const QByteArray encoding = format.isEmpty() ? QByteArrayLiteral("UTF-8") : format.toUtf8();
    // A decoder with a state would wait for the rest of a character that the bytes cut off.
    QStringDecoder decoder(encoding.constData(), QStringDecoder::Flag::Stateless);
    if (decoder.isValid()) {
        QString text = decoder.decode(m_value);
        if (!decoder.hasError() && isWhole(m_value, encoding))
            return text;
    }
    return QStringLiteral("Binary data [len: %1 bytes]").arg(m_value.size());
}

QString SMetaJsonDocument::toString(const QString &format, const QLocale &locale)
{
    return SConvert::toString(m_value, format, locale);
}

} // namespace Quorvex
