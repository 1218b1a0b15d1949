#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QRectF>
#include <QString>

#include <optional>

namespace Quorvex {

/// A rectangle: a QRectF that can be written as text and read.
///
/// Unlike QRectF it compares its numbers exactly. The text is "x; y; width; height": numbers as
/// SConvert::toString() writes them, without separators of groups. Reading allows blanks around a
/// number.
class SRectF
{
public:
    /// All 0.
    constexpr SRectF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SRectF(qreal x, qreal y, qreal width, qreal height) noexcept
        : m_value(x, y, width, height)
    {
    }
    /// From Qt's type.
    constexpr SRectF(const QRectF &value) noexcept
        : m_value(value)
    {
    }
    /// As Qt's type.
    /// @{
    constexpr operator QRectF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QRectF &value() const noexcept { return m_value; }
    /// @}

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal x() const noexcept { return m_value.x(); }
    [[nodiscard]] constexpr qreal y() const noexcept { return m_value.y(); }
    [[nodiscard]] constexpr qreal width() const noexcept { return m_value.width(); }
    [[nodiscard]] constexpr qreal height() const noexcept { return m_value.height(); }
    /// @}

    /// Whether all numbers are equal, exactly; false where one is NaN.
    /// @{
    friend constexpr bool operator==(const SRectF &a, const SRectF &b) noexcept
    {
        return a.x() == b.x() && a.y() == b.y() && a.width() == b.width()
            && a.height() == b.height();
    }
    friend constexpr bool operator==(const SRectF &a, const QRectF &b) noexcept
    {
        return a == SRectF(b);
    }
    /// @}

    /// The text, in the form that the class describes.
    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// What \a text stands for; nothing if it is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SRectF> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QRectF m_value;
};

} // namespace Quorvex
