#pragma once

#include <tavex/core/export.h>

#include <QLocale>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace Quorvex {

/// The key table of an enumeration: which key texts each value has.
///
/// Tables are derived from SEnumBase; this part does not know the enumeration's type and takes
/// values as 64-bit numbers (unsigned ones as their bit pattern).
///
/// When a table is first read, the runtime loader of its name, if there is one, adds keys. From
/// then on it is only read, and any thread may do so. A loader that reads the table it adds to sees
/// the keys so far; other threads wait until it is done.
class TAVEX_EXPORT ISEnum
{
public:
    Q_DISABLE_COPY_MOVE(ISEnum)
    virtual ~ISEnum();

    /// The enumeration's name without namespace, such as "Bool".
    [[nodiscard]] virtual QString name() const;

    /// Whether the values are bits that can be combined; see \ref Quorvex::isFlags.
    [[nodiscard]] virtual bool isFlags() const = 0;

    /// Adds \a key behind the keys that \a value already has, so that it becomes the value's text.
    /// Returns false for an empty key and for a pair that the table holds already.
    /// Meant for ISEnumRuntimeLoader::loadKeys().
    bool addKey(qint64 value, const QString &key);

protected:
    /// An empty table of the enumeration \a name.
    explicit ISEnum(const QString &name);

    /// All keys in the order in which they were added.
    [[nodiscard]] const QStringList &allKeys() const;

    /// The value of \a key. Of several values with the same key, the first.
    [[nodiscard]] std::optional<qint64> value(const QString &key) const;

    /// What SEnumBase::keysToValue() and valueToKeys() do.
    /// @{
    [[nodiscard]] std::optional<qint64> parse(const QString &keys, bool isUnsigned) const;
    [[nodiscard]] QString print(qint64 value, bool isUnsigned) const;
    /// @}

    /// The last key of \a value, or else the number in decimal as \a locale writes it.
    [[nodiscard]] QString text(qint64 value, bool isUnsigned, const QLocale &locale) const;

private:
    void load() const;

    struct Private;
    const std::unique_ptr<Private> d;
};

} // namespace Quorvex
