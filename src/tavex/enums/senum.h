#pragma once

#include <tavex/enums/senumbase.h>
#include <tavex/enums/senumflags.h>

/// \file
/// How an enumeration of the library is declared: once, as a table of keys and values.
///
///     #define TAVEX_BOOL_KEYS(KEY) KEY(False, 0) KEY(True, 1)
///     TAVEX_ENUM(Bool, bool, TAVEX_BOOL_KEYS)
///     TAVEX_ENUM_TRANSLATOR(Bool)
///
/// declares the enumeration Bool, its key table Bool_T and its translator Bool_TR. Their
/// definitions and what happens to them at load follow from one line in core/startup.cpp.

/// One row of a table for TAVEX_ENUM().
/// @{
#define TAVEX_ENUMERATOR(Key, Value) Key = (Value),
#define TAVEX_ENUM_ROW(Key, Value) {Enum::Key, u"" #Key},
/// @}

/// Declares the enumeration Name and its key table from the table KEYS; followed by a semicolon.
#define TAVEX_ENUM(Name, Underlying, KEYS)                                                         \
    enum class Name : Underlying { KEYS(TAVEX_ENUMERATOR) };                                       \
    /** The table of the Name keys. */                                                             \
    class TAVEX_EXPORT Name##_T final : public SEnumBase<Name, Underlying>                         \
    {                                                                                              \
    public:                                                                                        \
        /** The one table, made at first use. */                                                   \
        [[nodiscard]] static const Name##_T &instance();                                           \
        [[nodiscard]] QString name() const override;                                               \
        [[nodiscard]] bool isFlagSet() const override;                                             \
                                                                                                   \
        /** All values with their keys, in the order of declaration. */                            \
        static constexpr SEnumKey<Name> rows[] = {KEYS(TAVEX_ENUM_ROW)};                           \
                                                                                                   \
    private:                                                                                       \
        Name##_T();                                                                                \
    }
