// What happens when the library is loaded, in order, and is undone when it is unloaded. Nothing
// else in the library registers anything before it is used, except the resources, which do it
// themselves.

#include <tavex/application/s3rdparty.h>
#include <tavex/convert/svariantconvert.h>
#include <tavex/core/metatype_p.h>
#include <tavex/core/startup_p.h>
#include <tavex/core/sversion.h>
#include <tavex/enums/enumlist_p.h>
#include <tavex/numeric/sgeometry.h>
#include <tavex/system/cpu_p.h>

#include <QVariant>

#include <array>

namespace Quorvex {
namespace {

/// Makes Qt register its own descriptions of the views through which it reaches the elements of
/// lists, maps and pairs, before a list of the library or of a plug-in does so with descriptions
/// that may be unloaded.
void registerViews()
{
    for (const auto view :
        {QMetaType::QVariantList, QMetaType::QVariantMap, QMetaType::QVariantPair})
        QMetaType::canConvert(QMetaType(QMetaType::Int), QMetaType(view));
}

/// The types that may be held in a QVariant from load on.
#define META_TYPE(Name) QMetaType::fromType<Name>(),
auto metaTypes()
{
    return std::array{TAVEX_META_ENUMS(META_TYPE, META_TYPE) META_TYPE(SVersion) META_TYPE(SPointF)
            META_TYPE(SSizeF) META_TYPE(SRectF) META_TYPE(SPadding)};
}

void registerMetaTypes()
{
    for (const QMetaType type : metaTypes())
        type.id(); // Asking for the id registers the type under its name.
}

/// Qt would go on pointing to descriptions of types that leave memory with the library. A type that
/// another module registered first under the same name stays: the description is its own.
void unregisterMetaTypes()
{
    for (const QMetaType type : metaTypes()) {
        const int number = type.id();
        if (QMetaType::isRegistered(number) && QMetaType(number).iface() == type.iface())
            QMetaType::unregisterMetaType(type);
    }
}

/// The key of the enumeration value that \a value holds; nothing for a variant of another type.
template <typename Table>
QString enumToText(const QVariant &value, const QString &, const QLocale &locale)
{
    using Enum = typename Table::Enum;
    if (!MetaType::isSame(value.metaType(), QMetaType::fromType<Enum>()))
        return {};
    return Table::instance().toString(*static_cast<const Enum *>(value.constData()), locale);
}

#define REGISTER_CONVERTER(Name)                                                                   \
    SVariantConvert::sVariantToStringRegister(                                                     \
        QMetaType::fromType<Name>().id(), &enumToText<Name##_T>);
void registerConverters()
{
    TAVEX_META_ENUMS(REGISTER_CONVERTER, REGISTER_CONVERTER)
}

/// QVariant's, between enumerations and text.
void registerKeyConverters()
{
#define KEY_CONVERTERS(Name) SKeyConverters<Name> of##Name;
    struct Converters
    {
        TAVEX_META_ENUMS(KEY_CONVERTERS, KEY_CONVERTERS)
    };
    static constinit Lasting<Converters> converters;
    converters.get();
}

void registerQt()
{
    S3rdParty::registerModule(QStringLiteral("Qt"), QStringLiteral(":/QT_LICENSE"),
        S3rdParty::qtSite(), SVersion(QT_VERSION_MAJOR, QT_VERSION_MINOR, QT_VERSION_PATCH));
}

constexpr Step steps[] = {
    {registerViews}, {registerMetaTypes, unregisterMetaTypes},
    {registerConverters},            // What keeps it is destroyed with all that lasts.
    {registerKeyConverters},         // Likewise.
    {registerQt},                    // Likewise.
    {[] { Cpu::affinityAtLoad(); }}, // The rest of SCpuInfo::threads() takes longer and can wait.
};

const Startup startup(steps);

} // namespace
} // namespace Quorvex
