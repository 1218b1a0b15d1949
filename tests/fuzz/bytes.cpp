#include "fuzz.h"

#include <tavex/SMetaByteArray>

namespace {

class Bytes : public Quorvex::SMetaByteArray
{
public:
    using SMetaByteArray::SMetaByteArray;
    [[nodiscard]] Quorvex::Interfaces::ICloneable *clone() const override { return nullptr; }
    [[nodiscard]] quint64 id() const override { return 0; }
};

} // namespace

int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    const QString format = input.text();
    const QByteArray value = input.bytes(qsizetype(size));
    Bytes bytes(value);
    (void)bytes.toString(format, QLocale::c());

    const QString text = bytes.toString(QString(), QLocale::c());
    check(text.toUtf8() == value
        || text == QStringLiteral("Binary data [len: %1 bytes]").arg(value.size())
        || value.startsWith("\xEF\xBB\xBF"));
    return 0;
}
