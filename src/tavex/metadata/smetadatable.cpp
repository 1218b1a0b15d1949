#include <tavex/metadata/smetadatable.h>

#include <algorithm>
#include <utility>

namespace Quorvex {

using Interfaces::ICloneable;

namespace {

/// Null if the clone is no metadata.
std::unique_ptr<Interfaces::IMetadata> cloneOf(const Interfaces::IMetadata &value)
{
    std::unique_ptr<ICloneable> clone(value.clone());
    std::unique_ptr<Interfaces::IMetadata> copy(dynamic_cast<Interfaces::IMetadata *>(clone.get()));
    if (copy)
        static_cast<void>(clone.release());
    return copy;
}

} // namespace

SMetadatable::SMetadatable() = default;

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

void SMetadatable::copyAll(const IMetadatable *other)
{
    if (this == other)
        return;
    clearMetadata();
    const QList<IMetadata *> values = other ? other->metadataList() : QList<IMetadata *>();
    m_entries.reserve(static_cast<std::size_t>(values.size()));
    for (IMetadata *const value : values)
        setMetadata(value, false);
}

SMetadatable::~SMetadatable() = default;

bool SMetadatable::operator==(const SMetadatable &other) const
{
    if (this == &other)
        return true;
    return metadataCount() == other.metadataCount()
        && std::ranges::all_of(m_entries, [&other](const Entry &entry) {
               return entry.value->equalsTo(other.metadata(entry.id));
           });
}

void SMetadatable::clearMetadata()
{
    // A destructor may look at the container, which then has to be whole.
    const Entries entries = std::exchange(m_entries, {});
    const Spares spares = std::exchange(m_spares, {});
}

qsizetype SMetadatable::metadataCount() const
{
    return static_cast<qsizetype>(m_entries.size());
}

QList<Interfaces::IMetadata *> SMetadatable::metadataList() const
{
    QList<IMetadata *> list;
    list.reserve(metadataCount());
    for (const Entry &entry : m_entries)
        list.append(entry.value.get());
    return list;
}

Interfaces::IMetadata *SMetadatable::metadata(const quint64 &id) const
{
    const auto entry = place(id);
    return isAt(entry, id) ? entry->value.get() : nullptr;
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
    const auto entry = place(id);
    const IMetadata *const old = isAt(entry, id) ? entry->value.get() : nullptr;
    if (old && value->equalsTo(old)) {
        if (takeOwnership && value != old)
            m_spares.try_emplace({id, value}, value);
        return true;
    }
    // A stored value that does not even equal itself, such as NaN, stays as well.
    if (value != old) {
        if (!takeOwnership) {
            value = cloneOf(*value).release();
            if (!value)
                return false;
        }
        store(entry, id, value);
    }
    onMetadataChanged(id);
    return true;
}

void SMetadatable::removeMetadata(const quint64 &id)
{
    const auto entry = place(id);
    if (!isAt(entry, id))
        return;
    const Entry removed = std::move(*entry);
    m_entries.erase(entry);
}

bool SMetadatable::hasMetadata(const quint64 &id) const
{
    return isAt(place(id), id);
}

void SMetadatable::onMetadataChanged(const quint64 &) { }

bool SMetadatable::isMetadataValid(const IMetadata *) const
{
    return true;
}

/// The entry of \a id, or the place where it belongs.
SMetadatable::Entries::const_iterator SMetadatable::place(quint64 id) const
{
    return std::ranges::lower_bound(m_entries, id, {}, &Entry::id);
}

SMetadatable::Entries::iterator SMetadatable::place(quint64 id)
{
    return m_entries.begin() + (std::as_const(*this).place(id) - m_entries.cbegin());
}

bool SMetadatable::isAt(Entries::const_iterator place, quint64 id) const
{
    return place != m_entries.end() && place->id == id;
}

/// Puts \a value, which is not the stored one, under \a id at its place and deletes what it
/// replaces, with what equalled that.
void SMetadatable::store(Entries::iterator place, quint64 id, IMetadata *value)
{
    if (const auto own = m_spares.extract({id, value}))
        static_cast<void>(own.mapped().release());
    if (!isAt(place, id)) {
        const auto index = place - m_entries.begin();
        if (m_entries.capacity() == 0)
            m_entries.reserve(8);
        m_entries.insert(m_entries.begin() + index, Entry{id, std::unique_ptr<IMetadata>(value)});
        return;
    }
    // A destructor may look at the container, which then has to be whole.
    const auto old = std::exchange(place->value, std::unique_ptr<IMetadata>(value));
    Spares spares;
    for (auto spare = m_spares.lower_bound({id, nullptr});
         spare != m_spares.end() && spare->first.first == id;)
        spares.insert(m_spares.extract(spare++));
}

} // namespace Quorvex
