#pragma once

#include <tavex/core/export.h>

#include <QString>

namespace Quorvex {

class ISEnum;
class SEnumTranslatorBase;

/// Supplies texts and keys of one enumeration at run time. Register it with SEnumRuntimeLoader.
///
/// Loaders are called one at a time, on the thread that loads. A loader must not wait for another
/// thread that may use an enumeration for the first time.
class TAVEX_EXPORT ISEnumRuntimeLoader
{
public:
    ISEnumRuntimeLoader() = default;
    Q_DISABLE_COPY_MOVE(ISEnumRuntimeLoader)
    virtual ~ISEnumRuntimeLoader();

    /// Adds texts with SEnumTranslatorBase::insert(). Called at every load of the enumeration's
    /// translator, after its run-time texts were removed. It may use any enumeration. The one that
    /// is being loaded it sees as far as it is loaded; other threads see the words of before, or
    /// wait if there are none yet.
    virtual void load(SEnumTranslatorBase *translator) = 0;

    /// Adds keys with ISEnum::addKey(). Called once, when the key table is first read.
    virtual void loadKeys(ISEnum *keys) = 0;

    /// The name of the enumeration, such as "Bool".
    [[nodiscard]] virtual QString name() const = 0;
};

} // namespace Quorvex
