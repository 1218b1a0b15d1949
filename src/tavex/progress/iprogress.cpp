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
class Q_DECL_HIDDEN IProgress::Private::Change
{
public:
    Q_DISABLE_COPY_MOVE(Change)

    /// Begins a change of \a origin, or what it has to do in the change that is just calling it.
    template <typename Begin>
    static void start(const Private &origin, std::unique_lock<Family> lock, Begin begin)
    {
        if (Change *const change = calling(origin)) {
            begin(*change);
            return;
        }
        Change change;
        begin(change);
        lock.unlock();
        change.run();
    }

    /// The change that is just calling \a reporter, once.
    static Change *calling(const Private &reporter)
    {
        Change *const change = here.change;
        if (!change || change->m_called != reporter.q)
            return nullptr;
        change->m_called = nullptr;
        return change;
    }

    /// Tells what the thread is passing on that a progress has changed.
    static void note(const Private &reporter, int before, int now)
    {
        if (here.change)
            here.state ^= qHashMulti(0, &reporter, before) ^ qHashMulti(0, &reporter, now);
    }

    void pass(Private *reporter, Kind kind, int value, int before)
    {
        push(CallPeers, reporter, kind, value, before);
    }
    void setChildren(Private *pool, int value) { push(CallChildren, pool, Progress, value, 0); }
    void abortChildren(Private *pool)
    {
        push(Announce, pool, Abort, 0, 0);
        push(CallChildren, pool, Abort, 0, 1);
    }
    void follow(Private *pool)
    {
        const int mean = pool->family->mean();
        if (mean == pool->progress())
            return;
        pool->store(mean);
        push(CallPeers, pool, Progress, mean, -1);
    }

private:
    enum Task : quint8 {
        CallChildren, ///< In order.
        CallPeers,    ///< Those that are not there yet.
        CallPool,     ///< If there is news for it.
        Announce,     ///< If there still is news.
        CallItself,
    };
    /// Has the lock of its reporter.
    struct Step
    {
        Task task;
        Kind kind;
        int value;  ///< What it passes on.
        int before; ///< The progress that was; of an abort 1 if it was, else 0.
        std::shared_ptr<Private> reporter;
        std::size_t children = 0;            ///< How many it has called.
        std::vector<IProgress *> peers = {}; ///< Whom it still has to call.
        std::size_t asked = 0;               ///< The call that it is the first step of, or 0.

        [[nodiscard]] bool isNews() const
        {
            return before != (kind == Abort ? 1 : reporter->progress());
        }
        void beginPeers()
        {
            const QSet<IProgress *> &all = reporter->peers.at(kind);
            peers.assign(all.cbegin(), all.cend());
        }
        IProgress *nextPeer();
        Private *nextChild();
    };

    Change()
        : m_outer(std::exchange(here.change, this))
    {
    }
    ~Change() { here.change = m_outer; }

    void push(Task task, Private *reporter, Kind kind, int value, int before);
    void pop();
    void run();
    void work(Step *step);
    void announce();
    void call(IProgress *reporter, Kind kind, int value);
    void ask(IProgress *peer, int value);
    [[nodiscard]] bool isApart() const;
    void setAll();

    /// What the thread is doing.
    struct Here
    {
        Change *change;
        std::size_t state; ///< Changes with each progress and is back when they are.
    };
    static thread_local constinit Here here;

    Change *const m_outer;
    const IProgress *m_called = nullptr;
    QVarLengthArray<Step, 4> m_steps;
    QSet<std::size_t> m_asked; ///< The calls of peers that are under way.
    std::size_t m_calls = 0;
    std::vector<std::array<std::shared_ptr<Private>, 2>> m_refusals; ///< Calls that led elsewhere.
    bool m_isStuck = false;                                          ///< Whether one of them was.
    bool m_isCut = false; ///< Whether it would not end; it is not passed on to peers any more.
    bool m_isSettingAll = false;
};

thread_local constinit IProgress::Private::Change::Here IProgress::Private::Change::here{};

/// Slots may have unlinked or deleted some.
IProgress *IProgress::Private::Change::Step::nextPeer()
{
    while (!peers.empty()) {
        IProgress *const peer = peers.back();
        peers.pop_back();
        if (reporter->peers.at(kind).contains(peer)
            && (kind == Abort ? !peer->isAborted() : peer->progress() != reporter->q->progress()))
            return peer;
    }
    return nullptr;
}

IProgress::Private *IProgress::Private::Change::Step::nextChild()
{
    const Family &siblings = *reporter->family;
    while (children < siblings.children.size() && (kind == Progress || siblings.running > 0)) {
        Private *const child = siblings.children[children++];
        if (child && (kind == Progress || !child->isAborted()))
            return child;
    }
    return nullptr;
}

