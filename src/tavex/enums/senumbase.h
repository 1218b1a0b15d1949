#pragma once

#include <tavex/enums/isenum.h>
#include <tavex/enums/sflags.h>

#include <QDebug>
#include <QMetaType>

#include <optional>
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

    /// The value of \a key, which is compared exactly; nothing if there is no such key.
    [[nodiscard]] std::optional<E> keyToValue(const QString &key) const
    {
        return typed(this->value(key));
    }

    /// The value of \a keys, the inverse of valueToKeys(): a key, or for flags several that are
    /// joined by "|" or ",", with any blanks around them. A decimal number stands for itself.
    /// Nothing if a part is neither a key nor a number that fits \a U.
    [[nodiscard]] std::optional<E> keysToValue(const QString &keys) const
    {
        return typed(parse(keys, std::is_unsigned_v<U>));
    }

    /// The key of \a value, the last of several. Flags without a key of their own are divided into
    /// those that have one, joined by "|". A value, or bits, without a key are a decimal number.
    [[nodiscard]] QString valueToKeys(E value) const
    {
        return print(number(value), std::is_unsigned_v<U>);
    }

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

    static std::optional<E> typed(std::optional<qint64> number)
    {
        const auto value = static_cast<U>(number.value_or(0));
        return number == static_cast<qint64>(value) ? std::optional(static_cast<E>(value))
                                                    : std::nullopt;
    }
};

/// An enumeration that has a key table: TAVEX_ENUM() declares the function keyTable(), which
/// returns it, in the enumeration's namespace.
template <typename E>
concept SKeyed = std::is_enum_v<E> && requires(E value)
{
    keyTable(value).valueToKeys(value);
};

/// Lets QVariant convert values of \a E to and from QString, as valueToKeys() and keysToValue() do,
/// for as long as it lives; a plug-in destroys it before it is unloaded. The enumerations of the
/// library have such converters. A direction for which Qt has a converter already is left alone.
template <SKeyed E>
class SKeyConverters
{
public:
    Q_DISABLE_COPY_MOVE(SKeyConverters)

    SKeyConverters()
    {
        m_toText = add(m_type, m_text, [](const void *from, void *to) {
            const E value = *static_cast<const E *>(from);
            *static_cast<QString *>(to) = keyTable(value).valueToKeys(value);
            return true;
        });
        m_fromText = add(m_text, m_type, [](const void *from, void *to) {
            const auto value = keyTable(E()).keysToValue(*static_cast<const QString *>(from));
            *static_cast<E *>(to) = value.value_or(E());
            return value.has_value();
        });
    }

    ~SKeyConverters()
    {
        if (m_toText)
            QMetaType::unregisterConverterFunction(m_type, m_text);
        if (m_fromText)
            QMetaType::unregisterConverterFunction(m_text, m_type);
    }

private:
    static bool add(QMetaType from, QMetaType to, const QMetaType::ConverterFunction &converter)
    {
        return !QMetaType::hasRegisteredConverterFunction(from, to)
            && QMetaType::registerConverterFunction(converter, from, to);
    }

    QMetaType m_type = QMetaType::fromType<E>();
    QMetaType m_text = QMetaType::fromType<QString>();
    bool m_toText = false;
    bool m_fromText = false;
};

} // namespace Quorvex

// Beside QDebug, where it is found for enumerations of every namespace.
QT_BEGIN_NAMESPACE
/// Prints the enumeration's name and the keys of \a value, such as "MetadataFlags(KillOnCopy)".
template <Quorvex::SKeyed E>
QDebug operator<<(QDebug debug, E value)
{
    const QDebugStateSaver saver(debug);
    const auto &table = keyTable(value);
    debug.nospace().noquote() << table.name() << '(' << table.valueToKeys(value) << ')';
    return debug;
}
QT_END_NAMESPACE

/// One row of a table for TAVEX_ENUM().
/// @{
#define TAVEX_ENUMERATOR(Key, Value) Key = (Value),
#define TAVEX_ENUM_ROW(Key, Value) {Enum::Key, u"" #Key},
/// @}

/// By which a template finds the key table of an enumeration; takes a semicolon.
#define TAVEX_KEY_TABLE(Name)                                                                      \
    /** The table of the Name keys. */                                                             \
    [[nodiscard, maybe_unused]] inline const Name##_T &keyTable(Name)                              \
    {                                                                                              \
        return Name##_T::instance();                                                               \
    }                                                                                              \
    static_assert(std::is_enum_v<Name>)

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
    };                                                                                             \
    TAVEX_KEY_TABLE(Name)

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
    };                                                                                             \
    TAVEX_KEY_TABLE(Name)

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
