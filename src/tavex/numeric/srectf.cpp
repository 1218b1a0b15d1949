#include <tavex/numeric/srectf.h>

#include <tavex/numeric/realtext_p.h>

#include <array>

namespace Quorvex {

QString SRectF::toString(const QLocale &locale) const
{
    return RealText::join(std::array{x(), y(), width(), height()}, locale);
}

std::optional<SRectF> SRectF::fromString(const QString &text, const QLocale &locale)
{
    std::array<double, 4> n{};
    if (!RealText::split(text, n, locale))
        return {};
    return SRectF(n[0], n[1], n[2], n[3]);
}

} // namespace Quorvex
