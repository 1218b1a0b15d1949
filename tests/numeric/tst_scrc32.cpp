#include "common.h"

#include <tavex/numeric/scrc32_p.h>

#include <concepts>

namespace {

/// The definition, one bit at a time: shares nothing with the tables.
uint oracle(QByteArrayView data, uint polynomial, uint crc = 0xFFFFFFFF)
{
    for (const char byte : data) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool out = (crc >> 31) != (uint(byte) >> bit & 1);
            crc = crc << 1 ^ (out ? polynomial : 0);
        }
    }
    return crc;
}

QByteArray randomBytes(QRandomGenerator &random, qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    std::generate(bytes.begin(), bytes.end(), [&] { return char(random.bounded(256)); });
    return bytes;
}

/// Has its bytes only when they were waited for, and ends as a process does that has finished.
struct SlowDevice : QIODevice
{
    [[nodiscard]] bool isSequential() const override { return true; }
    bool waitForReadyRead(int) override
    {
        return !(ready = pieces.isEmpty() ? QByteArray() : pieces.takeFirst()).isEmpty();
    }
    qint64 readData(char *data, qint64) override
    {
        const QByteArray taken = std::exchange(ready, {});
        std::copy(taken.begin(), taken.end(), data);
        return taken.isEmpty() && pieces.isEmpty() ? -1 : taken.size();
    }
    qint64 writeData(const char *, qint64) override { return -1; }

    QByteArray ready;
    QByteArrayList pieces{"1234", "56789"};
};

template <typename T>
concept Feedable = requires(SCrc32 crc, const T &value)
{
    crc.update(value);
};
static_assert(Feedable<long> && Feedable<std::size_t> && Feedable<char> && Feedable<double>);
static_assert(
    !Feedable<bool> && !Feedable<wchar_t> && !Feedable<char[4]> && !Feedable<const char *>);

// A number is not taken for the address of data.
#define REFUSED(CALL)                                                                              \
    !std::is_invocable_v<decltype([](auto crc) -> decltype(crc.CALL) { return 0; }), SCrc32>
static_assert(REFUSED(update(0, 5)) && REFUSED(update(1, 0, 5)) && REFUSED(update(crc, 0, 2, 'x')));
static_assert(REFUSED(calculate(0, 5.0)) && REFUSED(calculate(0, 2, 5)) && REFUSED(hash(0, 2, 5)));
static_assert(!REFUSED(update(nullptr, 5)) && !REFUSED(update(1, "", 0)) && !REFUSED(update(0)));

} // namespace