void IProgress::Private::Change::push(
    Task task, Private *reporter, Kind kind, int value, int before)
{
    reporter->family->hold();
    m_steps.append(Step{task, kind, value, before, reporter->q->d});
    if (task == CallPeers && !m_isCut)
        m_steps.last().beginPeers();
}

void IProgress::Private::Change::pop()
{
    const Step &step = m_steps.last();
    if (step.asked && m_steps.size() > 1) {
        const Private &asker = *(&step - 1)->reporter;
        m_asked.remove(step.asked);
        m_isStuck = m_isStuck || asker.isStuck() || step.reporter->isStuck();
        if (asker.progress() != step.reporter->progress())
            m_refusals.push_back({(&step - 1)->reporter, step.reporter});
    }
    step.reporter->family->unlock();
    m_steps.removeLast();
}

void IProgress::Private::Change::run()
{
    while (!m_steps.isEmpty()) {
        if (m_steps.last().reporter->q)
            work(&m_steps.last());
        else
            pop();
    }
}

void IProgress::Private::Change::work(Step *step)
{
    Private *const pool = step->reporter->pool();
    switch (step->task) {
    case CallChildren:
        if (Private *const child = step->nextChild(); child && step->kind == Progress) {
            const int before = child->store(std::clamp(step->value, 0, 100));
            pass(child, Progress, step->value, before);
        } else if (child) {
            pass(child, Abort, 0, child->storeAbort());
        } else if (step->kind == Progress) {
            step->task = Announce;
            step->before = step->reporter->progress();
        } else {
            step->task = CallPeers;
            step->reporter->storeAbort();
            step->beginPeers();
        }
        break;
    case CallPeers:
        if (IProgress *const peer = step->nextPeer(); !peer)
            step->task = CallPool;
        else if (step->kind == Progress)
            ask(peer, step->value);
        else
            call(peer, Abort, 0);
        break;
    case CallPool:
        step->task = Announce;
        if (!pool || !step->isNews())
            break;
        if (step->kind == Progress)
            follow(pool);
        else if (Step *const below = step - 1; m_steps.size() > 1 && below->task == CallChildren
                 && below->kind == Abort && below->reporter.get() == pool)
            std::swap(*below, *step); // The pool aborts the others before this is announced.
        else
            push(CallChildren, pool, Abort, 0, 1);
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
        call(reporter->q, Progress, value);
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

void IProgress::Private::Change::call(IProgress *reporter, Kind kind, int value)
{
    m_called = reporter;
    kind == Progress ? reporter->setProgress(value) : reporter->abort();
    m_called = nullptr;
}

/// Sets a peer, unless that is under way already and all is as it was then: it would be asked
/// without end. Else that ends, as there are no more than so many states; but those of a large
/// group are many.
void IProgress::Private::Change::ask(IProgress *peer, int value)
{
    constexpr std::size_t patience = 1000;
    const std::size_t asked = qHashMulti(1, peer, value, here.state);
    const std::size_t size = m_steps.last().reporter->family->groupSize();
    if (m_asked.contains(asked) || ++m_calls > patience * (size + 10)) {
        m_isCut = true;
        for (Step &step : m_steps) {
            if (step.kind == Progress) {
                step.peers.clear();
                step.children = step.reporter->family->children.size();
            }
        }
        return;
    }
    const qsizetype first = m_steps.size();
    call(peer, Progress, value);
    if (m_steps.size() > first) {
        m_steps[first].asked = asked;
        m_asked.insert(asked);
    }
}

/// Whether peers differ that could agree. With one that is stuck, plain calls may end like that
/// themselves, and what they give stays.
bool IProgress::Private::Change::isApart() const
{
    return !m_isStuck && std::any_of(m_refusals.cbegin(), m_refusals.cend(), [](const auto &pair) {
        const auto &[a, b] = pair;
        return a->peers[Progress].contains(b->q) && a->progress() != b->progress();
    });
}

/// Sets all that the origin's links reach.
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
        Private *const from = reached[i];
        for (const IProgress *const peer : std::as_const(from->peers[Progress]))
            reach(peer->d.get());
        const std::vector<Private *> &children = from->family->children;
        if (from->isPool())
            std::for_each(children.cbegin(), children.cend(), reach);
        else if (Private *const pool = from->pool(); pool && !pool->peers[Progress].isEmpty())
            reach(pool);
    }
    for (Private *const reporter : reached)
        push(CallItself, reporter, Progress, value, 0);
}

