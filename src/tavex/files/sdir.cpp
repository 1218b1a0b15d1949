#include <tavex/files/sdir.h>

#include <tavex/system/platform_p.h>
#include <tavex/system/sstorageinfo.h>

namespace Quorvex {

bool SDir::isLocal() const
{
    return SStorageInfo(m_path).isLocal();
}

bool SDir::link(const QString &target) const
{
    return Platform::linkDirectory(target, m_path);
}

QList<QString> SDir::search(const QList<QString> &nameFilters, QDir::Filters filters,
    const QDirIterator::IteratorFlags &flags) const
{
    QList<QString> entries;
    QDirIterator iterator(m_path, nameFilters, filters, flags);
    while (iterator.hasNext())
        entries.append(iterator.next());
    return entries;
}

QList<QString> SDir::search(const QString &path, const QList<QString> &nameFilters,
    QDir::Filters filters, const QDirIterator::IteratorFlags &flags)
{
    return SDir(path).search(nameFilters, filters, flags);
}

QList<QString> SDir::search(const QString &path, const QList<QString> &nameFilters,
    const QDirIterator::IteratorFlags &flags)
{
    return search(path, nameFilters,
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, flags);
}

bool SDir::pathCompare(const QString &a, const QString &b, const Qt::CaseSensitivity &cs)
{
    const QString unipathA = toUnipath(a);
    const QString unipathB = toUnipath(b);
    // QDir::cleanPath() may remove one of the two "/".
    const QLatin1String network("//");
    return unipathA.startsWith(network) == unipathB.startsWith(network)
        && QDir::cleanPath(unipathA).compare(QDir::cleanPath(unipathB), cs) == 0;
}

QString SDir::toUnipath(const QString &path)
{
    return QString(path).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

QString SDir::removeWrongChars(const QString &name)
{
    QString result = name;
    for (const char wrong : {'?', '*', ':', ';'})
        result.replace(QLatin1Char(wrong), QLatin1Char('_'));
    return result;
}

QString SDir::pathShortener(const QString &path, int width)
{
    QString cleaned = QDir::fromNativeSeparators(QDir::cleanPath(path));
    const qsizetype kept = qMax(width, 10);
    const qsizetype removed = cleaned.size() - kept;
    if (width == -1 || removed < 10)
        return cleaned;
    const qsizetype half = kept / 2;
    return cleaned.left(half) + QStringLiteral("...") + cleaned.mid(half + removed);
}

QString SDir::uniqueEnumeratedPath(const QString &path)
{
    const QString separator = QStringLiteral(" - ");
    QString base = path.trimmed();
    if (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    const qsizetype suffix = base.lastIndexOf(separator);
    if (suffix >= 0 && base.indexOf(QLatin1Char('/'), suffix) < 0)
        base.truncate(suffix);

    QString candidate = base;
    if (path.contains(QChar::Null)) // Qt would log a question about such a name, which nothing has.
        return candidate;
    for (int number = 1; number <= 99 && QDir(candidate).exists(); ++number)
        candidate = base + separator + QString::number(number);
    return candidate;
}

} // namespace Quorvex
