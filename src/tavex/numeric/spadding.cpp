#include <tavex/numeric/spadding.h>

#include <tavex/numeric/realtext_p.h>

#include <array>

namespace Quorvex {

QString SPadding::toString(const QLocale &locale) const
{
    return RealText::join(std::array{left(), top(), right(), bottom()}, locale);
}

std::optional<SPadding> SPadding::fromString(const QString &text, const QLocale &locale)
{
    std::array<double, 4> n{};
    if (!RealText::split(text, n, locale))
        return {};
    return SPadding(n[0], n[1], n[2], n[3]);
}

} // namespace Quorvex
