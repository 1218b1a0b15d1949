#pragma once

#include <tavex/enums/isenum.h>
#include <tavex/enums/sflags.h>

#include <span>
#include <string>
#include <type_traits>

/// \file
/// How an enumeration is declared: once, as a table of keys and values.
///
///     #define BOOL_KEYS(KEY) KEY(False, 0) KEY(True, 1)
///     TAVEX_ENUM(Bool, bool, BOOL_KEYS);
///
/// declares the enumeration Bool and its key table Bool_T. A set of flags is declared as such
/// first, see Quorvex::isFlags.

namespace Quorvex {

/// One row of an enumeration's table.
template <typename E>
struct SEnumKey
{
    /// The value; several rows may have the same.
    E value;
    const char16_t *key; ///< Usually the enumerator's name. A literal: it is not copied.
};

/// The key table of the enumeration \a E, whose underlying type is \a U.
template <typename E, typename U = std::underlying_type_t<E>>
class SEnumBase : public ISEnum
{
    static_assert(std::is_same_v<U, std::underlying_type_t<E>>);

public:
    /// The enumeration.
    using Enum = E;

    /// Whether \a E satisfies SFlags.
    [[nodiscard]] bool isFlags() const override { return SFlags<E>; }

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
    /// The table of the enumeration \a name, with \a rows in the order of the enumerators.
    SEnumBase(const QString &name, std::span<const SEnumKey<E>> rows)
        : ISEnum(name)
    {
        for (const SEnumKey<E> &row : rows)
            addKey(number(row.value), staticText(row.key));
    }

private:
    /// A QString that points to \a text, as QStringLiteral() makes it.
    static QString staticText(const char16_t *text)
    {
        return QString::fromRawData(reinterpret_cast<const QChar *>(text),
            static_cast<qsizetype>(std::char_traits<char16_t>::length(text)));
    }

    static qint64 number(E value) { return static_cast<qint64>(static_cast<U>(value)); }
};

} // namespace Quorvex

/// One row of a table for TAVEX_ENUM().
/// @{
#define TAVEX_ENUMERATOR(Key, Value) Key = (Value),
#define TAVEX_ENUM_ROW(Key, Value) {Enum::Key, u"" #Key},
/// @}

/// The body of Name_T::rows().
#define TAVEX_ENUM_ROWS(Name, KEYS)                                                                \
    static constexpr Quorvex::SEnumKey<Name> rows[] = {KEYS(TAVEX_ENUM_ROW)};                      \
    return rows;

/// Declares the enumeration Name and its key table from the table KEYS; followed by a semicolon.
/// Nothing else has to be defined. Each module that uses the enumeration has a key table of its
/// own.
#define TAVEX_ENUM(Name, Underlying, KEYS)                                                         \
    enum class Name : Underlying { KEYS(TAVEX_ENUMERATOR) };                                       \
    /** The table of the Name keys. */                                                             \
    class Name##_T final : public Quorvex::SEnumBase<Name, Underlying>                             \
    {                                                                                              \
    public:                                                                                        \
        /** The one table, made at first use. */                                                   \
        [[nodiscard]] static const Name##_T &instance()                                            \
        {                                                                                          \
            static const Name##_T table;                                                           \
            return table;                                                                          \
        }                                                                                          \
        /** All values with their keys, in the order of declaration. */                            \
        [[nodiscard]] static std::span<const Quorvex::SEnumKey<Name>> rows() noexcept              \
        {                                                                                          \
            TAVEX_ENUM_ROWS(Name, KEYS)                                                            \
        }                                                                                          \
                                                                                                   \
    private:                                                                                       \
        Name##_T()                                                                                 \
            : SEnumBase(QStringLiteral(#Name), rows())                                             \
        {                                                                                          \
        }                                                                                          \
    }

/// The same for a shared library, whose export macro is EXPORT. The rows lie in the library, so
/// that a new version may have more of them and programs need not be compiled again. One source of
/// the library defines the table with TAVEX_ENUM_DEFINITION().
#define TAVEX_EXPORTED_ENUM(EXPORT, Name, Underlying, KEYS)                                        \
    enum class Name : Underlying { KEYS(TAVEX_ENUMERATOR) };                                       \
    /** The table of the Name keys. */                                                             \
    class EXPORT Name##_T final : public Quorvex::SEnumBase<Name, Underlying>                      \
    {                                                                                              \
    public:                                                                                        \
        /** The one table, made at first use. */                                                   \
        [[nodiscard]] static const Name##_T &instance();                                           \
        /** All values with their keys, in the order of declaration. */                            \
        [[nodiscard]] static std::span<const Quorvex::SEnumKey<Name>> rows() noexcept;             \
                                                                                                   \
    private:                                                                                       \
        Name##_T();                                                                                \
    }

/// Defines the key table that TAVEX_EXPORTED_ENUM() declares; in the enumeration's namespace.
#define TAVEX_ENUM_DEFINITION(Name, KEYS)                                                          \
    Name##_T::Name##_T()                                                                           \
        : SEnumBase(QStringLiteral(#Name), rows())                                                 \
    {                                                                                              \
    }                                                                                              \
    const Name##_T &Name##_T::instance()                                                           \
    {                                                                                              \
        static const Name##_T table;                                                               \
        return table;                                                                              \
    }                                                                                              \
    std::span<const Quorvex::SEnumKey<Name>> Name##_T::rows() noexcept                             \
    {                                                                                              \
        TAVEX_ENUM_ROWS(Name, KEYS)                                                                \
    }