class TestSCrc32 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // CRC-32/MPEG-2 of the catalogue of parametrised CRC algorithms (Greg Cook).
    void publishedVectors()
    {
        const QByteArray digits("123456789");
        QVERIFY(SCrc32::hash(digits) == 0x0376E6E7);
        SCrc32 crc;
        crc.update(digits);
        VERIFY_ALL(crc == 0x0376E6E7, crc == 0x0376E6E7L, crc != (quint64(1) << 32 | 0x0376E6E7));
        QCOMPARE(uint(crc), crc.value());
        crc.clear();
        VERIFY_ALL(crc == -1, crc == Q_INT64_C(0xFFFFFFFF), crc != Q_INT64_C(-1));
        enum Unscoped { All = 0xFFFFFFFF };
        VERIFY_ALL(crc == All, 'a' != crc, crc != true);
    }

    void matchesDefinition()
    {
        const uint known[] = {0x04C11DB7, 0x82608EDB, 0xEDB88320, 0, 1, 0x80000000, 0xFFFFFFFF};
        QRandomGenerator generator(20);
        for (std::size_t i = 0; i < std::size(known) + 20; ++i) {
            const uint polynomial = i < std::size(known) ? known[i] : generator.generate();
            QRandomGenerator random(polynomial);
            const QByteArray data = randomBytes(random, 1 << 20);
            SCrc32 crc(polynomial);
            QCOMPARE(crc.polynomial(), polynomial);

            // The object, the one-shot function and each way to fold that the processor has.
            const auto constants = Crc32::computeFoldConstants(polynomial);
            const auto all = [&](const char *bytes, std::size_t length) {
                QList<uint> found{crc.calculate(bytes, length),
                    SCrc32::hash(QByteArray::fromRawData(bytes, qsizetype(length)), polynomial)};
                for (const Crc32::Fold fold :
                    length < 16 ? decltype(Crc32::folds())() : Crc32::folds())
                    found += fold(constants, SCrc32::initValue(),
                        reinterpret_cast<const uchar *>(bytes), length);
                return found;
            };
            for (qsizetype start = 0; start < 64; ++start) {
                uint expected = SCrc32::initValue();
                for (qsizetype length = 0; length <= (start == 0 ? 2000 : 300); ++length) {
                    const char *const first = data.constData() + start;
                    // A copy of just this size lets the sanitizer see what is read beyond it.
                    const std::vector<char> copy(first, start == 0 ? first + length : first);
                    const QList<uint> found = all(start == 0 ? copy.data() : first, size_t(length));
                    const auto row =
                        QString::asprintf("%x: %lld bytes from %lld", polynomial, length, start);
                    COMPARE_ROW(row, found, QList<uint>(found.size(), expected));
                    expected = oracle({first + length, 1}, polynomial, expected);
                }
            }
            const auto size = qsizetype(random.bounded(1U << 20));
            const uint expected = oracle({data.constData(), size}, polynomial);
            const QList<uint> found = all(data.constData(), size_t(size));
            QCOMPARE(found, QList<uint>(found.size(), expected));
            crc.clear();
            for (qsizetype at = 0, part = 0; at < size; at += part) {
                part = qMin(size - at, qsizetype(random.bounded(1U << random.bounded(16U))));
                crc.update(data.constData() + at, quint64(part));
            }
            QCOMPARE(crc.value(), expected);
        }
    }

    void rangesAreCutToTheData()
    {
        const QByteArray data("abcdefgh");
        const auto expected = [](const char *text) {
            return oracle(QByteArrayView(text), 0x04C11DB7);
        };
        constexpr auto Huge = ~quint64(0);
        SCrc32 crc;
        const std::tuple<quint64, quint64, const char *> rows[] = {{2, 5, "cde"}, {0, 5, "abcde"},
            {5, Huge, "fgh"}, {0, Huge, "abcdefgh"}, {5, 2, ""}, {Huge, Huge, ""}};
        for (const auto &[from, to, part] : rows) {
            COMPARE_ROW(part, crc.calculate(data, from, to), expected(part));
            COMPARE_ROW(part, SCrc32::hash(data, from, to), expected(part));
        }
        QCOMPARE(crc.calculate(data, 5), expected("abcde"));
        QCOMPARE(crc.calculate(QByteArray()), 0xFFFFFFFF);
        QCOMPARE(crc.calculate(static_cast<const char *>(nullptr), 100), 0xFFFFFFFF);

        // From a register of the caller's, not from the object's.
        const uint ab = crc.calculate(data, 2);
        crc.clear();
        QCOMPARE(crc.update(ab, data, 2, 4), expected("abcd"));
        QCOMPARE(crc.update(ab, "cdef", 2), expected("abcd"));
        QCOMPARE(crc.update(data, std::size_t(1)), expected("abcda"));
    }

    void numbersAndText()
    {
        const auto check = [](auto number, const QByteArray &bytes) {
            SCrc32 crc;
            const uint expected = oracle(bytes, SCrc32::DefaultPolynomial);
            QCOMPARE(crc.update(number), expected);
            QCOMPARE(crc.calculate(number), expected);
        };
        check(0x04030201, QByteArray("\1\2\3\4"));
        check(short(-2), QByteArray("\xFE\xFF", 2));
        check('a', QByteArray("a"));
        check(1.0F, QByteArray("\0\0\x80\x3F", 4));
        check(-2.0, QByteArray("\0\0\0\0\0\0\0\xC0", 8));
        check("h\u00E4\u4E16"_s, QByteArray("h\xC3\xA4\xE4\xB8\x96"));
        QCOMPARE(SCrc32::hash("\u00E4"_s), SCrc32::hash(QByteArray("\xC3\xA4")));

        SCrc32 a(0xEDB88320);
        const SCrc32 b(0x82608EDB);
        VERIFY_ALL(a != b, a.value() == b.value(), a == b.value());
        a = b;
        QVERIFY(a == b);
        a.update(7);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << a;
        SCrc32 read;
        QDataStream cut(bytes.left(7));
        cut >> read;
        QVERIFY(read == SCrc32());
        QDataStream whole(bytes);
        whole >> read;
        QVERIFY(read == a);
        QCOMPARE(read.update(7), a.update(7));
        QCOMPARE(qHash(read), qHash(a));
        QCOMPARE(a.calculate(7), SCrc32(0x82608EDB).update(7));
        QVERIFY(a != b);
    }

    void devices()
    {
        QRandomGenerator random(3);
        const QByteArray data = randomBytes(random, 3 * 65536 + 17);
        const auto row = [](QIODevice *device, bool works, uint expected, auto... polynomial) {
            bool ok = !works;
            QCOMPARE(SCrc32::hash(device, &ok, polynomial...), expected);
            QCOMPARE(ok, works);
        };
        QBuffer closed;
        closed.setData(data);
        row(&closed, false, SCrc32::initValue());
        QVERIFY(!closed.isOpen());
        row(nullptr, false, SCrc32::initValue());
        Device part({}, data);
        part.seek(5);
        row(&part, true, SCrc32::hash(data.mid(5), 0xEDB88320), 0xEDB88320);
        Device failing({7, 7, 6, -1}, QByteArray(99, 'x'));
        row(&failing, false, SCrc32::hash(QByteArray(20, 'x')));
        SlowDevice slow;
        slow.open(QIODevice::ReadOnly);
        row(&slow, true, 0x0376E6E7U);
        Device whole({}, data);
        QCOMPARE(SCrc32::hash(&whole), SCrc32::hash(data));
    }
};

QTEST_APPLESS_MAIN(TestSCrc32)
#include "tst_scrc32.moc"
