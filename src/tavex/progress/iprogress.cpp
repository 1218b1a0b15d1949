#include <tavex/progress/progresslock_p.h>

#include <QVarLengthArray>

#include <algorithm>
#include <memory>
#include <utility>

namespace Quorvex::Interfaces {

/// A change on its way: a reporter passes it on to its peers, then to its pool, and then announces
/// it. Those that it reaches do the same before it goes on. What there is to do lies on a stack
/// here, not on the thread's: a reporter that is called as a peer adds to it and returns. So chains
/// may be of any length, and slots may delete what they like, because the stack knows of it.
///
/// What a slot changes is a change of its own, which is through when its call returns.
class IProgress::Change
{
public:
    Q_DISABLE_COPY_MOVE(Change)

    enum Kind : quint8 { SetProgress, Abort };
    enum Task : quint8 {
        Announce,     ///< First to the pool; not a progress that is \c value, as before.
        CallPeers,    ///< Those that are not there yet.
        CallChildren, ///< In order. A pool is aborted after them.
        CallItself,
        Done
    };

    /// Begins a change of \a origin, or what it has to do in the change that is just calling it.
    template <typename Begin>
    static void start(IProgress *origin, int value, std::unique_lock<Lock> lock, Begin begin)
    {
        if (Change *const change = calling(origin)) {
            begin(*change);
            return;
        }
        Change change(origin, value);
        begin(change);
        lock.unlock();
        change.run();
    }

    /// The change that is just calling \a reporter, once.
    static Change *calling(const IProgress *reporter)
    {
        Change *const change = here.change;
        if (!change || change->m_called != reporter)
            return nullptr;
        change->m_called = nullptr;
        return change;
    }

    /// Calls \a function. Whether \a reporter is still there then.
    template <typename Function>
    [[nodiscard]] static bool isLeft(IProgress *reporter, Function function)
    {
        Change watch(reporter, 0);
        function();
        return watch.m_origin;
    }

    /// Ends the part of \a reporter in the changes of the thread.
    static void forget(IProgress *reporter);

    /// Emits a signal, with the lock or without.
    static void tell(IProgress *reporter, const IProgress *pool, Kind kind, int progress);

    void push(Task task, Kind kind, IProgress *reporter, int value = 0, std::size_t index = 0);
    void setProgress(IProgress *reporter, int value, int before);
    void setAborted(IProgress *reporter);
    void follow(IProgress *pool);

    /// What the thread is doing.
    struct Here
    {
        Change *change;
        const IProgress *answered; ///< The pool that a child's signal is about to tell.
        quint64 state;             ///< Changes with each progress and is back when they are.
    };
    static thread_local constinit Here here;

private:
    struct Peers
    {
        QSet<IProgress *> all;
        QSet<IProgress *>::const_iterator next;
    };
    /// Has the lock of its reporter. There are two for each child of a pool that is aborted, so it
    /// is small.
    struct Step
    {
        Task task;
        Kind kind;
        bool isAnswered; ///< Whether the pool has followed.
        int value;
        IProgress *reporter; ///< Null if it was deleted.
        std::size_t index;   ///< How many children are through.
        std::size_t asked;   ///< The call that it is the first step of, or 0.
        std::unique_ptr<Peers> peers;
    };

    Change(IProgress *origin, int value)
        : m_outer(std::exchange(here.change, this))
        , m_origin(origin)
        , m_value(value)
    {
    }
    ~Change();

    void leave();
    void run();
    void work();
    void pop();
    void announce();
    static IProgress *next(Step *step);
    void call(const Step &step, IProgress *reporter);
    void ask(const Step &step, IProgress *peer);
    [[nodiscard]] bool isStuck(const IProgress *reporter) const;
    [[nodiscard]] bool isApart() const;
    void setAll();

