#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QSizeF>
#include <QString>

#include <optional>

namespace Quorvex {

/// A size: a QSizeF that can be written as text and read.
///
/// Unlike QSizeF it compares its numbers exactly. The text is "width; height": numbers as
/// SConvert::toString() writes them, without separators of groups. Reading allows blanks around a
/// number.
class SSizeF
{
public:
    /// The size of a QSizeF() without numbers, -1 both ways.
    constexpr SSizeF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SSizeF(qreal width, qreal height) noexcept
        : m_value(width, height)
    {
    }
    /// From Qt's type.
    constexpr SSizeF(const QSizeF &value) noexcept
        : m_value(value)
    {
    }
    /// As Qt's type.
    /// @{
    constexpr operator QSizeF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QSizeF &value() const noexcept { return m_value; }
    /// @}

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal width() const noexcept { return m_value.width(); }
    [[nodiscard]] constexpr qreal height() const noexcept { return m_value.height(); }
    /// @}

    /// Whether all numbers are equal, exactly; false where one is NaN.
    /// @{
    friend constexpr bool operator==(const SSizeF &a, const SSizeF &b) noexcept
    {
        return a.width() == b.width() && a.height() == b.height();
    }
    friend constexpr bool operator==(const SSizeF &a, const QSizeF &b) noexcept
    {
        return a == SSizeF(b);
    }
    /// @}

    /// The text, in the form that the class describes.
    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// What \a text stands for; nothing if it is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SSizeF> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QSizeF m_value;
};

} // namespace Quorvex
