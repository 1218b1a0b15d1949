#include <tavex/numeric/scrc32.h>

#include <tavex/numeric/scrc32_p.h>

#include <QIODevice>
#include <QtEndian>

#include <atomic>
#include <bit>
#include <memory>
#include <new>
#include <optional>

namespace Quorvex {

/// The constants of the polynomial that was last asked for, of those that are not ready.
class LatestConstants
{
public:
    static Crc32::FoldConstants get(uint polynomial) noexcept
    {
        // The sequence number is odd while the words are written. Who finds it changed computes.
        const uint before = s_sequence.load(std::memory_order_acquire);
        Words words;
        for (std::size_t i = 0; i < words.size(); ++i)
            words[i] = s_words[i].load(std::memory_order_acquire);
        auto constants = std::bit_cast<FoldConstants>(words);
        if (before % 2 == 0 && s_sequence.load(std::memory_order_relaxed) == before
            && constants.barrett.low == polynomial && before != 0)
            return constants;

        constants = Crc32::computeFoldConstants(polynomial);
        words = std::bit_cast<Words>(constants);
        uint expected = before & ~1U;
        if (s_sequence.compare_exchange_strong(expected, expected + 1)) {
            for (std::size_t i = 0; i < words.size(); ++i)
                s_words[i].store(words[i], std::memory_order_release);
            s_sequence.store(expected + 2, std::memory_order_release);
        }
        return constants;
    }

private:
    using FoldConstants = Crc32::FoldConstants;
    using Words = std::array<quint64, sizeof(FoldConstants) / sizeof(quint64)>;
    static inline constinit std::atomic<uint> s_sequence = 0;
    static inline constinit std::array<std::atomic<quint64>, std::tuple_size_v<Words>> s_words{};
};

/// The work under one polynomial: by folding where the processor can, else by tables.
class SCrc32Work
{
public:
    using Tables = SCrc32::Tables;

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

    /// What of a polynomial is part of the library file: loading it costs no computation, and no
    /// two threads can meet while it is made.
    struct Ready
    {
        Tables tables;
        Crc32::FoldConstants constants;
    };

    static constexpr Ready make(uint polynomial) noexcept
    {
        return {computeTables(polynomial), Crc32::foldConstants<Crc32::SlowMultiply>(polynomial)};
    }

    /// Null if nothing of \a polynomial is ready.
    static const Ready *ready(uint polynomial) noexcept
    {
        static constexpr Ready mpeg2 = make(SCrc32::DefaultPolynomial);
        static constexpr Ready koopman = make(0x82608EDB);
        static constexpr Ready reflected = make(0xEDB88320);
        if (polynomial == SCrc32::DefaultPolynomial)
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

    /// Goes on from \a crc. \a tables is called for the tables if they are needed; below
    /// \a worthConstants bytes they are quicker than the constants of a polynomial that is not
    /// ready.
    template <typename GetTables>
    static uint run(uint polynomial, GetTables tables, std::size_t worthConstants, uint crc,
        const char *data, quint64 length) noexcept
    {
        const auto *const bytes = reinterpret_cast<const uchar *>(data);
        const auto size = static_cast<std::size_t>(length);
        if (size < Crc32::ShortestFold)
            return slice(tables(), crc, bytes, size);
        const Crc32::Fold fold = fastestFold();
        const Ready *const known = ready(polynomial);
        if (known && fold)
            return fold(known->constants, crc, bytes, size);
        if (fold && size >= worthConstants)
            return foldUncommon(fold, polynomial, crc, bytes, size);
        return slice(tables(), crc, bytes, size);
    }

    explicit SCrc32Work(uint polynomial) noexcept
        : m_polynomial(polynomial)
    {
    }
    Q_DISABLE_COPY_MOVE(SCrc32Work)
    ~SCrc32Work() = default;

    uint update(uint crc, const char *data, quint64 length) noexcept
    {
        return run(
            m_polynomial, [this]() -> const Tables & { return tables(); }, 0, crc, data, length);
    }
    uint hash(QByteArrayView data) noexcept
    {
        return update(SCrc32::initValue(), data.data(), static_cast<quint64>(data.size()));
    }

private:
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
        return fold(LatestConstants::get(polynomial), crc, bytes, length);
    }

    static uint slice(const Tables &t, uint crc, const uchar *bytes, std::size_t length) noexcept
    {
        for (; length >= 8; length -= 8, bytes += 8) {
            const uint a = crc ^ qFromBigEndian<uint>(bytes);
            const uint b = qFromBigEndian<uint>(bytes + 4);
            crc = t[7][a >> 24] ^ t[6][a >> 16 & 0xFF] ^ t[5][a >> 8 & 0xFF] ^ t[4][a & 0xFF]
                ^ t[3][b >> 24] ^ t[2][b >> 16 & 0xFF] ^ t[1][b >> 8 & 0xFF] ^ t[0][b & 0xFF];
        }
        if (length >= 4) {
            const uint a = crc ^ qFromBigEndian<uint>(bytes);
            crc = t[3][a >> 24] ^ t[2][a >> 16 & 0xFF] ^ t[1][a >> 8 & 0xFF] ^ t[0][a & 0xFF];
            length -= 4;
            bytes += 4;
        }
        for (; length > 0; --length, ++bytes)
            crc = crc << 8 ^ t[0][crc >> 24 ^ *bytes];
        return crc;
    }

    const Tables &tables() noexcept
    {
        if (const Ready *const known = ready(m_polynomial))
            return known->tables;
        return m_tables ? *m_tables : m_tables.emplace(computeTables(m_polynomial));
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
    const auto *const ready = SCrc32Work::ready(polynomial);
    m_tables = ready ? ready->tables : SCrc32Work::computeTables(polynomial);
}

/// From how many bytes on computing the constants of a polynomial pays.
static constexpr std::size_t WorthConstants = 128;

uint SCrc32::update(uint crc, const char *data, quint64 length) noexcept
{
    return m_value = SCrc32Work::run(
               m_polynomial, [this]() -> const Tables & { return m_tables; }, WorthConstants, crc,
               data, data ? length : 0);
}

QByteArrayView SCrc32::section(const QByteArray &data, quint64 from, quint64 to) noexcept
{
    const auto end = qMin(to, quint64(data.size()));
    const auto start = qMin(from, end);
    return QByteArrayView(data).sliced(qsizetype(start), qsizetype(end - start));
}

uint SCrc32::hash(const QByteArray &data, uint polynomial) noexcept
{
    return SCrc32Work(polynomial).hash(data);
}

uint SCrc32::hash(const QByteArray &data, quint64 from, quint64 to, uint polynomial) noexcept
{
    return SCrc32Work(polynomial).hash(section(data, from, to));
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
        SCrc32Work work(polynomial);
        qint64 count = 0;
        do {
            count = device->read(chunk.get(), ChunkSize);
            if (count > 0)
                crc = work.update(crc, chunk.get(), quint64(count));
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
