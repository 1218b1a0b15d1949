#pragma once

#include <QtGlobal>

#include <algorithm>
#include <concepts>
#include <limits>
#include <memory>
#include <new>
#include <utility>

namespace Quorvex {

/// An array on the heap whose size is fixed when it is made. It owns its elements: a copy has its
/// own, and assignment takes over elements and size. An array that was moved from is empty.
template <std::semiregular T>
class SArray
{
public:
    /// The type of the elements.
    using value_type = T;

    /// An empty array.
    SArray() noexcept = default;
    /// \a size elements, all zero (`T()`). A negative size counts as 0; where there is not enough
    /// memory, the array is empty.
    explicit SArray(qsizetype size)
        : m_data(fits(size) ? new (std::nothrow) T[static_cast<std::size_t>(size)]() : nullptr)
        , m_size(m_data ? size : 0)
    {
    }
    /// Copies the elements; the array is empty where there is not enough memory.
    SArray(const SArray &other)
        : SArray(other.m_size)
    {
        std::copy_n(other.begin(), m_size, begin());
    }
    /// Takes over the elements of \a other, which is empty then.
    SArray(SArray &&other) noexcept
        : m_data(std::move(other.m_data))
        , m_size(std::exchange(other.m_size, 0))
    {
    }
    /// Takes over elements and size.
    SArray &operator=(SArray other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        return *this;
    }
    ~SArray() = default;

    /// The number of elements.
    [[nodiscard]] qsizetype size() const noexcept { return m_size; }
    /// Whether there is no element.
    [[nodiscard]] bool isEmpty() const noexcept { return m_size == 0; }

    /// The element at \a index, or zero (`T()`) if there is none.
    [[nodiscard]] T at(qsizetype index) const
    {
        return index >= 0 && index < m_size ? (*this)[index] : T();
    }
    /// The element at \a index, which has to be one of the array: nothing checks it.
    /// @{
    [[nodiscard]] T &operator[](qsizetype index) noexcept
    {
        return m_data[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] const T &operator[](qsizetype index) const noexcept
    {
        return m_data[static_cast<std::size_t>(index)];
    }
    /// @}

    /// The elements, which lie one behind the other; null if the array is empty.
    /// @{
    [[nodiscard]] T *data() noexcept { return m_data.get(); }
    [[nodiscard]] const T *data() const noexcept { return m_data.get(); }
    /// @}

    /// The range of the elements, for loops and algorithms.
    /// @{
    [[nodiscard]] T *begin() noexcept { return data(); }
    [[nodiscard]] T *end() noexcept { return data() + m_size; }
    [[nodiscard]] const T *begin() const noexcept { return data(); }
    [[nodiscard]] const T *end() const noexcept { return data() + m_size; }
    /// @}

    /// Makes every element \a value.
    void fill(const T &value) { std::fill(begin(), end(), T(value)); }

    /// Whether both have the same number of elements and each equals its counterpart.
    [[nodiscard]] friend bool operator==(
        const SArray &a, const SArray &b) requires std::equality_comparable<T>
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end());
    }

private:
    /// Of more elements new would throw; it may store their number in front of them.
    static constexpr bool fits(qsizetype size) noexcept
    {
        constexpr auto bytes = static_cast<std::size_t>((std::numeric_limits<qsizetype>::max)());
        return size > 0
            && static_cast<std::size_t>(size)
            <= (bytes - qMax(sizeof(std::size_t), alignof(T))) / sizeof(T);
    }

    std::unique_ptr<T[]> m_data;
    qsizetype m_size = 0;
};

} // namespace Quorvex
