#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>

namespace Quorvex::Interfaces {

/// An object that can be shown as text.
///
/// A class implements the first function, which hides the others: bring them back with
/// `using IFormattable::toString`.
class TAVEX_EXPORT IFormattable
{
public:
    // Overloads: compilers with Microsoft's binary interface give these slots in reverse order.

    /// The object as text. Which formats there are, each class says; an empty one is its default.
    [[nodiscard]] virtual QString toString(const QString &format, const QLocale &locale) = 0;

    /// Without a format it is the empty one, without a locale the default one.
    /// @{
    [[nodiscard]] virtual QString toString(const QLocale &locale) final;
    [[nodiscard]] virtual QString toString(const QString &format) final;
    [[nodiscard]] virtual QString toString() final;
    /// @}

    /// The same for a constant object, which what implements the first function must not change.
    /// @{
    [[nodiscard]] QString toString(const QString &format, const QLocale &locale) const
    {
        return const_cast<IFormattable *>(this)->toString(format, locale);
    }
    [[nodiscard]] QString toString(const QLocale &locale) const
    {
        return toString(QString(), locale);
    }
    [[nodiscard]] QString toString(const QString &format) const
    {
        return toString(format, QLocale());
    }
    [[nodiscard]] QString toString() const { return toString(QString(), QLocale()); }
    /// @}
    virtual ~IFormattable();

protected:
    IFormattable() = default;
    IFormattable(const IFormattable &) = default;
    IFormattable &operator=(const IFormattable &) = default;
};

} // namespace Quorvex::Interfaces
