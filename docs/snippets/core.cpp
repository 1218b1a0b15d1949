#include "snippets.h"

#include <tavex/MetadataFlags>
#include <tavex/SConvert>
#include <tavex/SVersion>
#include <tavex/SpecialFolder>

using namespace Quorvex;

void core(QTextStream &out)
{
    //! [version]
    const SVersion found = SConvert::toVersion(QStringLiteral("engine 3.1.4 (beta)"));
    out << SConvert::toString(found) << ", packed " << found.value() << '\n';
    if (found < SVersion(3, 2, 0))
        out << "older than " << SConvert::toString(SVersion(3, 2, 0), QStringLiteral("{MM}.{mm}"))
            << '\n';
    //! [version]

    //! [enumeration]
    const auto &keys = SpecialFolder_T::instance();
    out << keys.toString(SpecialFolder::TempLocation) << ", one of " << keys.keys().size() << '\n';

    const QVariant value = QVariant::fromValue(SpecialFolder::HomeLocation);
    out << value.typeName() << ": " << SConvert::toString(value) << '\n';

    const MetadataFlags flags = MetadataFlags::KillOnCopy | MetadataFlags::KillOnSave;
    out << (testAnyFlag(flags, MetadataFlags::KillOnSave) ? "not saved" : "saved") << '\n';
    //! [enumeration]
}