    Change *const m_outer;
    IProgress *m_origin; ///< Null if it was deleted.
    const int m_value;
    const IProgress *m_called = nullptr;
    QVarLengthArray<Step, 4> m_steps;
    QSet<IProgress *> m_changed;    ///< Those with peers; it has their locks.
    QSet<const IProgress *> m_deaf; ///< Peers that did nothing when they were called.
    bool m_isEndless = false;       ///< Whether plain calls would be.
    bool m_isSettingAll = false;
    QSet<std::size_t> m_asked; ///< The calls of peers that are under way.
    qsizetype m_calls = 0;
};

thread_local constinit IProgress::Change::Here IProgress::Change::here{};

IProgress::Change::~Change()
{
    leave();
    here.change = m_outer;
}

void IProgress::Change::leave()
{
    for (const IProgress *const reporter : std::as_const(m_changed))
        reporter->m_lock->unlock();
    m_changed.clear();
}

void IProgress::Change::forget(IProgress *reporter)
{
    for (Change *change = here.change; change; change = change->m_outer) {
        for (Step &step : change->m_steps) {
            if (step.reporter == reporter)
                std::exchange(step.reporter, nullptr)->m_lock->unlock();
        }
        if (change->m_changed.remove(reporter))
            reporter->m_lock->unlock();
        if (change->m_origin == reporter)
            change->m_origin = nullptr;
    }
}

void IProgress::Change::tell(IProgress *reporter, const IProgress *pool, Kind kind, int progress)
{
    const Announcer *const announcer = reporter->m_announcer;
    if (!announcer)
        return;
    if (pool)
        here.answered = pool;
    if (kind == SetProgress)
        announcer->progress(reporter, progress);
    else
        announcer->aborting(reporter);
    if (pool)
        here.answered = nullptr;
}

void IProgress::Change::push(
    Task task, Kind kind, IProgress *reporter, int value, std::size_t index)
{
    std::unique_ptr<Peers> peers;
    if (task == CallPeers) {
        const bool isAbort = kind == Abort;
        peers = std::make_unique<Peers>(
            Peers{isAbort ? reporter->m_abortPeers : reporter->m_progressPeers, {}});
        peers->next = std::as_const(peers->all).cbegin();
    }
    reporter->m_lock->lock();
    m_steps.append({task, kind, false, value, reporter, index, 0, std::move(peers)});
}

void IProgress::Change::pop()
{
    const Step &step = m_steps.last();
    if (step.reporter)
        step.reporter->m_lock->unlock();
    if (step.asked)
        m_asked.remove(step.asked);
    m_steps.removeLast();
}

/// Goes on from \a reporter, which was \a before.
void IProgress::Change::setProgress(IProgress *reporter, int value, int before)
{
    push(Announce, SetProgress, reporter, before);
    if (reporter->m_progressPeers.isEmpty())
        return;
    if (reporter->m_progress != before && !m_changed.contains(reporter)) {
        reporter->m_lock->lock();
        m_changed.insert(reporter);
    }
    if (!m_isSettingAll)
        push(CallPeers, SetProgress, reporter, value);
}

void IProgress::Change::setAborted(IProgress *reporter)
{
    if (reporter->m_isAborted.exchange(1) == 0)
        push(Announce, Abort, reporter);
    if (!reporter->m_abortPeers.isEmpty())
        push(CallPeers, Abort, reporter);
}

void IProgress::Change::follow(IProgress *pool)
{
    const int mean = pool->mean();
    if (mean == pool->m_progress)
        return;
    pool->store(mean);
    setProgress(pool, mean, -1);
}

void IProgress::Change::run()
{
    for (work(); m_origin && !m_isSettingAll && isApart(); work())
        setAll();
    if (!m_steps.isEmpty())
        announce();
}

/// Until nothing is left but what the origin has to announce.
void IProgress::Change::work()
{
    while (!m_steps.isEmpty()) {
        Step &step = m_steps.last();
        IProgress *const reporter = step.reporter;
        if (!reporter || (step.task == Done && m_steps.size() > 1)) {
            pop();
            continue;
        }
        switch (step.task) {
        case Announce:
            if (IProgress *const pool = reporter->pool(); std::exchange(step.isAnswered, true)) {
                if (m_steps.size() == 1)
                    return;
                announce();
            } else if (pool && step.kind == Abort) {
                // If the pool is aborting this child, it goes on with the others from here.
                Step *const below = m_steps.size() > 1 ? &step - 1 : nullptr;
                const bool isByPool =
                    below && below->task == CallChildren && below->reporter == pool;
                const std::size_t all = pool->m_lock->children.size();
                push(CallChildren, Abort, pool, 0, isByPool ? std::exchange(below->index, all) : 0);
            } else if (pool && reporter->m_progress != step.value) {
                follow(pool);
            }
            break;
        case CallPeers:
            if (IProgress *const peer = next(&step); !peer)
                pop();
            else if (step.kind == SetProgress)
                ask(step, peer);
            else
                call(step, peer);
            break;
        case CallChildren:
            if (IProgress *const child = next(&step)) {
                call(step, child);
            } else if (step.kind == SetProgress) {
                step.task = Done;
            } else {
                step.task = Announce;
                step.isAnswered = true;
                reporter->m_isAborted = 1;
                if (!reporter->m_abortPeers.isEmpty())
                    push(CallPeers, Abort, reporter);
            }
            break;
        case CallItself:
            step.task = Done;
            call(step, reporter);
            break;
        case Done:
            return;
        }
    }
}

/// Announces the last step, which is done then. An origin that is no pool does not keep the lock.
void IProgress::Change::announce()
{
    Step &step = m_steps.last();
    IProgress *const reporter = step.reporter;
    const Kind kind = step.kind;
    const IProgress *const pool = reporter->pool();
    const int now = reporter->m_progress;
    const bool isNew = step.task == Announce && (kind == Abort || now != step.value);
    const bool isLocked = m_steps.size() > 1 || reporter->m_lock->pool == reporter;
    step.task = Done;
    if (!isLocked) {
        pop();
        leave();
    }
    if (isNew)
        tell(reporter, pool, kind, now);
    if (isLocked)
        pop();
}

/// Whom \a step has to call next; slots may have unlinked or deleted some.
IProgress *IProgress::Change::next(Step *step)
{
    const IProgress &from = *step->reporter;
    if (step->task == CallPeers) {
        const QSet<IProgress *> &peers =
            step->kind == SetProgress ? from.m_progressPeers : from.m_abortPeers;
        while (step->peers->next != step->peers->all.cend()) {
            IProgress *const peer = *step->peers->next++;
            if (peers.contains(peer)
                && (step->kind == Abort ? !peer->isAborted() : peer->progress() != from.progress()))
                return peer;
        }
        return nullptr;
    }
    const std::vector<IProgress *> &children = from.m_lock->children;
    while (step->index < children.size()) {
        IProgress *const child = children[step->index++];
        if (child && (step->kind == SetProgress || !child->isAborted()))
            return child;
    }
    return nullptr;
}

void IProgress::Change::call(const Step &step, IProgress *reporter)
{
    m_called = reporter;
    if (step.kind == SetProgress)
        reporter->setProgress(step.value);
    else
        reporter->abort();
    if (std::exchange(m_called, nullptr))
        m_deaf.insert(reporter);
}

/// Sets a peer, unless that is under way already and all is as it was then: it would be asked
/// without end. Else that ends, as there are no more than so many states; but those of a large
/// group are many.
void IProgress::Change::ask(const Step &step, IProgress *peer)
{
    constexpr qsizetype patience = 1000;
    const std::size_t asked = qHashMulti(1, peer, step.value, here.state);
    if (m_asked.contains(asked)) {
        m_isEndless = true;
        return;
    }
    if (++m_calls > patience * (m_changed.size() + 10)) {
        setAll();
        return;
    }
    const qsizetype first = m_steps.size();
    call(step, peer);
    if (m_steps.size() > first) {
        m_steps[first].asked = asked;
        m_asked.insert(asked);
    }
}

/// Whether it does not get where others are.
bool IProgress::Change::isStuck(const IProgress *reporter) const
{
    const Lock &lock = *reporter->m_lock;
    return m_deaf.contains(reporter)
        || (lock.pool == reporter && (lock.children.empty() || lock.living < lock.children.size()));
}

/// Whether peers differ that could agree. With one that is stuck, plain calls may end like that
/// themselves, and what they give stays.
bool IProgress::Change::isApart() const
{
    bool isApart = false;
    for (const IProgress *const changed : m_changed) {
        for (const IProgress *const peer : changed->m_progressPeers) {
            if (!isStuck(changed) && !isStuck(peer))
                isApart = isApart || changed->progress() != peer->progress();
            else if (!m_isEndless)
                return false;
        }
    }
    return isApart;
}

/// Stops passing on, and sets what it could reach.
void IProgress::Change::setAll()
{
    m_isSettingAll = true;
    for (Step &step : m_steps) {
        if (step.task != Announce)
            step.task = Done;
    }
    if (!m_origin)
        return;
    std::vector<IProgress *> reached{m_origin};
    QSet<IProgress *> seen{m_origin};
    const auto reach = [&reached, &seen](IProgress *reporter) {
        if (reporter && !seen.contains(reporter)) {
            seen.insert(reporter);
            reached.push_back(reporter);
        }
    };
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const IProgress *const reporter = reached[i];
        for (IProgress *const peer : reporter->m_progressPeers)
            reach(peer);
        const Lock &lock = *reporter->m_lock;
        if (lock.pool == reporter)
            std::for_each(lock.children.cbegin(), lock.children.cend(), reach);
        else if (lock.pool && !lock.pool->m_progressPeers.isEmpty())
            reach(lock.pool);
    }
    for (IProgress *const reporter : reached)
        push(CallItself, SetProgress, reporter, m_value);
}

