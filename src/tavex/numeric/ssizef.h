#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QSizeF>
#include <QString>

#include <optional>

namespace Quorvex {

/// A size: a QSizeF that can be written as text and read.
///
/// Unlike QSizeF it compares its numbers exactly. The text is "width; height": numbers as the
/// locale writes them, in the shortest form that reads back. Where Qt cannot read what the locale
/// writes, it is the C locale's form instead. Reading takes both, with any space around a number.
class SSizeF
{
public:
    constexpr SSizeF() noexcept = default;
    constexpr SSizeF(qreal width, qreal height) noexcept
        : m_value(width, height)
    {
    }
    constexpr SSizeF(const QSizeF &value) noexcept
        : m_value(value)
    {
    }
    constexpr operator QSizeF() const noexcept { return m_value; }
    [[nodiscard]] constexpr const QSizeF &value() const noexcept { return m_value; }

    [[nodiscard]] constexpr qreal width() const noexcept { return m_value.width(); }
    [[nodiscard]] constexpr qreal height() const noexcept { return m_value.height(); }

    friend constexpr bool operator==(const SSizeF &a, const SSizeF &b) noexcept
    {
        return a.width() == b.width() && a.height() == b.height();
    }
    friend constexpr bool operator==(const SSizeF &a, const QSizeF &b) noexcept
    {
        return a == SSizeF(b);
    }

    [[nodiscard]] TAVEX_EXPORT QString toString(const QLocale &locale = QLocale()) const;
    /// Nothing if \a text is no such text.
    [[nodiscard]] TAVEX_EXPORT static std::optional<SSizeF> fromString(
        const QString &text, const QLocale &locale = QLocale());

private:
    QSizeF m_value;
};

} // namespace Quorvex
