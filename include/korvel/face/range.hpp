/**
 * @file range.hpp
 * Ranges over what an object has by index: `for (auto note : part.notes())`.
 */
#ifndef KORVEL_FACE_RANGE_HPP
#define KORVEL_FACE_RANGE_HPP

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace korvel::plx {

/**
 * The elements of an owner, by index. `Count` and `At` are member functions of the owner.
 *
 * A range and its iterators are the owner's handle and an index: they hold no elements and stay
 * usable while the owner lives, whatever is inserted or removed. Elements are values; an iterator
 * is random-access in all but that, which is enough for std::lower_bound and the like.
 */
template <typename Owner, auto Count, auto At>
class Range {
public:
    class Iterator;
    /** See Range. */
    using iterator = Iterator;
    /** See Range. */
    using const_iterator = Iterator;
    /** What the owner returns for an index. */
    using value_type = decltype((std::declval<const Owner&>().*At)(std::uint64_t{}));
    /** Of counts and indexes. */
    using size_type = std::uint64_t;
    /** Of two iterators. */
    using difference_type = std::ptrdiff_t;

    /** Without elements. */
    constexpr Range() noexcept = default;
    /** All elements of the owner. */
    constexpr explicit Range(Owner owner) noexcept : owner_(owner) {}

    /** The number of elements. */
    [[nodiscard]] std::uint64_t size() const noexcept { return (owner_.*Count)(); }
    /** Whether there are none. */
    [[nodiscard]] bool empty() const noexcept { return size() == 0; }

    /** What the C function returns for the index, also for one past the end. */
    [[nodiscard]] auto operator[](std::uint64_t index) const noexcept
    {
        return (owner_.*At)(index);
    }

    /** The first element. */
    [[nodiscard]] auto front() const noexcept { return (*this)[0]; }
    /** The last element. */
    [[nodiscard]] auto back() const noexcept { return (*this)[size() - 1]; }

    /** At the first element. */
    [[nodiscard]] Iterator begin() const noexcept { return Iterator(owner_, 0); }
    /** Behind the last element. */
    [[nodiscard]] Iterator end() const noexcept { return Iterator(owner_, size()); }

private:
    Owner owner_;
};

template <typename Owner, auto Count, auto At>
class Range<Owner, Count, At>::Iterator {
public:
    using iterator_category = std::random_access_iterator_tag;
    using value_type = typename Range::value_type;
    using difference_type = std::ptrdiff_t;
    using reference = value_type;

    /** Holds the element while an expression looks into it. */
    class pointer {
    public:
        explicit pointer(value_type element) noexcept : element_(element) {}
        const value_type* operator->() const noexcept { return &element_; }

    private:
        value_type element_;
    };

    constexpr Iterator() noexcept = default;
    constexpr Iterator(Owner owner, std::uint64_t index) noexcept : owner_(owner), index_(index) {}

    /** The place of the element that the iterator stands at. */
    [[nodiscard]] constexpr std::uint64_t index() const noexcept { return index_; }

    reference operator*() const noexcept { return (owner_.*At)(index_); }
    pointer operator->() const noexcept { return pointer(**this); }
    reference operator[](difference_type step) const noexcept { return *(*this + step); }

    Iterator& operator+=(difference_type step) noexcept
    {
        index_ += static_cast<std::uint64_t>(step);
        return *this;
    }
    Iterator& operator-=(difference_type step) noexcept
    {
        index_ -= static_cast<std::uint64_t>(step);
        return *this;
    }
    Iterator& operator++() noexcept { return *this += 1; }
    Iterator& operator--() noexcept { return *this -= 1; }
    Iterator operator++(int) noexcept
    {
        const Iterator old = *this;
        ++*this;
        return old;
    }
    Iterator operator--(int) noexcept
    {
        const Iterator old = *this;
        --*this;
        return old;
    }

    friend Iterator operator+(Iterator iterator, difference_type step) noexcept
    {
        return iterator += step;
    }
    friend Iterator operator+(difference_type step, Iterator iterator) noexcept
    {
        return iterator += step;
    }
    friend Iterator operator-(Iterator iterator, difference_type step) noexcept
    {
        return iterator -= step;
    }
    friend difference_type operator-(const Iterator& left, const Iterator& right) noexcept
    {
        return static_cast<difference_type>(left.index_ - right.index_);
    }

    friend bool operator==(const Iterator& left, const Iterator& right) noexcept
    {
        return left.index_ == right.index_;
    }
    friend bool operator!=(const Iterator& left, const Iterator& right) noexcept
    {
        return left.index_ != right.index_;
    }
    friend bool operator<(const Iterator& left, const Iterator& right) noexcept
    {
        return left.index_ < right.index_;
    }
    friend bool operator>(const Iterator& left, const Iterator& right) noexcept
    {
        return right < left;
    }
    friend bool operator<=(const Iterator& left, const Iterator& right) noexcept
    {
        return !(right < left);
    }
    friend bool operator>=(const Iterator& left, const Iterator& right) noexcept
    {
        return !(left < right);
    }

private:
    Owner owner_;
    std::uint64_t index_ = 0;
};

} // namespace korvel::plx

#endif
