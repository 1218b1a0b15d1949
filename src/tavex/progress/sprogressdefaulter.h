#pragma once

#include <tavex/progress/iprogress.h>

namespace Quorvex {

/// Resets a reporter at the start of a scope and sets it to 100 at the end. Null is left alone.
/// A copy ends the same reporter once more, and an assignment neither resets nor ends one.
class SProgressDefaulter
{
public:
    /// Resets \a progress, which has to outlive the object.
    [[nodiscard]] explicit SProgressDefaulter(Interfaces::IProgress *progress = nullptr)
        : m_progress(progress)
    {
        if (m_progress)
            m_progress->reset();
    }
    SProgressDefaulter(const SProgressDefaulter &) = default;
    SProgressDefaulter &operator=(const SProgressDefaulter &) = default;
    ~SProgressDefaulter()
    {
        if (m_progress)
            m_progress->setProgress(100);
    }

private:
    Interfaces::IProgress *m_progress;
};

} // namespace Quorvex
