#include <tavex/metadata/smetadatable.h>

#include <tavex/metadata/metaclass_p.h>

#include <algorithm>
#include <utility>

namespace Quorvex {

using Interfaces::ICloneable;

namespace {

/// Null if the clone is no metadata.
std::unique_ptr<Interfaces::IMetadata> cloneOf(const Interfaces::IMetadata &value)
{
    std::unique_ptr<ICloneable> copy(value.clone());
    const auto *const metadata = copy ? castLike(&value, copy.get()) : nullptr;
    if (metadata)
        static_cast<void>(copy.release());
    return std::unique_ptr<Interfaces::IMetadata>(const_cast<Interfaces::IMetadata *>(metadata));
}

} // namespace

SMetadatable::SMetadatable() = default;

SMetadatable::SMetadatable(const SMetadatable &other)
    : IMetadatable(other)
{
    // While this is constructed, no derived class can narrow what is valid or hear of a change.
    m_entries.reserve(other.m_entries.size());
    for (const Entry &entry : other.m_entries) {
        if (auto copy = cloneOf(*entry.value))
            m_entries.push_back({entry.id, std::move(copy), nullptr});
    }
}

SMetadatable::SMetadatable(IMetadatable *other)
{
    for (const IMetadata *const value : other ? other->metadataList() : QList<IMetadata *>()) {
        if (auto copy = value ? cloneOf(*value) : nullptr) {
            const quint64 id = copy->id();
            store(id, copy.release());
        }
    }
}

SMetadatable &SMetadatable::operator=(const SMetadatable &other)
{
    if (this != &other) {
        clearMetadata();
        for (IMetadata *const value : other.metadataList())
            setMetadata(value, false);
    }
    return *this;
}

SMetadatable &SMetadatable::operator=(IMetadatable *other)
{
    if (this != other) {
        clearMetadata();
        for (IMetadata *const value : other ? other->metadataList() : QList<IMetadata *>())
            setMetadata(value, false);
    }
    return *this;
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
    std::exchange(m_entries, {}).clear();
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
    const auto entry = find(id);
    return entry == m_entries.end() ? nullptr : entry->value.get();
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
    IMetadata *const old = metadata(id);
    if (old && value->equalsTo(old)) {
        const auto entry = place(id);
        if (takeOwnership && value != old && value != entry->spare.get())
            entry->spare.reset(value);
        return true;
    }
    // A stored value that does not even equal itself, such as NaN, stays as well.
    if (value != old) {
        if (takeOwnership) {
            store(id, value);
        } else if (auto copy = cloneOf(*value)) {
            store(id, copy.release());
        } else {
            return false;
        }
    }
    onMetadataChanged(id);
    return true;
}

void SMetadatable::removeMetadata(const quint64 &id)
{
    const auto entry = place(id);
    if (entry == m_entries.end() || entry->id != id)
        return;
    const Entry removed = std::move(*entry);
    m_entries.erase(entry);
}

bool SMetadatable::hasMetadata(const quint64 &id) const
{
    return find(id) != m_entries.end();
}

void SMetadatable::onMetadataChanged(const quint64 &) { }

bool SMetadatable::isMetadataValid(const IMetadata *) const
{
    return true;
}

std::vector<SMetadatable::Entry>::const_iterator SMetadatable::find(quint64 id) const
{
    const auto entry = std::ranges::lower_bound(m_entries, id, {}, &Entry::id);
    return entry != m_entries.end() && entry->id == id ? entry : m_entries.end();
}

/// The entry of \a id, or the place where it belongs.
std::vector<SMetadatable::Entry>::iterator SMetadatable::place(quint64 id)
{
    return std::ranges::lower_bound(m_entries, id, {}, &Entry::id);
}

/// Puts \a value, which is not the stored one, under \a id and deletes what was there.
void SMetadatable::store(quint64 id, IMetadata *value)
{
    if (m_entries.capacity() == 0)
        m_entries.reserve(8);
    auto entry = place(id);
    if (entry == m_entries.end() || entry->id != id)
        entry = m_entries.insert(entry, Entry{id, nullptr, nullptr});
    if (entry->spare.get() == value)
        static_cast<void>(entry->spare.release());
    const std::unique_ptr<IMetadata> spare = std::exchange(entry->spare, nullptr);
    const std::unique_ptr<IMetadata> old =
        std::exchange(entry->value, std::unique_ptr<IMetadata>(value));
}

} // namespace Quorvex
