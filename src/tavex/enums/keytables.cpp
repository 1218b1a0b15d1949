// The key tables and translators of the library's enumerations.

#include <tavex/core/startup_p.h>
#include <tavex/enums/enumlist_p.h>

namespace Quorvex {

#define DEFINE_KEY_TABLE(Name)                                                                     \
    Name##_T::Name##_T()                                                                           \
        : SEnumBase(QStringLiteral(#Name), rows())                                                 \
    {                                                                                              \
    }                                                                                              \
    const Name##_T &Name##_T::instance()                                                           \
    {                                                                                              \
        static constinit Lasting<Name##_T> table;                                                  \
        return table.get([] { return std::unique_ptr<Name##_T>(new Name##_T); });                  \
    }                                                                                              \
    std::span<const SEnumKey<Name>> Name##_T::rows() noexcept                                      \
    {                                                                                              \
        TAVEX_ENUM_ROWS(Name, TAVEX_##Name##_KEYS)                                                 \
    }

#define DEFINE_TRANSLATED(Name)                                                                    \
    DEFINE_KEY_TABLE(Name)                                                                         \
    Name##_TR &Name##_TR::instance()                                                               \
    {                                                                                              \
        static constinit Lasting<Name##_TR> home;                                                  \
        Name##_TR &translator =                                                                    \
            home.get([] { return std::unique_ptr<Name##_TR>(new Name##_TR); });                    \
        translator.translationRegister(); /* Once it is there, a loader may use it. */             \
        return translator;                                                                         \
    }

TAVEX_META_ENUMS(DEFINE_KEY_TABLE, DEFINE_TRANSLATED)
TAVEX_OTHER_ENUMS(DEFINE_KEY_TABLE)

} // namespace Quorvex
