#pragma once

#include <tavex/core/export.h>

#include <QFile>

namespace Quorvex {

/// A file that is closed and deleted with its object. It is made, like that of any QFile, when it
/// is opened; then it is readable and writable for this user only. A relative name counts from
/// the folder that is current when it is given, and fileName() is absolute.
///
/// It has no members of its own: its layout is that of QFile.
class TAVEX_EXPORT STemporaryFile : public QFile
{
    Q_OBJECT

public:
    /// The file \a fileName.
    /// @{
    explicit STemporaryFile(const QString &fileName);
    STemporaryFile(const QString &fileName, QObject *parent);
    /// @}
    /// A file with a name of its own in the user's temporary folder.
    explicit STemporaryFile(QObject *parent = nullptr);
    Q_DISABLE_COPY_MOVE(STemporaryFile)
    ~STemporaryFile() override;

    using QFile::open;
    /// Opens as QFile does, but logs nothing if it is open already or has no name. Only this user
    /// may use the file, under Linux by its mode 0600.
    [[nodiscard]] bool open(OpenMode mode) override;
};

} // namespace Quorvex
