#include "snippets.h"

#include <tavex/ISEnumRuntimeLoader>
#include <tavex/SEnumBase>
#include <tavex/SEnumRuntimeLoader>
#include <tavex/SEnumTranslatorBase>

using namespace Quorvex;

//! [enumeration]
enum class Colour { Red, Green };

class Colour_T final : public SEnumBase<Colour>
{
public:
    static const Colour_T &instance()
    {
        static const Colour_T table;
        return table;
    }
    [[nodiscard]] QString name() const override { return QStringLiteral("Colour"); }
    [[nodiscard]] bool isFlagSet() const override { return false; }

private:
    static constexpr SEnumKey<Colour> Rows[] = {{Colour::Red, u"Red"}, {Colour::Green, u"Green"}};
    Colour_T()
        : SEnumBase(Rows)
    {
        loadRuntimeKeys();
    }
};
//! [enumeration]

//! [translator]
class Colour_TR final : public SEnumTranslatorBase
{
public:
    static const Colour_TR &instance()
    {
        static Colour_TR translator;
        return translator;
    }
    [[nodiscard]] QString name() const override { return QStringLiteral("Colour"); }
    [[nodiscard]] QStringList keys() const override { return Colour_T::instance().keys(); }
    [[nodiscard]] QString headerPath() const override { return QStringLiteral("colour"); }

private:
    Colour_TR() { translationRegister(); } // Loads Colour_<language>.qm from :/translations.
};
//! [translator]

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
}
