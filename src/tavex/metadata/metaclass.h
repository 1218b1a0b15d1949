#pragma once

#include <tavex/metadata/imetadata.h>

/// \file
/// The declarations that metadata classes of one kind share. They are macros, so that each class is
/// one of its own: its run-time type bears its name, and the library exports it and its virtual
/// table whole.

/// What every class has that can be stored as it is; the variant of its base holds a T.
#define TAVEX_META_CONCRETE(Name, T)                                                               \
    template <typename P>                                                                          \
    Name(P *) = delete;                                                                            \
    Name(const Name &) = default;                                                                  \
    Name &operator=(const Name &) = default;                                                       \
    ~Name() override;                                                                              \
                                                                                                   \
    /** What the variant holds, converted by QMetaType if an assignment through SMetaVariant left  \
        something else there. */                                                                   \
    /** @{ */                                                                                      \
    [[nodiscard]] T value() const;                                                                 \
    operator T() const                                                                             \
    {                                                                                              \
        return value();                                                                            \
    }                                                                                              \
    /** @} */                                                                                      \
                                                                                                   \
    [[nodiscard]] Name *clone() const override;                                                    \
    [[nodiscard]] QString name() override;                                                         \
    using IMetadata::name;                                                                         \
    [[nodiscard]] quint64 id() const override;                                                     \
    /** The id() of every object of the class. */                                                  \
    [[nodiscard]] static quint64 uniqueId()

/// Declares the class Name, which holds a value of a type T of Qt's and hands it out as Result. It
/// is the base of classes that supply clone() and id(), and is that one value and stays so. What
/// follows is declared in it as well.
#define TAVEX_META_VALUE(Name, T, Result, ...)                                                     \
    class TAVEX_EXPORT Name : public Interfaces::IMetadata                                         \
    {                                                                                              \
    public:                                                                                        \
        /** Holds \a value. */                                                                     \
        Name(const T &value);                                                                      \
        Name(const Name &) = default;                                                              \
        Name &operator=(const Name &) = default;                                                   \
        ~Name() override;                                                                          \
                                                                                                   \
        /** The value. */                                                                          \
        /** @{ */                                                                                  \
        [[nodiscard]] Result value() const noexcept { return m_value; }                            \
        operator T() const { return m_value; }                                                     \
        /** @} */                                                                                  \
                                                                                                   \
        /** Compares what both hold, whatever their classes. */                                    \
        [[nodiscard]] bool operator==(const Name &other) const                                     \
        {                                                                                          \
            return m_value == other.m_value;                                                       \
        }                                                                                          \
                                                                                                   \
        [[nodiscard]] bool isNull() const override;                                                \
        [[nodiscard]] bool isEmpty() const override;                                               \
        [[nodiscard]] MetadataFlags flags() override;                                              \
        using IMetadata::flags;                                                                    \
        using IMetadata::name;                                                                     \
        /** The text, in the form that the class describes. */                                     \
        [[nodiscard]] QString toString(const QString &format, const QLocale &locale) override;     \
        using IFormattable::toString;                                                              \
        /** Whether \a other is of the same class and holds an equal value. */                     \
        [[nodiscard]] bool equalsTo(const IEquatable *other) const override;                       \
        __VA_ARGS__                                                                                \
    private:                                                                                       \
        T m_value;                                                                                 \
    }
