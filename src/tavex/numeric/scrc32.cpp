#include <tavex/numeric/scrc32.h>

#include <QIODevice>
#include <QtEndian>

#include <memory>
#include <new>

namespace Quorvex {

/// The tables of one polynomial: those that every process has, or computed ones.
class SCrc32Tables
{
public:
    using Tables = SCrc32::Tables;

    static constexpr Tables compute(uint polynomial) noexcept
    {
        Tables tables{};
        for (uint i = 0; i < 256; ++i) {
            uint entry = i << 24;
            for (int bit = 0; bit < 8; ++bit)
                entry = entry & 0x80000000 ? entry << 1 ^ polynomial : entry << 1;
            tables[0][i] = entry;
        }
        for (std::size_t k = 1; k < tables.size(); ++k) {
            for (std::size_t i = 0; i < 256; ++i) {
                const uint before = tables[k - 1][i];
                tables[k][i] = before << 8 ^ tables[0][before >> 24];
            }
        }
        return tables;
    }

    /// The ready tables of \a polynomial, or null. They are part of the library file: loading it
    /// costs no computation, and no two threads can meet while they are made.
    static const Tables *ready(uint polynomial) noexcept
    {
        static constexpr Tables mpeg2 = compute(SCrc32::DefaultPolynomial);
        static constexpr Tables koopman = compute(0x82608EDB);
        static constexpr Tables reflected = compute(0xEDB88320);
        switch (polynomial) {
        case SCrc32::DefaultPolynomial:
            return &mpeg2;
        case 0x82608EDB:
            return &koopman;
        case 0xEDB88320:
            return &reflected;
        default:
            return nullptr;
        }
    }

    explicit SCrc32Tables(uint polynomial) noexcept
        : m_tables(ready(polynomial))
    {
        if (!m_tables)
            m_tables = &m_computed.emplace(compute(polynomial));
    }
    Q_DISABLE_COPY_MOVE(SCrc32Tables)
    ~SCrc32Tables() = default;

    [[nodiscard]] uint hash(QByteArrayView data) const noexcept
    {
        return run(*m_tables, SCrc32::initValue(), data.data(), quint64(data.size()));
    }

    [[nodiscard]] const Tables &get() const noexcept { return *m_tables; }

    static uint run(const Tables &t, uint crc, const char *data, quint64 length) noexcept
    {
        const auto *bytes = reinterpret_cast<const uchar *>(data);
        for (; length >= 8; length -= 8, bytes += 8) {
            const uint a = crc ^ qFromBigEndian<uint>(bytes);
            const uint b = qFromBigEndian<uint>(bytes + 4);
            crc = t[7][a >> 24] ^ t[6][a >> 16 & 0xFF] ^ t[5][a >> 8 & 0xFF] ^ t[4][a & 0xFF]
                ^ t[3][b >> 24] ^ t[2][b >> 16 & 0xFF] ^ t[1][b >> 8 & 0xFF] ^ t[0][b & 0xFF];
        }
        for (; length > 0; --length, ++bytes)
            crc = crc << 8 ^ t[0][crc >> 24 ^ *bytes];
        return crc;
    }

private:
    const Tables *m_tables;
    std::optional<Tables> m_computed;
};

// Copies of the object and its place in other structures count on this.
static_assert(sizeof(SCrc32) == sizeof(uint) * (8 * 256 + 2));
static_assert(std::is_trivially_copyable_v<SCrc32>);

SCrc32::SCrc32(uint polynomial) noexcept
    : m_polynomial(polynomial)
{
    const Tables *ready = SCrc32Tables::ready(polynomial);
    m_tables = ready ? *ready : SCrc32Tables::compute(polynomial);
}

uint SCrc32::update(uint crc, const char *data, quint64 length) noexcept
{
    return m_value = SCrc32Tables::run(m_tables, crc, data, data ? length : 0);
}

QByteArrayView SCrc32::section(const QByteArray &data, quint64 from, quint64 to) noexcept
{
    const auto end = qMin(to, quint64(data.size()));
    const auto start = qMin(from, end);
    return QByteArrayView(data).sliced(qsizetype(start), qsizetype(end - start));
}

uint SCrc32::hash(const QByteArray &data, uint polynomial) noexcept
{
    return SCrc32Tables(polynomial).hash(data);
}

uint SCrc32::hash(const QByteArray &data, quint64 from, quint64 to, uint polynomial) noexcept
{
    return SCrc32Tables(polynomial).hash(section(data, from, to));
}

uint SCrc32::hash(const QString &text, uint polynomial)
{
    return hash(text.toUtf8(), polynomial);
}

uint SCrc32::hash(QIODevice *device, bool *ok, uint polynomial)
{
    constexpr qint64 ChunkSize = 65536;

    uint crc = initValue();
    const std::unique_ptr<char[]> chunk(new (std::nothrow) char[ChunkSize]);
    bool success = false;
    if (device && device->isReadable() && chunk) {
        const SCrc32Tables tables(polynomial);
        qint64 count = 0;
        do {
            count = device->read(chunk.get(), ChunkSize);
            if (count > 0)
                crc = SCrc32Tables::run(tables.get(), crc, chunk.get(), quint64(count));
        } while (count > 0 || (count == 0 && device->waitForReadyRead(-1)));
        success = count == 0 || device->isSequential();
    }
    if (ok)
        *ok = success;
    return crc;
}

uint SCrc32::hash(QIODevice *device, uint polynomial)
{
    return hash(device, nullptr, polynomial);
}

} // namespace Quorvex
