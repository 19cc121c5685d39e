// The containers of elements that are read, and of short lists. Elements never change their address
// while they live, because hosts hold those addresses as handles.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace Korvel::CANTORIS::PLX {

// Elements that are made one by one: owned pointers, in the order in which they were added.
template <class Element>
class OwnedList {
public:
    OwnedList() = default;
    OwnedList(const OwnedList&) = delete;
    OwnedList& operator=(const OwnedList&) = delete;
    ~OwnedList() { clear(); }

    std::size_t size() const { return elements_.size(); }
    bool empty() const { return elements_.empty(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }
    Element& operator[](std::size_t index) const { return *elements_[index]; }

    Element* at(std::uint64_t index) const
    {
        return index < elements_.size() ? elements_[static_cast<std::size_t>(index)] : nullptr;
    }

    // Identity under the family's root interface. `element` is compared, never looked into: it may
    // have been destroyed long ago.
    template <class Root>
    bool has(const Root* element) const
    {
        return std::any_of(begin(), end(), [element](const Element* own) {
            return static_cast<const Root*>(own) == element;
        });
    }

    void reserve(std::size_t count) { elements_.reserve(count); }

    Element* insert(std::size_t index, std::unique_ptr<Element> element)
    {
        elements_.insert(elements_.begin() + static_cast<std::ptrdiff_t>(index), element.get());
        return element.release();
    }

    Element* append(std::unique_ptr<Element> element) { return insert(size(), std::move(element)); }

    std::unique_ptr<Element> take(std::size_t index)
    {
        std::unique_ptr<Element> element(elements_[index]);
        elements_.erase(elements_.begin() + static_cast<std::ptrdiff_t>(index));
        return element;
    }

    // The index of this element, searched in [from, size()); size() when it is not there.
    std::size_t find(const Element* element, std::size_t from = 0) const
    {
        const auto start = begin() + static_cast<std::ptrdiff_t>(from);
        return static_cast<std::size_t>(std::find(start, end(), element) - begin());
    }

    // Destroys the element if it is in the list.
    bool remove(const Element* element)
    {
        const std::size_t index = find(element);
        if (index == size()) {
            return false;
        }
        take(index);
        return true;
    }

    // Sorts the keys in an array of their own: reading the element itself at each comparison takes
    // many times as long once the elements do not fit into the processor's cache.
    template <class KeyOf>
    void stableSortBy(KeyOf keyOf)
    {
        using Key = decltype(keyOf(std::declval<const Element&>()));
        std::vector<std::pair<Key, Element*>> entries;
        entries.reserve(size());
        for (Element* const element : elements_) {
            entries.emplace_back(keyOf(*element), element);
        }
        std::stable_sort(entries.begin(), entries.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
        std::transform(entries.begin(), entries.end(), elements_.begin(),
                       [](const auto& entry) { return entry.second; });
    }

    void clear()
    {
        while (!elements_.empty()) {
            delete elements_.back();
            elements_.pop_back();
        }
    }

private:
    std::vector<Element*> elements_;
};

// Elements that are made all at once and never changed: one block of memory, without pointers.
template <class Element>
class FixedList {
public:
    FixedList() = default;
    FixedList(const FixedList&) = delete;
    FixedList& operator=(const FixedList&) = delete;
    ~FixedList() { clear(); }

    // Replaces the content by one element for each item of `items`, made as Element(first, item).
    template <class First, class Items>
    void build(First& first, const Items& items)
    {
        clear();
        if (items.empty()) {
            return;
        }
        std::allocator<Element> memory;
        elements_ = memory.allocate(items.size());
        capacity_ = static_cast<std::uint32_t>(items.size());
        for (const auto& item : items) {
            ::new (static_cast<void*>(elements_ + size_)) Element(first, item);
            ++size_;
        }
    }

    std::size_t size() const { return size_; }
    Element* at(std::uint64_t index) const { return index < size_ ? elements_ + index : nullptr; }

    // See OwnedList::has.
    template <class Root>
    bool has(const Root* element) const
    {
        return std::any_of(elements_, elements_ + size_, [element](const Element& own) {
            return static_cast<const Root*>(&own) == element;
        });
    }

private:
    void clear()
    {
        std::destroy_n(elements_, size_);
        if (elements_ != nullptr) {
            std::allocator<Element>().deallocate(elements_, capacity_);
        }
        elements_ = nullptr;
        size_ = 0;
        capacity_ = 0;
    }

    Element* elements_ = nullptr;
    std::uint32_t size_ = 0;
    std::uint32_t capacity_ = 0;
};

} // namespace Korvel::CANTORIS::PLX
