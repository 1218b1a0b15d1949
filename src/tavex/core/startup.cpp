// The composition root: what happens when the library is loaded, in order, and is undone when it is
// unloaded. Nothing else in the library registers anything before it is used.

#include <tavex/application/s3rdparty.h>
#include <tavex/convert/svariantconvert.h>
#include <tavex/core/lasting_p.h>
#include <tavex/core/metatype_p.h>
#include <tavex/core/sversion.h>
#include <tavex/enums/enumlist_p.h>
#include <tavex/system/cpu_p.h>

#include <QVariant>

#include <array>
#include <memory>

#define DEFINE_KEY_TABLE(Name)                                                                     \
    Name##_T::Name##_T()                                                                           \
        : SEnumBase(rows)                                                                          \
    {                                                                                              \
        loadRuntimeKeys();                                                                         \
    }                                                                                              \
    const Name##_T &Name##_T::instance()                                                           \
    {                                                                                              \
        static constinit Lasting<Name##_T> table;                                                  \
        return table.get([] { return std::unique_ptr<Name##_T>(new Name##_T); });                  \
    }                                                                                              \
    QString Name##_T::name() const                                                                 \
    {                                                                                              \
        return QStringLiteral(#Name);                                                              \
    }                                                                                              \
    bool Name##_T::isFlagSet() const                                                               \
    {                                                                                              \
        return isFlagSetType<Name>;                                                                \
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
    }                                                                                              \
    QString Name##_TR::name() const                                                                \
    {                                                                                              \
        return QStringLiteral(#Name);                                                              \
    }                                                                                              \
    QStringList Name##_TR::keys() const                                                            \
    {                                                                                              \
        return Name##_T::instance().keys();                                                        \
    }                                                                                              \
    QString Name##_TR::headerPath() const                                                          \
    {                                                                                              \
        return QStringLiteral("enums/") + name().toLower();                                        \
    }

namespace Quorvex {

TAVEX_META_ENUMS(DEFINE_KEY_TABLE, DEFINE_TRANSLATED)
TAVEX_OTHER_ENUMS(DEFINE_KEY_TABLE)

} // namespace Quorvex

// The macros of the resource system name functions outside every namespace.
static void registerResources()
{
    Q_INIT_RESOURCE(tavex_half);
    Q_INIT_RESOURCE(tavex);
}

static void unregisterResources()
{
    Q_CLEANUP_RESOURCE(tavex);
    Q_CLEANUP_RESOURCE(tavex_half);
}

namespace Quorvex {
namespace {

/// The key of the enumeration value that \a value holds; nothing for a variant of another type.
template <typename Table>
QString enumToText(const QVariant &value, const QString &, const QLocale &locale)
{
    using Enum = typename Table::Enum;
    if (!MetaType::isSame(value.metaType(), QMetaType::fromType<Enum>()))
        return {};
    return Table::instance().toString(*static_cast<const Enum *>(value.constData()), locale);
}

/// Makes Qt register its own descriptions of the views through which it reaches the elements of
/// lists, maps and pairs, before a list of the library or of a plug-in does so with descriptions
/// that may be unloaded.
void registerViews()
{
    for (const auto view :
        {QMetaType::QVariantList, QMetaType::QVariantMap, QMetaType::QVariantPair})
        QMetaType::canConvert(QMetaType(QMetaType::Int), QMetaType(view));
}

template <typename T>
QMetaType registerType()
{
    const auto type = QMetaType::fromType<T>();
    type.id(); // Asking for the id registers the type under its name.
    return type;
}

template <typename Table>
QMetaType registerEnum()
{
    const QMetaType type = registerType<typename Table::Enum>();
    SVariantConvert::sVariantToStringRegister(type.id(), &enumToText<Table>);
    return type;
}

class Startup
{
public:
    Q_DISABLE_COPY_MOVE(Startup)

    Startup()
    {
        S3rdParty::registerModule(QStringLiteral("Qt"), QStringLiteral(":/QT_LICENSE"),
            S3rdParty::qtSite(), SVersion(QT_VERSION_MAJOR, QT_VERSION_MINOR, QT_VERSION_PATCH));
        registerResources();
        registerViews();
        Cpu::affinityAtLoad(); // The rest of SCpuInfo::threads() takes longer and can wait.
    }

    ~Startup()
    {
        LastingBase::destroyAll();
        unregisterResources();
        // Qt would go on pointing to descriptions of types that leave memory with the library.
        for (const QMetaType &type : m_types)
            unregister(type);
    }

private:
    /// A type that another module registered first under the same name stays: the description is
    /// its own.
    static void unregister(const QMetaType &type)
    {
        const int number = type.id();
        if (QMetaType::isRegistered(number) && QMetaType(number).iface() == type.iface())
            QMetaType::unregisterMetaType(type);
    }

#define REGISTER_ENUM(Name) registerEnum<Name##_T>(),
    std::array<QMetaType, 13> m_types{
        TAVEX_META_ENUMS(REGISTER_ENUM, REGISTER_ENUM) registerType<SVersion>()};
};

const Startup startup;

} // namespace
} // namespace Quorvex
