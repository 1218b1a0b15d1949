#pragma once

#include <tavex/enums/isenum.h>

#include <span>
#include <string>
#include <type_traits>

namespace Quorvex {

/// One row of an enumeration's table.
template <typename E>
struct SEnumKey
{
    /// The value; several rows may have the same.
    E value;
    const char16_t *key; ///< Usually the enumerator's name. Not copied: it has to stay.
};

/// The key table of the enumeration \a E, whose underlying type is \a U.
///
/// An application makes one for its own enumeration by deriving from this class, handing its rows
/// to the constructor and calling loadRuntimeKeys() in its own.
template <typename E, typename U = std::underlying_type_t<E>>
class SEnumBase : public ISEnum
{
    static_assert(std::is_same_v<U, std::underlying_type_t<E>>);

public:
    /// The enumeration.
    using Enum = E;

    /// The key of \a value; of several keys, the last. A value without a key gives its number in
    /// decimal, as \a locale writes it. Keys are never translated; that is what SEnumTranslatorBase
    /// does.
    [[nodiscard]] virtual QString toString(const E &value, const QLocale &locale = QLocale()) const
    {
        return text(number(value), std::is_unsigned_v<U>, locale);
    }

    /// All keys in the order of the enumerators, then those that a runtime loader added.
    [[nodiscard]] virtual QStringList keys() const { return allKeys(); }

protected:
    /// Takes the rows of the table in the order of the enumerators.
    explicit SEnumBase(std::span<const SEnumKey<E>> rows)
    {
        for (const SEnumKey<E> &row : rows)
            addKey(number(row.value), staticText(row.key));
    }

private:
    /// Text that is neither allocated nor counted, as that of QStringLiteral().
    static QString staticText(const char16_t *text)
    {
        return QString::fromRawData(reinterpret_cast<const QChar *>(text),
            static_cast<qsizetype>(std::char_traits<char16_t>::length(text)));
    }

    static qint64 number(E value) { return static_cast<qint64>(static_cast<U>(value)); }
};

} // namespace Quorvex
