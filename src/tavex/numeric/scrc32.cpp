#include <tavex/numeric/scrc32.h>

#include <tavex/numeric/scrc32_p.h>

#include <QDataStream>
#include <QDebug>
#include <QIODevice>

#include <atomic>
#include <memory>
#include <new>
#include <optional>

namespace Quorvex {

/// How SCrc32 works: by folding where the processor can, else by tables. Of the common polynomials
/// the library file has both ready, so that loading it costs no computation.
class SCrc32::Engine
{
public:
    static constexpr Tables computeTables(uint polynomial) noexcept
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

    /// The tables of a common polynomial; null for others.
    static const Tables *readyTables(uint polynomial) noexcept
    {
        const Ready *const known = ready(polynomial);
        return known ? &known->tables : nullptr;
    }

    /// Goes on from \a crc with \a length bytes. \a tables is called for the tables where the
    /// processor cannot fold, for a few bytes, and for less than \a worthConstants bytes of a
    /// polynomial that is not common.
    template <typename GetTables>
    static uint run(uint polynomial, GetTables tables, std::size_t worthConstants, uint crc,
        const char *data, quint64 length) noexcept
    {
        if (length < ShortestFold)
            return slice(tables(), crc, data, length);
        const auto *const bytes = reinterpret_cast<const uchar *>(data);
        const auto size = static_cast<std::size_t>(length);
        const Crc32::Fold fold = fastestFold();
        const Ready *const known = ready(polynomial);
        if (known && fold)
            return fold(known->constants, crc, bytes, size);
        if (fold && size >= worthConstants)
            return foldUncommon(fold, polynomial, crc, bytes, size);
        return slice(tables(), crc, data, length);
    }

private:
    struct Ready
    {
        Tables tables;
        Crc32::FoldConstants constants;
    };

    static constexpr Ready make(uint polynomial) noexcept
    {
        return {computeTables(polynomial), Crc32::foldConstants<Crc32::SlowMultiply>(polynomial)};
    }

    static const Ready *ready(uint polynomial) noexcept
    {
        static constexpr Ready mpeg2 = make(DefaultPolynomial);
        static constexpr Ready koopman = make(0x82608EDB);
        static constexpr Ready reflected = make(0xEDB88320);
        if (polynomial == DefaultPolynomial)
            return &mpeg2;
        switch (polynomial) {
        case 0x82608EDB:
            return &koopman;
        case 0xEDB88320:
            return &reflected;
        default:
            return nullptr;
        }
    }

    static uint undecided(const Crc32::FoldConstants &, uint, const uchar *, std::size_t) noexcept
    {
        return 0;
    }
    /// The fastest way to fold, null where there is none; undecided() before the first use. (A
    /// static variable of a function would weigh on each of its calls.)
    static inline constinit std::atomic<Crc32::Fold> s_fold = &undecided;

    [[gnu::noinline]] static Crc32::Fold decide() noexcept
    {
        const std::span<const Crc32::Fold> folds = Crc32::folds();
        const Crc32::Fold fold = folds.empty() ? nullptr : folds.front();
        s_fold.store(fold, std::memory_order_relaxed);
        return fold;
    }
    static Crc32::Fold fastestFold() noexcept
    {
        const Crc32::Fold fold = s_fold.load(std::memory_order_relaxed);
        return fold == &undecided ? decide() : fold;
    }

    [[gnu::noinline]] static uint foldUncommon(Crc32::Fold fold, uint polynomial, uint crc,
        const uchar *bytes, std::size_t length) noexcept
    {
        return fold(Crc32::computeFoldConstants(polynomial), crc, bytes, length);
    }
};

/// A calculation without an SCrc32, whose tables would be made even if nobody needs them.
class SCrc32::OneShot
{
public:
    explicit OneShot(uint polynomial) noexcept
        : m_polynomial(polynomial)
    {
    }
    Q_DISABLE_COPY_MOVE(OneShot)
    ~OneShot() = default;

    uint update(uint crc, const char *data, quint64 length) noexcept
    {
        return Engine::run(
            m_polynomial, [this]() -> const Tables & { return tables(); }, 0, crc, data, length);
    }
    uint hash(QByteArrayView data) noexcept
    {
        return update(initValue(), data.data(), static_cast<quint64>(data.size()));
    }

private:
    const Tables &tables() noexcept
    {
        if (const Tables *const ready = Engine::readyTables(m_polynomial))
            return *ready;
        return m_tables ? *m_tables : m_tables.emplace(Engine::computeTables(m_polynomial));
    }

    uint m_polynomial;
    std::optional<Tables> m_tables;
};

// Copies of the object and its place in other structures count on this.
static_assert(sizeof(SCrc32) == sizeof(uint) * (8 * 256 + 2));
static_assert(std::is_trivially_copyable_v<SCrc32>);

SCrc32::SCrc32(uint polynomial) noexcept
    : m_polynomial(polynomial)
{
    const Tables *const ready = Engine::readyTables(polynomial);
    m_tables = ready ? *ready : Engine::computeTables(polynomial);
}

/// From so many bytes on an SCrc32 is quicker when it computes the constants of its polynomial,
/// which takes 0.15 us, than with its tables.
static constexpr std::size_t WorthConstants = 384;

uint SCrc32::advance(uint crc, const char *data, quint64 length) const noexcept
{
    return Engine::run(
        m_polynomial, [this]() -> const Tables & { return m_tables; }, WorthConstants, crc, data,
        data ? length : 0);
}

QByteArrayView SCrc32::section(const QByteArray &data, quint64 from, quint64 to) noexcept
{
    const auto end = qMin(to, quint64(data.size()));
    const auto start = qMin(from, end);
    return QByteArrayView(data).sliced(qsizetype(start), qsizetype(end - start));
}

uint SCrc32::hash(const QByteArray &data, uint polynomial) noexcept
{
    return OneShot(polynomial).hash(data);
}

uint SCrc32::hash(const QByteArray &data, quint64 from, quint64 to, uint polynomial) noexcept
{
    return OneShot(polynomial).hash(section(data, from, to));
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
        OneShot calculation(polynomial);
        qint64 count = 0;
        do {
            count = device->read(chunk.get(), ChunkSize);
            if (count > 0)
                crc = calculation.update(crc, chunk.get(), quint64(count));
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

QDebug operator<<(QDebug debug, const SCrc32 &crc)
{
    const QDebugStateSaver saver(debug);
    return debug.nospace() << "SCrc32(" << Qt::hex << Qt::showbase << crc.m_value << ", polynomial "
                           << crc.m_polynomial << ')';
}

QDataStream &operator<<(QDataStream &stream, const SCrc32 &crc)
{
    return stream << quint32(crc.m_polynomial) << quint32(crc.m_value);
}

QDataStream &operator>>(QDataStream &stream, SCrc32 &crc)
{
    quint32 polynomial = 0;
    quint32 value = 0;
    stream >> polynomial >> value;
    if (stream.status() == QDataStream::Ok) {
        crc = SCrc32(polynomial);
        crc.m_value = value;
    }
    return stream;
}

} // namespace Quorvex
