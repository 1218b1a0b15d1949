#include <tavex/system/cpu_p.h>
#include <tavex/system/cpuid_p.h>

#include <QByteArray>

#include <array>

#include <cpuid.h>

namespace Quorvex::Cpu {
namespace {

using Registers = std::array<quint32, 4>; // EAX, EBX, ECX, EDX

/// All 0 for a leaf that the processor does not have.
Registers cpuid(quint32 leaf, quint32 subleaf = 0)
{
    Registers r{};
    if (!__get_cpuid_count(leaf, subleaf, r.data(), &r[1], &r[2], &r[3]))
        r = {};
    return r;
}

/// The extended control register 0. To be called only where OSXSAVE is set.
quint64 xgetbv()
{
    quint32 low = 0;
    quint32 high = 0;
    asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return quint64(high) << 32 | low;
}

void append(QByteArray &text, quint32 bytes)
{
    for (int shift = 0; shift < 32; shift += 8)
        text.append(static_cast<char>(bytes >> shift & 0xFF));
}

QString toText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.constData()).simplified(); // Ends at the first null byte.
}

} // namespace

QString vendor()
{
    const Registers r = cpuid(0);
    QByteArray text;
    for (const quint32 bytes : {r[1], r[3], r[2]})
        append(text, bytes);
    return toText(text);
}

QString brand()
{
    QByteArray text;
    for (const quint32 leaf : {0x80000002, 0x80000003, 0x80000004}) {
        for (const quint32 bytes : cpuid(leaf))
            append(text, bytes);
    }
    return toText(text);
}

CpuFeatureFlags features()
{
    constexpr quint32 OsXsave = 1U << 27;
    const Registers leaf1 = cpuid(1);
    const Registers leaf7 = cpuid(7);
    CpuidRegisters r;
    r.leaf1Ecx = leaf1[2];
    r.leaf1Edx = leaf1[3];
    r.leaf7Ebx = leaf7[1];
    r.leaf7Ecx = leaf7[2];
    r.leaf7Edx = leaf7[3];
    r.leaf7Sub1Eax = leaf7[0] >= 1 ? cpuid(7, 1)[0] : 0;
    r.extended1Ecx = cpuid(0x80000001)[2];
    r.xcr0 = (leaf1[2] & OsXsave) != 0 ? xgetbv() : 0;
    return featuresOf(r);
}

} // namespace Quorvex::Cpu
