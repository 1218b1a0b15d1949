#include <tavex/metadata/smetadatable.h>

#include <tavex/core/startup_p.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Quorvex {

using Interfaces::ICloneable;
using Interfaces::IMetadata;

namespace {

/// Null if the clone is no metadata.
std::unique_ptr<IMetadata> cloneOf(const IMetadata &value)
{
    std::unique_ptr<ICloneable> clone(value.clone());
    std::unique_ptr<IMetadata> copy(dynamic_cast<IMetadata *>(clone.get()));
    if (copy)
        static_cast<void>(clone.release());
    return copy;
}

} // namespace

/// What the container holds.
class Q_DECL_HIDDEN SMetadatable::Private
{
public:
    /// The value under \a id, or null.
    [[nodiscard]] IMetadata *find(quint64 id) const
    {
        const auto entry = std::ranges::lower_bound(m_entries, id, {}, &Entry::id);
        return isAt(entry, id) ? entry->value.get() : nullptr;
    }

    [[nodiscard]] QList<quint64> ids() const
    {
        QList<quint64> list(size());
        std::ranges::transform(m_entries, list.begin(), &Entry::id);
        return list;
    }
    [[nodiscard]] QList<IMetadata *> values() const
    {
        QList<IMetadata *> list(size());
        std::ranges::transform(
            m_entries, list.begin(), [](const Entry &entry) { return entry.value.get(); });
        return list;
    }

    /// Whether each value here equals the one that \a other has.
    [[nodiscard]] bool isPartOf(const SMetadatable &other) const
    {
        return std::ranges::all_of(m_entries, [&other](const Entry &entry) {
            return entry.value->equalsTo(other.metadata(entry.id));
        });
    }

    [[nodiscard]] qsizetype size() const { return static_cast<qsizetype>(m_entries.size()); }

    /// Keeps \a value, which equals the stored one.
    void keepSpare(quint64 id, IMetadata *value) { m_spares.try_emplace({id, value}, value); }

    /// Puts \a value, which is not the stored one, under \a id and deletes what it replaces, with
    /// what equalled that.
    void store(quint64 id, IMetadata *value)
    {
        if (const auto own = m_spares.extract({id, value}))
            static_cast<void>(own.mapped().release());
        m_entries.reserve(8); // The first time; few objects have more.
        const auto entry = place(id);
        if (!isAt(entry, id)) {
            m_entries.insert(entry, Entry{id, std::unique_ptr<IMetadata>(value)});
            return;
        }
        // A destructor may look at the container, which then has to be whole.
        const auto old = std::exchange(entry->value, std::unique_ptr<IMetadata>(value));
        Spares spares;
        for (auto spare = m_spares.lower_bound({id, nullptr});
             spare != m_spares.end() && spare->first.first == id;)
            spares.insert(m_spares.extract(spare++));
    }

    void remove(quint64 id)
    {
        const auto entry = place(id);
        if (!isAt(entry, id))
            return;
        const Entry removed = std::move(*entry);
        m_entries.erase(entry);
    }

private:
    struct Entry
    {
        quint64 id;
        std::unique_ptr<IMetadata> value;
    };
    using Entries = std::vector<Entry>;
    using Spares = std::map<std::pair<quint64, const IMetadata *>, std::unique_ptr<IMetadata>>;

    /// The entry of \a id, or the place where it belongs.
    [[nodiscard]] Entries::iterator place(quint64 id)
    {
        return std::ranges::lower_bound(m_entries, id, {}, &Entry::id);
    }
    [[nodiscard]] bool isAt(Entries::const_iterator place, quint64 id) const
    {
        return place != m_entries.end() && place->id == id;
    }

    /// Sorted by id. There are few classes, and of this few bytes.
    Entries m_entries;
    /// Handed over while they equalled the stored value, by its id and their addresses.
    Spares m_spares;
};

SMetadatable::SMetadatable() noexcept = default;

