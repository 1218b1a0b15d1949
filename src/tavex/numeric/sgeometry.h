#pragma once

#include <tavex/core/export.h>

#include <QHashFunctions>
#include <QLocale>
#include <QMetaType>
#include <QRectF>
#include <QString>

#include <array>
#include <optional>
#include <span>
#include <tuple>
#include <typeinfo>

class QDebug;

/// \file
/// Qt's geometry values, written as text and read.

namespace Quorvex {

/// The text of numbers that stand together.
namespace RealText {

/// \a numbers in the shortest text that reads back, separated by "; ".
[[nodiscard]] TAVEX_EXPORT QString join(std::span<const qreal> numbers, QLocale locale);

/// Reads as many numbers as \a numbers has room for. False if \a text is anything else.
[[nodiscard]] TAVEX_EXPORT bool split(
    const QString &text, std::span<qreal> numbers, const QLocale &locale);

/// Writes the name of the class \a type and \a numbers, such as `SPointF(1, 2)`.
TAVEX_EXPORT void write(QDebug &debug, const std::type_info &type, std::span<const qreal> numbers);

} // namespace RealText

/// What SPointF, SSizeF, SRectF and SPadding have in common. Each of them is the class \a Own: a
/// \a Plain of Qt's whose members \a Numbers are its numbers in order.
///
/// Unlike Qt's types they compare their numbers exactly. The text is the numbers as
/// SConvert::toString() writes them, without separators of groups, and with "; " between them:
/// "1.5; -2". Reading allows blanks around a number. A QVariant holds and saves them.
///
/// A value is laid out as Qt's, and stays so: it is read and written where that is.
template <typename Own, typename Plain, auto... Numbers>
class SGeometry
{
public:
    /// As Qt's type.
    constexpr operator Plain() const noexcept { return m_value; }
    /// As Qt's type.
    [[nodiscard]] constexpr const Plain &value() const noexcept { return m_value; }

    /// Whether all numbers are equal, exactly; false where one is NaN.
    /// @{
    friend constexpr bool operator==(const Own &a, const Own &b) noexcept
    {
        return a.numbers() == b.numbers();
    }
    friend constexpr bool operator==(const Own &a, const Plain &b) noexcept { return a == Own(b); }
    /// @}

    /// The hash of all numbers.
    friend size_t qHash(const Own &value, size_t seed = 0) noexcept
    {
        return std::apply([=](auto... n) { return qHashMulti(seed, n...); }, value.numbers());
    }

    /// Writes the name of the class and the numbers.
    friend QDebug operator<<(QDebug debug, const Own &value)
    {
        RealText::write(debug, typeid(Own), value.numbers());
        return debug;
    }
    /// Writes and reads it as Qt's type.
    /// @{
    friend QDataStream &operator<<(QDataStream &stream, const Own &value)
    {
        return stream << value.m_value;
    }
    friend QDataStream &operator>>(QDataStream &stream, Own &value)
    {
        return stream >> value.m_value;
    }
    /// @}

    /// The text, in the form that the class describes.
    [[nodiscard]] QString toString(const QLocale &locale = QLocale()) const
    {
        return RealText::join(numbers(), locale);
    }
    /// What \a text stands for; nothing if it is no such text.
    [[nodiscard]] static std::optional<Own> fromString(
        const QString &text, const QLocale &locale = QLocale())
    {
        std::array<qreal, sizeof...(Numbers)> numbers{};
        if (!RealText::split(text, numbers, locale))
            return {};
        return std::apply([](auto... n) { return Own(n...); }, numbers);
    }

protected:
    /// From numbers, or from Qt's type.
    template <typename... From>
    constexpr explicit SGeometry(const From &...from) noexcept
        : m_value(from...)
    {
    }

private:
    [[nodiscard]] constexpr std::array<qreal, sizeof...(Numbers)> numbers() const noexcept
    {
        return {(m_value.*Numbers)()...};
    }

    Plain m_value;
};

/// A point "x; y": a QPointF that can be written as text and read.
class SPointF : public SGeometry<SPointF, QPointF, &QPointF::x, &QPointF::y>
{
public:
    /// The origin.
    constexpr SPointF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SPointF(qreal x, qreal y) noexcept
        : SGeometry(x, y)
    {
    }
    /// From Qt's type.
    constexpr SPointF(const QPointF &value) noexcept
        : SGeometry(value)
    {
    }

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal x() const noexcept { return value().x(); }
    [[nodiscard]] constexpr qreal y() const noexcept { return value().y(); }
    /// @}
};

/// A size "width; height": a QSizeF that can be written as text and read.
class SSizeF : public SGeometry<SSizeF, QSizeF, &QSizeF::width, &QSizeF::height>
{
public:
    /// The size of a QSizeF() without numbers, -1 both ways.
    constexpr SSizeF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SSizeF(qreal width, qreal height) noexcept
        : SGeometry(width, height)
    {
    }
    /// From Qt's type.
    constexpr SSizeF(const QSizeF &value) noexcept
        : SGeometry(value)
    {
    }

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal width() const noexcept { return value().width(); }
    [[nodiscard]] constexpr qreal height() const noexcept { return value().height(); }
    /// @}
};

/// A rectangle "x; y; width; height": a QRectF that can be written as text and read.
class SRectF
    : public SGeometry<SRectF, QRectF, &QRectF::x, &QRectF::y, &QRectF::width, &QRectF::height>
{
public:
    /// All 0.
    constexpr SRectF() noexcept = default;
    /// From its numbers, as they are.
    constexpr SRectF(qreal x, qreal y, qreal width, qreal height) noexcept
        : SGeometry(x, y, width, height)
    {
    }
    /// From Qt's type.
    constexpr SRectF(const QRectF &value) noexcept
        : SGeometry(value)
    {
    }

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal x() const noexcept { return value().x(); }
    [[nodiscard]] constexpr qreal y() const noexcept { return value().y(); }
    [[nodiscard]] constexpr qreal width() const noexcept { return value().width(); }
    [[nodiscard]] constexpr qreal height() const noexcept { return value().height(); }
    /// @}
};

/// The space around something, "left; top; right; bottom": a QMarginsF that can be written as text
/// and read.
class SPadding : public SGeometry<SPadding, QMarginsF, &QMarginsF::left, &QMarginsF::top,
                     &QMarginsF::right, &QMarginsF::bottom>
{
public:
    /// All 0.
    constexpr SPadding() noexcept = default;
    /// From its numbers, as they are.
    constexpr SPadding(qreal left, qreal top, qreal right, qreal bottom) noexcept
        : SGeometry(left, top, right, bottom)
    {
    }
    /// From Qt's type.
    constexpr SPadding(const QMarginsF &value) noexcept
        : SGeometry(value)
    {
    }

    /// One of its numbers.
    /// @{
    [[nodiscard]] constexpr qreal left() const noexcept { return value().left(); }
    [[nodiscard]] constexpr qreal top() const noexcept { return value().top(); }
    [[nodiscard]] constexpr qreal right() const noexcept { return value().right(); }
    [[nodiscard]] constexpr qreal bottom() const noexcept { return value().bottom(); }
    /// @}
};

} // namespace Quorvex

QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_CREF(Quorvex::SPointF)
QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_CREF(Quorvex::SSizeF)
QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_CREF(Quorvex::SRectF)
QT_SPECIALIZE_STD_HASH_TO_CALL_QHASH_BY_CREF(Quorvex::SPadding)
