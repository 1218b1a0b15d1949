#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QPointF>
#include <QString>

#include <optional>

namespace Quorvex {

/// A point: a QPointF that can be written as text and read.
///
/// Unlike QPointF it compares its numbers exactly. The text is "x; y": numbers as the
/// locale writes them, in the shortest form that reads back. Where Qt cannot read what the locale
/// writes, it is the C locale's form instead. Reading takes both, with any space around a number.
class SPointF
{
public:
    constexpr SPointF() noexcept = default;
    constexpr SPointF(qreal x, qreal y) noexcept
        : m_value(x, y)
    {
    }
    constexpr SPointF(const QPointF &value) noexcept
        : m_value(value)
    {
    }
    constexpr operator QPointF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QPointF &value() const noexcept { return m_value; }

    [[nodiscard]] constexpr qreal x() const noexcept { return m_value.x(); }
    [[nodiscard]] constexpr qreal y() const noexcept { return m_value.y(); }

    friend constexpr bool operator==(const SPointF &a, const SPointF &b) noexcept
    {
        return a.x() == b.x() && a.y() == b.y();
    }
    friend constexpr bool operator==(const SPointF &a, const QPointF &b) noexcept
    {
        return a == SPointF(b);
    }

    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// Nothing if \a text is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SPointF> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QPointF m_value;
};

} // namespace Quorvex
