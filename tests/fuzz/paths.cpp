#include "fuzz.h"

#include <tavex/SDir>
#include <tavex/SFileHelper>

using Quorvex::SDir;

int LLVMFuzzerTestOneInput(const uchar *data, std::size_t size)
{
    Input input(data, size);
    const int width = input.number<int>();
    const QString a = input.text();
    const QString b = input.text();

    const QString cleaned = QDir::fromNativeSeparators(QDir::cleanPath(a));
    check(SDir::pathShortener(a, -1) == cleaned);
    const QString shortened = SDir::pathShortener(a, width);
    check(shortened == cleaned
        || (shortened.size() == qMax(width, 10) + 3 && shortened.size() < cleaned.size()
            && shortened.front() == cleaned.front() && shortened.back() == cleaned.back()));

    const bool isEqual = SDir::pathCompare(a, b, Qt::CaseSensitive);
    check(isEqual == SDir::pathCompare(b, a, Qt::CaseSensitive));
    check(isEqual == SDir::pathCompare(SDir::toUnipath(a), b, Qt::CaseSensitive));
    check(!isEqual || SDir::pathCompare(a, b, Qt::CaseInsensitive));
    check(SDir::pathCompare(a, a, Qt::CaseSensitive));
    // Qt takes a mark of the byte order off a path that it cleans.
    const bool isMarked = a.startsWith(QChar(0xFEFF)) || a.startsWith(QChar(0xFFFE));
    if (!a.isEmpty() && !isMarked && !SDir::toUnipath(a).endsWith(u'/'))
        check(SDir::pathCompare(a + QStringLiteral("/./x/.."), a, Qt::CaseSensitive));

    const QString right = SDir::removeWrongChars(a);
    check(right.size() == a.size() && SDir::removeWrongChars(right) == right);
    (void)SDir::uniqueEnumeratedPath(a);
    const QString unique = Quorvex::SFileHelper::uniqueEnumeratedName(a);
    check(!QFileInfo::exists(unique) || unique.contains(QStringLiteral(" - 99.")));
    return 0;
}