IProgress::IProgress()
    : IProgress(nullptr)
{
}

IProgress::IProgress(const Announcer *announcer)
    : m_lock(std::make_shared<Lock>())
    , m_announcer(announcer)
{
}

IProgress::~IProgress()
{
    unlinkAll();
}

void IProgress::reset()
{
    if (Change::isLeft(this, [this] { setProgress(0); }))
        m_isAborted = 0;
}

void IProgress::abort()
{
    std::unique_lock lock(*m_lock);
    IProgress *const pool = this->pool();
    if (!m_abortPeers.isEmpty() || (pool && !m_isAborted)) {
        Change::start(
            this, 0, std::move(lock), [this](Change &change) { change.setAborted(this); });
        return;
    }
    Change::calling(this);
    const bool wasAborted = m_isAborted.exchange(1) != 0;
    lock.unlock();
    if (!wasAborted)
        Change::tell(this, nullptr, Change::Abort, 0);
}

bool IProgress::isAborted() const
{
    return m_isAborted.load(std::memory_order_acquire) != 0;
}

int IProgress::progress() const
{
    return m_progress.load(std::memory_order_acquire);
}

void IProgress::setProgress(int value)
{
    std::unique_lock lock(*m_lock);
    const int before = m_progress;
    store(std::clamp(value, 0, 100));
    const int now = m_progress;
    IProgress *const pool = this->pool();
    if (!m_progressPeers.isEmpty() || (pool && pool->mean() != pool->m_progress)) {
        Change::start(this, value, std::move(lock),
            [=, this](Change &change) { change.setProgress(this, value, before); });
        return;
    }
    if (pool)
        Change::calling(this);
    lock.unlock();
    if (now != before)
        Change::tell(this, pool, Change::SetProgress, now);
}