// While this is constructed, no derived class can narrow what is valid or hear of a change.
SMetadatable::SMetadatable(const SMetadatable &other)
    : IMetadatable(other)
{
    copyAll(&other);
}

SMetadatable::SMetadatable(IMetadatable *other)
{
    copyAll(other);
}

SMetadatable &SMetadatable::operator=(const SMetadatable &other)
{
    copyAll(&other);
    return *this;
}

SMetadatable &SMetadatable::operator=(IMetadatable *other)
{
    copyAll(other);
    return *this;
}

SMetadatable::SMetadatable(SMetadatable &&other) noexcept = default;

SMetadatable &SMetadatable::operator=(SMetadatable &&other) noexcept
{
    if (this == &other)
        return *this;
    clearMetadata();
    d = std::move(other.d);
    for (const quint64 id : d ? d->ids() : QList<quint64>()) {
        if (isMetadataValid(metadata(id)))
            onMetadataChanged(id);
        else
            removeMetadata(id);
    }
    return *this;
}

void SMetadatable::copyAll(const IMetadatable *other)
{
    if (this == other)
        return;
    clearMetadata();
    for (IMetadata *const value : other ? other->metadataList() : QList<IMetadata *>())
        setMetadata(value, false);
}

SMetadatable::~SMetadatable()
{
    SMetadatable::clearMetadata();
}

bool SMetadatable::operator==(const SMetadatable &other) const
{
    return this == &other
        || (metadataCount() == other.metadataCount() && (!d || d->isPartOf(other)));
}

void SMetadatable::clearMetadata()
{
    // A destructor may look at the container, which then has to be whole.
    const std::unique_ptr<Private> old = std::move(d);
}

qsizetype SMetadatable::metadataCount() const
{
    return d ? d->size() : 0;
}

QList<IMetadata *> SMetadatable::metadataList() const
{
    return d ? d->values() : QList<IMetadata *>();
}

IMetadata *SMetadatable::metadata(const quint64 &id) const
{
    return d ? d->find(id) : nullptr;
}

void SMetadatable::copyMetadata(const QList<IMetadata *> &list, MetadataFlags mask)
{
    for (IMetadata *const value : list) {
        if (value && !testAnyFlag(value->flags(), mask) && isMetadataValid(value))
            setMetadata(value, false);
    }
}

bool SMetadatable::setMetadata(IMetadata *value, bool takeOwnership)
{
    if (!value || !isMetadataValid(value))
        return false;
    const quint64 id = value->id();
    const IMetadata *const old = d ? d->find(id) : nullptr;
    if (old && value->equalsTo(old)) {
        if (takeOwnership && value != old)
            d->keepSpare(id, value);
        return true;
    }
    // A stored value that does not even equal itself, such as NaN, stays as well.
    if (value != old) {
        if (!takeOwnership) {
            value = cloneOf(*value).release();
            if (!value)
                return false;
        }
        if (!d)
            d = std::make_unique<Private>();
        d->store(id, value);
    }
    onMetadataChanged(id);
    return true;
}

void SMetadatable::removeMetadata(const quint64 &id)
{
    if (d)
        d->remove(id);
}

bool SMetadatable::hasMetadata(const quint64 &id) const
{
    return d && d->find(id);
}

void SMetadatable::onMetadataChanged(const quint64 &) { }

bool SMetadatable::isMetadataValid(const IMetadata *) const
{
    return true;
}

bool SMetadatable::isOnlyClass(const IMetadata &value)
{
    struct Classes
    {
        std::mutex mutex;
        std::map<quint64, QByteArray> names;
    };
    static constinit Lasting<Classes> known;

    const quint64 id = value.id();
    const QByteArray name = typeid(value).name();
    Classes &classes = known.get();
    const std::scoped_lock lock(classes.mutex);
    return classes.names.try_emplace(id, name).first->second == name;
}

} // namespace Quorvex
