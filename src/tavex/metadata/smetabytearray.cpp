#include <tavex/metadata/smetabytearray.h>

#include <tavex/metadata/metaclass_p.h>

#include <QStringConverter>

namespace Quorvex {

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
    // A decoder with a state would wait for the rest of a character that the bytes cut off.
    QStringDecoder decoder(
        format.isEmpty() ? "UTF-8" : format.toUtf8().constData(), QStringDecoder::Flag::Stateless);
    if (decoder.isValid()) {
        QString text = decoder.decode(m_value);
        if (!decoder.hasError())
            return text;
    }
    return QStringLiteral("Binary data [len: %1 bytes]").arg(m_value.size());
}

bool SMetaByteArray::equalsTo(const IEquatable *other) const
{
    return equalValues(this, other);
}

} // namespace Quorvex
