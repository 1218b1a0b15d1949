#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>

namespace Quorvex {

/// The key table of an enumeration: which key texts each value has.
///
/// Tables are derived from SEnumBase; this part does not know the enumeration's type and takes
/// values as 64-bit numbers (unsigned ones as their bit pattern). A table is complete when it is
/// first read and only read afterwards, so any thread may use it.
class TAVEX_EXPORT ISEnum
{
public:
    Q_DISABLE_COPY_MOVE(ISEnum)
    virtual ~ISEnum();

    /// The enumeration's name without namespace, such as "Bool".
    [[nodiscard]] virtual QString name() const = 0;

    /// Whether the values are bits that can be combined.
    [[nodiscard]] virtual bool isFlagSet() const = 0;

    /// Adds \a key behind the keys that \a value already has, so that it becomes the value's text.
    /// Returns false for an empty key and for a pair that the table holds already.
    /// Meant for ISEnumRuntimeLoader::loadKeys().
    bool addKey(qint64 value, const QString &key);

protected:
    ISEnum();

    /// Lets the loader that is registered for name(), if there is one, add its keys when the table
    /// is first read. To be called once, by the constructor of the most derived class. A loader
    /// that reads the table sees what is in it so far; other threads wait for the whole.
    void loadRuntimeKeys();

    /// All keys in the order in which they were added.
    [[nodiscard]] const QStringList &allKeys() const;

    /// The last key of \a value, or else the number in decimal as \a locale writes it.
    [[nodiscard]] QString text(qint64 value, bool isUnsigned, const QLocale &locale) const;

private:
    void load() const;

    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace Quorvex
