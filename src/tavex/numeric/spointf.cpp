#include <tavex/numeric/spointf.h>

#include <tavex/numeric/realtext_p.h>

#include <array>

namespace Quorvex {

QString SPointF::toString(const QLocale &locale) const
{
    return RealText::join(std::array{x(), y()}, locale);
}

std::optional<SPointF> SPointF::fromString(const QString &text, const QLocale &locale)
{
    std::array<double, 2> n{};
    if (!RealText::split(text, n, locale))
        return {};
    return SPointF(n[0], n[1]);
}

} // namespace Quorvex
