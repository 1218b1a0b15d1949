#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QPointF>
#include <QString>

#include <optional>

namespace Quorvex {

/// A point: a QPointF that can be written as text and read.
///
/// Unlike QPointF it compares its numbers exactly. The text is "x; y": numbers as
/// SConvert::toString() writes them, without separators of groups. Reading allows blanks around a
/// number.
class SPointF
{
public:
    /// The origin.
    constexpr SPointF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SPointF(qreal x, qreal y) noexcept
        : m_value(x, y)
    {
    }
    /// From Qt's type.
    constexpr SPointF(const QPointF &value) noexcept
        : m_value(value)
    {
    }
    /// As Qt's type.
    /// @{
    constexpr operator QPointF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QPointF &value() const noexcept { return m_value; }
    /// @}

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal x() const noexcept { return m_value.x(); }
    [[nodiscard]] constexpr qreal y() const noexcept { return m_value.y(); }
    /// @}

    /// Whether all numbers are equal, exactly; false where one is NaN.
    /// @{
    friend constexpr bool operator==(const SPointF &a, const SPointF &b) noexcept
    {
        return a.x() == b.x() && a.y() == b.y();
    }
    friend constexpr bool operator==(const SPointF &a, const QPointF &b) noexcept
    {
        return a == SPointF(b);
    }
    /// @}

    /// The text, in the form that the class describes.
    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// What \a text stands for; nothing if it is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SPointF> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QPointF m_value;
};

} // namespace Quorvex
