#include <tavex/Bool>
#include <tavex/SCrc32>
#include <tavex/SVersion>
#include <tavex/Tavex>

// A user without the strict macros: text may come from plain literals.
int main()
{
    using namespace Quorvex;
    const bool right = SConvert::toVersion("1.2.3") == SVersion(1, 2, 3)
        && SConvert::toInt32("12") == 12 && SConvert::toDouble(QVariant("2.5")) == 2.5
        && Bool_T::instance().toString(Bool::True) == "True"
        && SCrc32::hash(QByteArray("123456789")) == 0x0376E6E7
        && SVersion::currentVersion() == TavexInfo::version();
    return right ? 0 : 1;
}
