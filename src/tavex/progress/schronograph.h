#pragma once

#include <QTime>

namespace Quorvex {

/// Measures a scope in milliseconds: sets \a elapsed, if it is not null, to 0 at the start and to
/// the time at the end. A copy goes on measuring from the same start. It reads the local time of
/// day: over midnight, or when the clock is set, the result is off and may be negative.
class SChronograph
{
public:
    /// Starts; \a elapsed has to live as long as the object and its copies.
    [[nodiscard]] explicit SChronograph(int *elapsed = nullptr)
        : m_start(QTime::currentTime())
        , m_elapsed(elapsed)
    {
        if (m_elapsed)
            *m_elapsed = 0;
    }
    SChronograph(const SChronograph &) = default;
    SChronograph &operator=(const SChronograph &) = default;
    ~SChronograph()
    {
        if (m_elapsed)
            *m_elapsed = m_start.msecsTo(QTime::currentTime());
    }

private:
    QTime m_start;
    int *m_elapsed;
};

} // namespace Quorvex
