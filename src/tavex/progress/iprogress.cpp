#include <tavex/progress/iprogress_p.h>

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace Quorvex::Interfaces {

/// A change on its way: a reporter passes it on to its peers, then to its pool, and then announces
/// it. Those that it reaches do the same before it goes on. What there is to do lies on a stack
/// here, not on the thread's: a reporter that is called as a peer adds to it and returns. So chains
/// may be of any length.
///
/// What a slot changes is a change of its own, which is through when its call returns.
class IProgress::Private::Change
{
public:
    Q_DISABLE_COPY_MOVE(Change)

    /// Begins a change of \a origin, or what it has to do in the change that is just calling it.
    template <typename Begin>
    static void start(const Private &origin, Begin begin)
    {
        std::unique_lock lock(*origin.family);
        if (Change *const change = here.change; change && change->m_called == origin.q) {
            change->m_called = nullptr;
            begin(*change);
            return;
        }
        Change change;
        begin(change);
        lock.unlock();
        change.run();
    }

    /// Tells the change that is just passing through the thread of a new progress.
    static void note(const Private &reporter, int before, int now)
    {
        if (here.change) {
            here.state ^= quint64(qHashMulti(0, &reporter, before) ^ qHashMulti(0, &reporter, now));
        }
    }

    void setProgress(Private *reporter, int value);
    void abort(Private *reporter);
    void setChildren(Private *pool, int value) { push(CallChildren, Progress, pool, value); }
    void abortChildren(Private *pool);
    void follow(Private *pool);

private:
    enum Task : quint8 {
        CallChildren, ///< In order.
        CallPeers,    ///< Those that are not there yet.
        CallPool,     ///< If there is news.
        Announce,     ///< If there still is.
        CallItself,
    };
    /// Has the lock of its reporter.
    struct Step
    {
        /// Whether what it has to tell is new.
        [[nodiscard]] bool isNews() const
        {
            return before != (kind == Abort ? 1 : reporter->progress());
        }

        Task task;
        Kind kind;
        int value;  ///< To pass on.
        int before; ///< The progress that was; of an abort whether it was, 0 or 1.
        std::shared_ptr<Private> reporter;
        std::size_t index = 0;               ///< How many children are through.
        std::size_t asked = 0;               ///< The call that it is the first step of, or 0.
        std::vector<IProgress *> peers = {}; ///< Whom it has to call.
    };
    struct Here
    {
        Change *change; ///< What the thread is passing on.
        quint64 state;  ///< Changes with each progress and is back when they are.
    };

    Change()
        : m_outer(std::exchange(here.change, this))
    {
    }
    ~Change() { here.change = m_outer; }

    void push(Task task, Kind kind, Private *reporter, int value = 0, int before = 1);
    void pop();
    void run();
    void work(Step *step);
    void announce();
    static void beginPeers(Step *step);
    static IProgress *nextPeer(Step *step);
    static Private *nextChild(Step *step);
    void call(Kind kind, IProgress *reporter, int value);
    void ask(int value, IProgress *peer);
    void cut();
    [[nodiscard]] bool isApart() const;
    void setAll();

    static thread_local constinit Here here;

    Change *const m_outer;
    const IProgress *m_called = nullptr;
    QVarLengthArray<Step, 4> m_steps;
    QSet<std::size_t> m_asked; ///< The calls of peers that are under way.
    std::vector<std::array<std::shared_ptr<Private>, 2>> m_refusals; ///< 
    std::size_t m_calls = 0;
    bool m_isStuck = false;
    bool m_isCut = false;        ///< It would not end; so it is not passed on to peers any more,
    bool m_isSettingAll = false; ///< but all are set.
};

thread_local constinit IProgress::Private::Change::Here IProgress::Private::Change::here{};

void IProgress::Private::Change::push(
    Task task, Kind kind, Private *reporter, int value, int before)
{
    reporter->family->hold();
    m_steps.append(Step{task, kind, value, before, reporter->q->d});
    if (task == CallPeers && !m_isCut)
        beginPeers(&m_steps.last());
}

void IProgress::Private::Change::pop()
{
    const Step &step = m_steps.last();
    if (step.asked && m_steps.size() > 1) {
        m_asked.remove(step.asked);
        const Step &asker = *(&step - 1);
        m_isStuck = m_isStuck || asker.reporter->isStuck() || step.reporter->isStuck();
        if (asker.reporter->progress() != step.reporter->progress())
            m_refusals.push_back({asker.reporter, step.reporter});
    }
    step.reporter->family->unlock();
    m_steps.removeLast();
}

void IProgress::Private::Change::setProgress(Private *reporter, int value)
{
    const int before = reporter->store(std::clamp(value, 0, 100));
    push(CallPeers, Progress, reporter, value, before);
}

void IProgress::Private::Change::abort(Private *reporter)
{
    const bool wasAborted = reporter->storeAbort();
    push(CallPeers, Abort, reporter, 0, wasAborted);
}

void IProgress::Private::Change::abortChildren(Private *pool)
{
    push(Announce, Abort, pool, 0, 0);
    push(CallChildren, Abort, pool);
}

void IProgress::Private::Change::follow(Private *pool)
{
    const int mean = pool->family->mean();
    if (mean == pool->progress())
        return;
    pool->store(mean);
    push(CallPeers, Progress, pool, mean, -1);
}

void IProgress::Private::Change::run()
{
    while (!m_steps.isEmpty()) {
        if (!m_steps.last().reporter->q)
            pop();
        else
            work(&m_steps.last());
    }
}

void IProgress::Private::Change::work(Step *step)
{
    switch (step->task) {
    case CallChildren:
        if (Private *const child = nextChild(step)) {
            step->kind == Progress ? setProgress(child, step->value) : abort(child);
        } else if (step->kind == Progress) {
            step->task = Announce;
            step->before = step->reporter->progress();
        } else {
            step->reporter->storeAbort();
            step->task = CallPeers;
            beginPeers(step);
        }
        break;
    case CallPeers:
        if (IProgress *const peer = nextPeer(step); !peer)
            step->task = CallPool;
        else if (step->kind == Progress)
            ask(step->value, peer);
        else
            call(Abort, peer, 0);
        break;
    case CallPool:
        step->task = Announce;
        if (Private *const pool = step->reporter->pool(); !pool || !step->isNews())
            break;
        else if (step->kind == Progress)
            follow(pool);
        else if (Step *const below = step - 1;
                 m_steps.size() > 1 && below->task == CallChildren && below->reporter.get() == pool)
            std::swap(*below, *step); // The others before it is announced.
        else
            push(CallChildren, Abort, pool);
        break;
    case Announce:
        if (m_steps.size() == 1 && !m_isSettingAll && (m_isCut || isApart()))
            setAll();
        else
            announce();
        break;
    case CallItself:
        const std::shared_ptr<Private> reporter = step->reporter;
        const int value = step->value;
        pop();
        call(Progress, reporter->q, value);
        break;
    }
}

/// Ends the last step. An origin that is no pool does not keep the lock.
void IProgress::Private::Change::announce()
{
    const Step &step = m_steps.last();
    const std::shared_ptr<Private> reporter = step.reporter;
    const Kind kind = step.kind;
    const bool isNews = step.isNews();
    const int progress = reporter->progress();
    const bool isLocked = m_steps.size() > 1 || reporter->isPool();
    if (!isLocked)
        pop();
    if (isNews)
        reporter->announce(kind, progress);
    if (isLocked)
        pop();
}

void IProgress::Private::Change::beginPeers(Step *step)
{
    const QSet<IProgress *> &peers = step->reporter->peers.at(step->kind);
    step->peers.assign(peers.cbegin(), peers.cend());
}

/// Slots may have unlinked or deleted some.
IProgress *IProgress::Private::Change::nextPeer(Step *step)
{
    const Private &from = *step->reporter;
    while (!step->peers.empty()) {
        IProgress *const peer = step->peers.back();
        step->peers.pop_back();
        if (from.peers.at(step->kind).contains(peer)
            && (step->kind == Abort ? !peer->isAborted() : peer->progress() != from.q->progress()))
            return peer;
    }
    return nullptr;
}

IProgress::Private *IProgress::Private::Change::nextChild(Step *step)
{
    const Family &family = *step->reporter->family;
    if (step->kind == Abort && family.running == 0)
        return nullptr;
    while (step->index < family.children.size()) {
        Private *const child = family.children[step->index++];
        if (child && (step->kind == Progress || !child->isAborted()))
            return child;
    }
    return nullptr;
}

void IProgress::Private::Change::call(Kind kind, IProgress *reporter, int value)
{
    m_called = reporter;
    if (kind == Progress)
        reporter->setProgress(value);
    else
        reporter->abort();
    m_called = nullptr;
}

/// Sets a peer, unless that is under way already and all is as it was then: it would be asked
/// without end. Else that ends, as there are no more than so many states; but those of a large
/// group are many.
void IProgress::Private::Change::ask(int value, IProgress *peer)
{
    constexpr std::size_t patience = 1000;
    const std::size_t asked = qHashMulti(1, peer, value, here.state);
    const std::size_t size = m_steps.last().reporter->family->groupSize();
    if (m_asked.contains(asked) || ++m_calls > patience * (size + 10)) {
        cut();
        return;
    }
    const qsizetype first = m_steps.size();
    call(Progress, peer, value);
    if (m_steps.size() > first) {
        m_steps[first].asked = asked;
        m_asked.insert(asked);
    }
}

/// Passes nothing on any more.
void IProgress::Private::Change::cut()
{
    m_isCut = true;
    for (Step &step : m_steps) {
        if (step.kind == Progress) {
            step.peers.clear();
            step.index = step.reporter->family->children.size();
        }
    }
}

/// Whether peers differ. With one that cannot follow plain calls may end like that themselves, and
/// what they give stays.
bool IProgress::Private::Change::isApart() const
{
    return !m_isStuck
        && std::any_of(m_refusals.cbegin(), m_refusals.cend(), [](const auto &pair) {
               const auto &[asker, asked] = pair;
               return asker->peers[Progress].contains(asked->q)
                   && asker->progress() != asked->progress();
           });
}

/// Sets all that it could reach from the origin.
void IProgress::Private::Change::setAll()
{
    m_isSettingAll = true;
    const int value = m_steps.last().value;
    std::vector<Private *> reached;
    QSet<Private *> seen;
    const auto reach = [&reached, &seen](Private *reporter) {
        if (reporter && !seen.contains(reporter)) {
            seen.insert(reporter);
            reached.push_back(reporter);
        }
    };
    reach(m_steps.last().reporter.get());
    for (std::size_t i = 0; i < reached.size(); ++i) {
        Private *const reporter = reached[i];
        for (const IProgress *const peer : std::as_const(reporter->peers[Progress]))
            reach(peer->d.get());
        if (reporter->isPool())
            std::for_each(
                reporter->family->children.cbegin(), reporter->family->children.cend(), reach);
        else if (Private *const pool = reporter->pool(); pool && !pool->peers[Progress].isEmpty())
            reach(pool);
    }
    for (Private *const reporter : reached)
        push(CallItself, Progress, reporter, value);
}

/// Sets the bits of \a mask, unless it has one of \a unless. What they all were.
quint32 IProgress::Private::set(quint32 mask, quint32 bits, quint32 unless)
{
    quint32 before = m_state;
    while (!(before & unless) && !m_state.compare_exchange_weak(before, (before & ~mask) | bits)) {
    }
    return before;
}

/// Under the lock, what was before.
/// @{
int IProgress::Private::store(int value)
{
    const auto before = int(set(ProgressBits, quint32(value)) & ProgressBits);
    if (before != value) {
        if (m_isChild)
            family->sum += value - before;
        Change::note(*this, before, value);
    }
    return before;
}

bool IProgress::Private::storeAbort()
{
    const bool wasAborted = set(AbortedBit, AbortedBit) & AbortedBit;
    if (m_isChild && !wasAborted)
        --family->running;
    return wasAborted;
}
/// @}

void IProgress::Private::setProgress(int value)
{
    const auto now = quint32(std::clamp(value, 0, 100));
    const quint32 before = set(ProgressBits, now, SharedBit);
    if (before & SharedBit)
        Change::start(*this, [=, this](Change &change) { change.setProgress(this, value); });
    else if ((before & ProgressBits) != now)
        announce(Progress, int(now));
}

void IProgress::Private::abort()
{
    const quint32 before = set(AbortedBit, AbortedBit, SharedBit);
    if (before & SharedBit)
        Change::start(*this, [this](Change &change) { change.abort(this); });
    else if (!(before & AbortedBit))
        announce(Abort, 0);
}

void IProgress::Private::clearAbort()
{
    const std::scoped_lock lock(*family);
    if ((set(AbortedBit, 0) & AbortedBit) && m_isChild)
        ++family->running;
}

void IProgress::Private::makePool()
{
    family->pool = this;
    updateShared();
}

void IProgress::Private::adopt(Private *child)
{
    child->family = family;
    child->m_isChild = true;
    child->m_index = family->children.size();
    child->updateShared();
    family->children.push_back(child);
    ++family->living;
    ++family->running;
}

void IProgress::Private::setChildren(int value)
{
    Change::start(*this, [=, this](Change &change) { change.setChildren(this, value); });
}

void IProgress::Private::abortChildren()
{
    Change::start(*this, [this](Change &change) { change.abortChildren(this); });
}

void IProgress::Private::followChildren()
{
    if (!family->children.empty() && family->mean() != progress())
        Change::start(*this, [this](Change &change) { change.follow(this); });
}

void IProgress::Private::updateShared()
{
    const bool isShared =
        isPool() || m_isChild || !peers[Progress].isEmpty() || !peers[Abort].isEmpty();
    set(SharedBit, isShared ? SharedBit : NoBits);
}

void IProgress::Private::link(Private *peer, Kind kind)
{
    if (peers.at(kind).contains(peer->q))
        return;
    peers.at(kind).insert(peer->q);
    peer->peers.at(kind).insert(q);
    updateShared();
    peer->updateShared();
    Family::link(family.get(), peer->family.get());
}

void IProgress::Private::unlink(Private *peer, Kind kind)
{
    if (!peers.at(kind).remove(peer->q))
        return;
    peer->peers.at(kind).remove(q);
    updateShared();
    peer->updateShared();
    Family::unlink(family.get(), peer->family.get());
}

void IProgress::Private::unlinkAll()
{
    const std::scoped_lock lock(*family);
    for (const Kind kind : {Progress, Abort}) {
        while (!peers.at(kind).isEmpty()) {
            Private *const peer = (*peers.at(kind).cbegin())->d.get();
            const std::scoped_lock both(*peer->family);
            unlink(peer, kind);
        }
    }
    if (isPool())
        family->pool = nullptr;
    if (std::exchange(m_isChild, false)) {
        family->children[m_index] = nullptr;
        family->sum -= progress();
        --family->living;
        family->running -= isAborted() ? 0 : 1;
    }
}

IProgress::IProgress()
    : IProgress(std::make_shared<Private>())
{
}

IProgress::IProgress(std::shared_ptr<Private> state)
    : d(std::move(state))
{
    d->q = this;
}

IProgress::~IProgress()
{
    d->unlinkAll();
    d->q = nullptr;
}

void IProgress::reset()
{
    const std::shared_ptr<Private> state = d; // A slot may delete the reporter.
    setProgress(0);
    state->clearAbort();
}

void IProgress::abort()
{
    d->abort();
}

bool IProgress::isAborted() const
{
    return d->isAborted();
}

int IProgress::progress() const
{
    return d->progress();
}

void IProgress::setProgress(int value)
{
    d->setProgress(value);
}

bool IProgress::link(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b || a == b)
        return false;
    const std::scoped_lock both(*a->d->family, *b->d->family);
    if (peers & ProgressPeers)
        a->d->link(b->d.get(), Private::Progress);
    if (peers & AbortPeers)
        a->d->link(b->d.get(), Private::Abort);
    return true;
}

void IProgress::unlink(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b)
        return;
    const std::scoped_lock lock(*a->d->family);
    const auto isPeer = [a, b](Private::Kind kind) { return a->d->peers.at(kind).contains(b); };
    if (!isPeer(Private::Progress) && !isPeer(Private::Abort))
        return;
    // Only now is b known to be in the same group, so that this does not wait.
    const std::scoped_lock both(*b->d->family);
    if (peers & ProgressPeers)
        a->d->unlink(b->d.get(), Private::Progress);
    if (peers & AbortPeers)
        a->d->unlink(b->d.get(), Private::Abort);
}

void IProgress::unlinkAll()
{
    d->unlinkAll();
}

QSet<IProgress *> IProgress::progressPeers() const
{
    const std::scoped_lock lock(*d->family);
    return d->peers[Private::Progress];
}

QSet<IProgress *> IProgress::abortPeers() const
{
    const std::scoped_lock lock(*d->family);
    return d->peers[Private::Abort];
}

} // namespace Quorvex::Interfaces
