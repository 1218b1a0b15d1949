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
    virtual ~IFormattable();

protected:
    IFormattable() = default;
    IFormattable(const IFormattable &) = default;
    IFormattable &operator=(const IFormattable &) = default;
};

} // namespace Quorvex::Interfaces
