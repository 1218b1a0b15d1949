#include <tavex/numeric/ssizef.h>

#include <tavex/numeric/realtext_p.h>

#include <array>

namespace Quorvex {

QString SSizeF::toString(const QLocale &locale) const
{
    return RealText::join(std::array{width(), height()}, locale);
}

std::optional<SSizeF> SSizeF::fromString(const QString &text, const QLocale &locale)
{
    std::array<double, 2> n{};
    if (!RealText::split(text, n, locale))
        return {};
    return SSizeF(n[0], n[1]);
}

} // namespace Quorvex
