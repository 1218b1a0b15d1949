#include <tavex/metadata/smetabytearray.h>

#include <tavex/metadata/metaclass_p.h>

#include <QStringConverter>

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

SMetaByteArray::SMetaByteArray(const QByteArray &value)
    : m_value(value)
{
}

SMetaByteArray::~SMetaByteArray() = default;

bool SMetaByteArray::isNull() const
{
    return m_value.isNull();
}

bool SMetaByteArray::isEmpty() const
{
    return m_value.isEmpty();
}

MetadataFlags SMetaByteArray::flags()
{
    return MetadataFlags::None;
}

QString SMetaByteArray::name()
{
    return QStringLiteral("SMetaByteArray");
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

bool SMetaByteArray::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
