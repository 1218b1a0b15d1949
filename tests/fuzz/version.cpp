#include "fuzz.h"

#include <tavex/SConvert>

using Quorvex::SConvert;
using Quorvex::SVersion;

int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    const SVersion any(input.number<int>());
    const SVersion version(any.major() % 100, any.minor() % 100, any.patch() % 100);
    const QLocale locale = input.locale();
    const QString format = input.text();
    const QString text = input.text();

    check(SConvert::toVersion(SConvert::toString(version, QLocale::c()), locale) == version);
    const QString joined = QStringLiteral("{MM}%1{mm}%1{pp}").arg(QChar(ushort(u'a' + size % 26)));
    check(SConvert::toVersion(SConvert::toString(version, joined, QLocale::c()), joined, locale)
        == version);

    const SVersion read = SConvert::toVersion(text, locale);
    check(read.isValid() && read.major() < 100 && read.minor() < 100 && read.patch() < 100);
    (void)SConvert::toString(any, format, locale);
    (void)SConvert::toVersion(text, format, locale);
    return 0;
}
