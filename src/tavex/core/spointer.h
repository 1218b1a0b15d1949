#pragma once

#include <QList>
#include <QSharedPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace Quorvex {

/// Owns an object until it is released. Moving hands the ownership on.
template <typename T>
class SPointer
{
public:
    /// Owns \a object; null is fine.
    explicit SPointer(T *object = nullptr) noexcept
        : m_object(object)
    {
    }
    /// Takes over the object of \a other, and the ownership if \a other has it.
    SPointer(SPointer &&other) noexcept
        : m_object(other.m_object)
        , m_released(std::exchange(other.m_released, true))
    {
    }
    /// The same, after the own object is deleted unless it was released.
    SPointer &operator=(SPointer &&other) noexcept
    {
        if (this != &other) {
            SPointer old(std::move(*this));
            m_object = other.m_object;
            m_released = std::exchange(other.m_released, true);
        }
        return *this;
    }
    Q_DISABLE_COPY(SPointer)
    ~SPointer()
    {
        if (!m_released)
            delete m_object;
    }

    /// The object, also after it was released.
    [[nodiscard]] T *get() const noexcept { return m_object; }
    /// Member access to get(), which must not be null.
    T *operator->() const noexcept { return m_object; }
    /// The object of get(), which must not be null.
    T &operator*() const noexcept { return *m_object; }

    /// Whether the ownership was given up.
    [[nodiscard]] bool isReleased() const noexcept { return m_released; }

    /// Gives up the ownership; the caller now has to delete the object.
    T *release() noexcept
    {
        m_released = true;
        return m_object;
    }

private:
    T *m_object;
    bool m_released = false;
};

/// A list of owning pointers, in the order in which they were added. Each object is in it once. The
/// list is moved, not copied: two cannot own one object.
template <typename T>
class SPointerList
{
public:
    /// An empty list.
    SPointerList() = default;
    /// Takes over all objects of \a other, which is empty then.
    SPointerList(SPointerList &&other) noexcept = default;
    /// The same, after the own objects are deleted.
    SPointerList &operator=(SPointerList &&other) noexcept = default;
    Q_DISABLE_COPY(SPointerList)
    ~SPointerList() = default;

    /// Takes \a object over. If it is in the list already, it keeps its place and is owned once; if
    /// it had been released, it is owned again.
    void add(T *object)
    {
        const auto entry = find(object);
        if (entry == m_entries.end()) {
            m_entries.emplace_back(object);
        } else {
            entry->release();
            *entry = SPointer<T>(object);
        }
    }

    /// Deletes \a object, if the list owns it, and takes it out. False if it is not in the list.
    bool remove(const T *object)
    {
        const auto entry = find(object);
        if (entry == m_entries.end())
            return false;
        const SPointer<T> removed(std::move(*entry));
        m_entries.erase(entry);
        return true;
    }

    /// Takes \a object out of the list and hands its ownership to the caller. False if it is not
    /// there.
    bool release(const T *object)
    {
        const auto entry = find(object);
        if (entry == m_entries.end())
            return false;
        entry->release();
        m_entries.erase(entry);
        return true;
    }

    /// Deletes every object that the list owns.
    void clear() { std::exchange(m_entries, {}).clear(); }

    /// Whether \a object is in the list.
    [[nodiscard]] bool contains(const T *object) const { return find(object) != m_entries.end(); }
    /// Whether there is no object in the list.
    [[nodiscard]] bool isEmpty() const noexcept { return m_entries.empty(); }
    /// The number of objects in the list.
    [[nodiscard]] qsizetype size() const noexcept
    {
        return static_cast<qsizetype>(m_entries.size());
    }

    /// All objects; the list keeps them.
    [[nodiscard]] QList<T *> toList() const
    {
        QList<T *> list;
        list.reserve(size());
        for (const SPointer<T> &entry : m_entries)
            list.append(entry.get());
        return list;
    }

private:
    [[nodiscard]] auto find(const T *object)
    {
        return std::ranges::find(m_entries, object, &SPointer<T>::get);
    }
    [[nodiscard]] auto find(const T *object) const
    {
        return std::ranges::find(m_entries, object, &SPointer<T>::get);
    }

    std::vector<SPointer<T>> m_entries;
};

/// A shared owning pointer with a reference count.
template <typename T>
using SSharedPointer = QSharedPointer<T>;

} // namespace Quorvex
