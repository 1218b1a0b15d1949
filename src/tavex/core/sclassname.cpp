#include <tavex/core/sclassname.h>

#include <tavex/core/startup_p.h>

#include <QRegularExpression>
#include <QStringList>

#if __has_include(<cxxabi.h>)
#include <cstdlib>
#include <cxxabi.h>
#include <memory>
#endif

namespace Quorvex {
namespace {

struct Patterns
{
    QRegularExpression separator{QStringLiteral("(:|\\s)")};
    QRegularExpression prefix{QStringLiteral("^S[A-Z]")};
    QRegularExpression wordStart{QStringLiteral("([a-z])([0-9|A-Z])")};
};

constinit Lasting<Patterns> patterns;

} // namespace

/// The name as it stands in source code; compilers with the Itanium ABI encode it.
static QString readableName(const std::type_info &type)
{
#if __has_include(<cxxabi.h>)
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    if (readable)
        return QString::fromLatin1(readable.get());
#endif
    return QString::fromLatin1(type.name());
}

QString SClassName::name(const std::type_info &type)
{
    return readableName(type).split(patterns.get().separator).constLast();
}

QString SClassName::displayName(const QString &className)
{
    const auto &[separator, prefix, wordStart] = patterns.get();
    QString words = className;
    if (prefix.match(words).hasMatch())
        words.remove(0, 1);
    words.replace(wordStart, QStringLiteral("\\1 \\2"));
    words.replace(QLatin1Char('_'), QLatin1Char(' '));

    QStringList parts = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("Meta"));
    return parts.join(QLatin1Char(' '));
}

} // namespace Quorvex