bool IProgress::link(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b || a == b)
        return false;
    const std::scoped_lock both(*a->m_lock, *b->m_lock);
    const auto insert = [a, b](QSet<IProgress *> IProgress::*set) {
        if ((a->*set).contains(b))
            return;
        (a->*set).insert(b);
        (b->*set).insert(a);
        Lock::link(a->lock(), b->lock());
    };
    if (peers & ProgressPeers)
        insert(&IProgress::m_progressPeers);
    if (peers & AbortPeers)
        insert(&IProgress::m_abortPeers);
    return true;
}

void IProgress::unlink(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b)
        return;
    const std::scoped_lock lock(*a->m_lock);
    // Only now is b known to be in the same group, so that this does not wait.
    if (a->m_progressPeers.contains(b) || a->m_abortPeers.contains(b))
        a->cut(b, peers);
}

void IProgress::cut(IProgress *peer, Peers peers)
{
    const std::scoped_lock lock(*peer->m_lock);
    const auto remove = [this, peer](QSet<IProgress *> IProgress::*set) {
        if ((this->*set).remove(peer)) {
            (peer->*set).remove(this);
            Lock::unlink(this->lock(), peer->lock());
        }
    };
    if (peers & ProgressPeers)
        remove(&IProgress::m_progressPeers);
    if (peers & AbortPeers)
        remove(&IProgress::m_abortPeers);
}

void IProgress::unlinkAll()
{
    const std::scoped_lock lock(*m_lock);
    while (!m_progressPeers.isEmpty())
        cut(*m_progressPeers.cbegin(), AllPeers);
    while (!m_abortPeers.isEmpty())
        cut(*m_abortPeers.cbegin(), AbortPeers);
    Change::forget(this);
}

QSet<IProgress *> IProgress::progressPeers() const
{
    const std::scoped_lock lock(*m_lock);
    return m_progressPeers;
}

QSet<IProgress *> IProgress::abortPeers() const
{
    const std::scoped_lock lock(*m_lock);
    return m_abortPeers;
}

void IProgress::join(const IProgress &pool)
{
    m_lock = pool.m_lock;
    m_lock->children.push_back(this);
    ++m_lock->living;
}

void IProgress::setChildren(int value)
{
    Change::start(this, value, std::unique_lock(*m_lock), [=, this](Change &change) {
        change.push(Change::CallChildren, Change::SetProgress, this, value);
    });
}

void IProgress::abortChildren()
{
    Change::start(this, 0, std::unique_lock(*m_lock),
        [this](Change &change) { change.push(Change::CallChildren, Change::Abort, this); });
}

void IProgress::followChildren()
{
    std::unique_lock lock(*m_lock);
    if (m_lock->children.empty())
        return;
    Change::start(this, mean(), std::move(lock), [this](Change &change) { change.follow(this); });
}

bool IProgress::isAnswered() const
{
    const IProgress *&answered = Change::here.answered;
    return answered == this && std::exchange(answered, nullptr);
}

/// Of a child; otherwise null.
IProgress *IProgress::pool() const
{
    IProgress *const pool = m_lock->pool;
    return pool == this ? nullptr : pool;
}

/// Of a pool's children, of which there is one at least.
int IProgress::mean() const
{
    return static_cast<int>(m_lock->sum / static_cast<qint64>(m_lock->children.size()));
}

void IProgress::store(int value)
{
    const int before = m_progress;
    if (value == before)
        return;
    m_progress.store(value, std::memory_order_release);
    const bool isChild = pool();
    if (isChild)
        m_lock->sum += value - before;
    if (Change::here.change && (isChild || !m_progressPeers.isEmpty()))
        Change::here.state ^= quint64(qHashMulti(0, this, before) ^ qHashMulti(0, this, value));
}

} // namespace Quorvex::Interfaces
