#pragma once

#include <tavex/core/export.h>

#include <QDir>
#include <QDirIterator>
#include <QList>
#include <QString>

#include <utility>

namespace Quorvex {

/// The path of a directory, and helpers for paths. A value; the path is kept as it was given, and
/// the directory need not exist. It is nothing but the path, so its layout is final.
///
/// All members may be called from any thread; one object is changed by one thread at a time.
class TAVEX_EXPORT SDir
{
public:
    /// Stands for the directory at \a path.
    explicit SDir(QString path)
        : m_path(std::move(path))
    {
    }

    /// The path as it was given.
    /// @{
    [[nodiscard]] const QString &path() const &noexcept { return m_path; }
    [[nodiscard]] QString path() &&noexcept { return std::move(m_path); }
    /// @}

    /// Whether the directory exists on a volume that is known to be local, as SStorageInfo has it.
    /// Waits for no other volume.
    [[nodiscard]] bool isLocal() const;

    /// Makes \a target, which must not exist yet, a link to this directory: a junction under
    /// Windows, a symbolic link elsewhere. Under Windows this runs the shell, for up to a minute.
    [[nodiscard]] bool link(const QString &target) const;

    /// The paths of all entries that a QDirIterator with these arguments finds, in its order. Each
    /// begins with path().
    [[nodiscard]] QList<QString> search(const QList<QString> &nameFilters, QDir::Filters filters,
        const QDirIterator::IteratorFlags &flags) const;
    /// The same for the directory at \a path.
    [[nodiscard]] static QList<QString> search(const QString &path,
        const QList<QString> &nameFilters, QDir::Filters filters,
        const QDirIterator::IteratorFlags &flags);
    /// Every entry but "." and "..": also hidden ones, broken links and what is neither file nor
    /// directory.
    [[nodiscard]] static QList<QString> search(const QString &path,
        const QList<QString> &nameFilters, const QDirIterator::IteratorFlags &flags);

    /// Whether two paths are the same by their text: "\" stands for "/", and "." and ".." are
    /// resolved, without a look at the disk. A path that begins with "//", one in the network, only
    /// equals another such path.
    [[nodiscard]] static bool pathCompare(
        const QString &a, const QString &b, const Qt::CaseSensitivity &cs);

    /// \a path with "/" for every "\".
    [[nodiscard]] static QString toUnipath(const QString &path);

    /// \a name with "_" for each of the characters ?*:; which Windows does not allow in names, or
    /// which separate the paths in a list.
    [[nodiscard]] static QString removeWrongChars(const QString &name);

    /// \a path, cleaned, and shortened for people to \a width UTF-16 code units around "..." in its
    /// middle, which come on top. It is only shortened if that saves at least 10 of them; \a width
    /// counts as 10 if it is less, and -1 is no limit.
    [[nodiscard]] static QString pathShortener(const QString &path, int width);

    /// \a path, without blanks around it and one "/" at its end, if no directory exists there;
    /// otherwise the first free one of "name - 1" to "name - 99", and the last of them also if it
    /// is not free. A " - " and what follows it at the end of the name are taken off before.
    [[nodiscard]] static QString uniqueEnumeratedPath(const QString &path);

    /// Compares the paths as texts; pathCompare() knows more.
    friend bool operator==(const SDir &, const SDir &) noexcept = default;

private:
    QString m_path;
};

} // namespace Quorvex