/// Changes the bits of \a mask, unless it has one of \a unless. What they all were.
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
    if (before == value)
        return before;
    if (m_isChild)
        family->sum += value - before;
    Change::note(*this, before, value);
    return before;
}

bool IProgress::Private::storeAbort()
{
    const bool wasAborted = set(AbortedBit, AbortedBit) & AbortedBit;
    family->running -= m_isChild && !wasAborted ? 1 : 0;
    return wasAborted;
}
/// @}

void IProgress::Private::setProgress(int value)
{
    const int now = std::clamp(value, 0, 100);
    const quint32 state = set(ProgressBits, quint32(now), SharedBit);
    auto before = int(state & ProgressBits);
    if (state & SharedBit) {
        std::unique_lock lock(*family);
        before = store(now);
        const Private *const parent = pool();
        if (!peers[Progress].isEmpty() || (parent && parent->progress() != family->mean())) {
            Change::start(*this, std::move(lock),
                [=, this](Change &change) { change.pass(this, Progress, value, before); });
            return;
        }
        Change::calling(*this);
    }
    if (before != now)
        announce(Progress, now);
}

void IProgress::Private::abort()
{
    const quint32 state = set(AbortedBit, AbortedBit, SharedBit);
    if (state & SharedBit) {
        Change::start(*this, std::unique_lock(*family),
            [this](Change &change) { change.pass(this, Abort, 0, storeAbort()); });
    } else if (!(state & AbortedBit)) {
        announce(Abort, 0);
    }
}

void IProgress::Private::clearAbort()
{
    const std::scoped_lock lock(*family);
    family->running += (set(AbortedBit, 0) & AbortedBit) && m_isChild ? 1 : 0;
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
    Change::start(*this, std::unique_lock(*family),
        [=, this](Change &change) { change.setChildren(this, value); });
}

void IProgress::Private::abortChildren()
{
    const std::shared_ptr<Family> keep = family; // A slot may delete the pool.
    std::unique_lock lock(*keep);
    if (family->running > 0 || !peers[Abort].isEmpty()) {
        Change::start(
            *this, std::move(lock), [this](Change &change) { change.abortChildren(this); });
        return;
    }
    // As for each child's signal, when all are aborted.
    Change::calling(*this);
    storeAbort();
    announce(Abort, 0);
}

void IProgress::Private::followChildren()
{
    if (family->children.empty() || family->mean() == progress())
        return;
    Change::start(
        *this, std::unique_lock(*family), [this](Change &change) { change.follow(this); });
}

void IProgress::Private::updateShared()
{
    const bool isAlone = peers[Progress].isEmpty() && peers[Abort].isEmpty();
    set(SharedBit, isAlone && !m_isChild && !isPool() ? 0 : SharedBit);
}

void IProgress::Private::link(Private *peer, Peers kinds)
{
    for (const Kind kind : {Progress, Abort}) {
        if (!(kinds & (1 << kind)) || peers.at(kind).contains(peer->q))
            continue;
        peers.at(kind).insert(peer->q);
        peer->peers.at(kind).insert(q);
        Family::link(family.get(), peer->family.get());
    }
    updateShared();
    peer->updateShared();
}

void IProgress::Private::unlink(Private *peer, Peers kinds)
{
    const std::scoped_lock lock(*peer->family);
    for (const Kind kind : {Progress, Abort}) {
        if (!(kinds & (1 << kind)) || !peers.at(kind).remove(peer->q))
            continue;
        peer->peers.at(kind).remove(q);
        Family::unlink(family.get(), peer->family.get());
    }
    updateShared();
    peer->updateShared();
}

void IProgress::Private::unlinkAll()
{
    const std::scoped_lock lock(*family);
    for (const QSet<IProgress *> &links : peers) {
        while (!links.isEmpty())
            unlink((*links.cbegin())->d.get(), AllPeers);
    }
    if (isPool())
        family->pool = nullptr;
    if (std::exchange(m_isChild, false)) {
        family->children[m_index] = nullptr;
        --family->living;
        family->running -= isAborted() ? 0 : 1;
        family->sum -= progress();
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
    a->d->link(b->d.get(), peers);
    return true;
}

void IProgress::unlink(IProgress *a, IProgress *b, Peers peers)
{
    if (!a || !b)
        return;
    const std::scoped_lock lock(*a->d->family);
    // Only if they are linked is b known to be in the same group, so that this does not wait.
    if (a->d->peers[Private::Progress].contains(b) || a->d->peers[Private::Abort].contains(b))
        a->d->unlink(b->d.get(), peers);
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
