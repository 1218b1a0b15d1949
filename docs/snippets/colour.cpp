#include "snippets.h"

#include <tavex/ISEnumRuntimeLoader>
#include <tavex/SEnumBase>
#include <tavex/SEnumRuntimeLoader>
#include <tavex/SEnumTranslatorBase>

using namespace Quorvex;

//! [enumeration]
#define COLOUR_KEYS(KEY) KEY(Red, 0) KEY(Green, 1)

TAVEX_ENUM(Colour, int, COLOUR_KEYS); // The enumeration and its key table, Colour_T.
TAVEX_ENUM_TRANSLATOR(Colour); // Colour_TR. It loads Colour_<language>.qm from :/translations.
//! [enumeration]

//! [loader]
class ColourLoader : public ISEnumRuntimeLoader
{
public:
    [[nodiscard]] QString name() const override { return QStringLiteral("Colour"); }
    void loadKeys(ISEnum *keys) override { keys->addKey(7, QStringLiteral("Teal")); }
    void load(SEnumTranslatorBase *translator) override
    {
        translator->insert(
            QStringLiteral("Teal"), QStringLiteral("blue-green"), QStringLiteral("teal"));
    }
};
//! [loader]

void colour(QTextStream &out)
{
    //! [use]
    SEnumRuntimeLoader::loaderRegister(new ColourLoader); // Before the first use of the tables.

    out << Colour_T::instance().toString(Colour::Green) << '\n';
    out << Colour_TR::instance().etr(QStringLiteral("Green")) << '\n'; // There is no catalogue.
    out << Colour_TR::instance().etr(QStringLiteral("Teal")) << '\n';
    //! [use]

    //! [back]
    const SKeyConverters<Colour> converters;
    out << QVariant::fromValue(Colour::Red).toString() << '\n';
    out << int(QVariant(QStringLiteral("Teal")).value<Colour>()) << '\n';
    //! [back]
}
