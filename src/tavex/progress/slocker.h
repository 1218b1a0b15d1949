#pragma once

#include <tavex/metadata/ilockable.h>

#include <QtGlobal>

namespace Quorvex {

/// Holds \a lockable, which may be null, during a scope. A constant one is locked as well.
class SLocker
{
public:
    Q_DISABLE_COPY_MOVE(SLocker)

    /// Waits for \a lockable, which has to outlive the object.
    [[nodiscard]] explicit SLocker(const Interfaces::ILockable *lockable)
        : m_lockable(const_cast<Interfaces::ILockable *>(lockable))
    {
        if (m_lockable)
            m_lockable->lock();
    }
    ~SLocker()
    {
        if (m_lockable)
            m_lockable->unlock();
    }

private:
    Interfaces::ILockable *m_lockable;
};

} // namespace Quorvex
