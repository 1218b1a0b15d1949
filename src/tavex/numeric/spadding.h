#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QMarginsF>
#include <QString>

#include <optional>

namespace Quorvex {

/// The space around something: a QMarginsF that can be written as text and read.
///
/// Unlike QMarginsF it compares its numbers exactly. The text is "left; top; right; bottom":
/// numbers as SConvert::toString() writes them, without separators of groups. Reading allows blanks
/// around a number.
class SPadding
{
public:
    /// All 0.
    constexpr SPadding() noexcept = default;
    /// From its numbers, as they are.
    constexpr SPadding(qreal left, qreal top, qreal right, qreal bottom) noexcept
        : m_value(left, top, right, bottom)
    {
    }
    /// From Qt's type.
    constexpr SPadding(const QMarginsF &value) noexcept
        : m_value(value)
    {
    }
    /// As Qt's type.
    /// @{
    constexpr operator QMarginsF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QMarginsF &value() const noexcept { return m_value; }
    /// @}

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal left() const noexcept { return m_value.left(); }
    [[nodiscard]] constexpr qreal top() const noexcept { return m_value.top(); }
    [[nodiscard]] constexpr qreal right() const noexcept { return m_value.right(); }
    [[nodiscard]] constexpr qreal bottom() const noexcept { return m_value.bottom(); }
    /// @}

    /// Whether all numbers are equal, exactly; false where one is NaN.
    /// @{
    friend constexpr bool operator==(const SPadding &a, const SPadding &b) noexcept
    {
        return a.left() == b.left() && a.top() == b.top() && a.right() == b.right()
            && a.bottom() == b.bottom();
    }
    friend constexpr bool operator==(const SPadding &a, const QMarginsF &b) noexcept
    {
        return a == SPadding(b);
    }
    /// @}

    /// The text, in the form that the class describes.
    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// What \a text stands for; nothing if it is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SPadding> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QMarginsF m_value;
};

} // namespace Quorvex
