// The container of elements that hosts insert, move and remove one by one, in any number and order.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace Korvel::CANTORIS::PLX {

// Owned pointers, in an order that the user of the list keeps. Each element stays at one address for
// as long as it lives, because hosts hold that address as a handle.
//
// The pointers are in blocks of limited size. In one array, an insertion would move half of the
// elements, so that building a long list out of order would take time in the square of its length;
// here it moves part of one block and renumbers the later blocks. Neighbouring blocks that together
// fill at most half a block are merged, so that removals do not leave many blocks with an element
// or two each.
template <class Element>
class BlockList {
public:
    BlockList() = default;
    BlockList(const BlockList&) = delete;
    BlockList& operator=(const BlockList&) = delete;
    ~BlockList() { clear(); }

    std::size_t size() const { return blocks_.empty() ? 0 : blocks_.back().end(); }

    Element& operator[](std::size_t index) const
    {
        const Place place = locate(index);
        return *blocks_[place.block].items[place.offset];
    }

    Element* at(std::uint64_t index) const
    {
        return index < size() ? &(*this)[static_cast<std::size_t>(index)] : nullptr;
    }

    // Identity under the family's root interface. `element` is compared, never looked into: it may
    // have been destroyed long ago.
    template <class Root>
    bool has(const Root* element) const
    {
        return std::any_of(blocks_.begin(), blocks_.end(), [element](const Block& block) {
            return std::any_of(
                block.items.begin(), block.items.end(),
                [element](const Element* own) { return static_cast<const Root*>(own) == element; });
        });
    }

    // The index of the first element for which `holds` is true; size() when there is none. `holds`
    // must be true for all elements after that one, too.
    template <class Condition>
    std::size_t firstWhere(Condition holds) const
    {
        const auto isBefore = [&holds](const Element* element) { return !holds(*element); };
        const auto block =
            std::partition_point(blocks_.begin(), blocks_.end(), [&isBefore](const Block& other) {
                return isBefore(other.items.back());
            });
        if (block == blocks_.end()) {
            return size();
        }
        const auto item = std::partition_point(block->items.begin(), block->items.end(), isBefore);
        return block->start + static_cast<std::size_t>(item - block->items.begin());
    }

    // The index of this element, searched in [from, size()); size() when it is not there.
    std::size_t find(const Element* element, std::size_t from = 0) const
    {
        for (Place place = locate(from); place.block < blocks_.size(); ++place.block) {
            const Block& block = blocks_[place.block];
            const auto start = block.items.begin() + static_cast<std::ptrdiff_t>(place.offset);
            const auto found = std::find(start, block.items.end(), element);
            if (found != block.items.end()) {
                return block.start + static_cast<std::size_t>(found - block.items.begin());
            }
            place.offset = 0;
        }
        return size();
    }

    Element* insert(std::size_t index, std::unique_ptr<Element> element)
    {
        const Place place = makeRoom(index);
        auto& items = blocks_[place.block].items;
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(place.offset), element.get());
        for (std::size_t later = place.block + 1; later < blocks_.size(); ++later) {
            ++blocks_[later].start;
        }
        return element.release();
    }

    std::unique_ptr<Element> take(std::size_t index)
    {
        const Place place = locate(index);
        std::unique_ptr<Element> element(pull(place));
        for (std::size_t later = place.block + 1; later < blocks_.size(); ++later) {
            --blocks_[later].start;
        }
        tidy(place.block);
        return element;
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

    // Moves the element at `from` to the index `to`; those between move up or down by one. Every
    // block keeps its size, so nothing is allocated.
    void shift(std::size_t from, std::size_t to) noexcept
    {
        const Place source = locate(from);
        const Place target = locate(to);
        Element* const element = pull(source);
        for (std::size_t block = source.block; block < target.block; ++block) {
            auto& items = blocks_[block].items;
            items.push_back(pull({block + 1, 0}));
        }
        for (std::size_t block = source.block; block > target.block; --block) {
            auto& items = blocks_[block].items;
            items.insert(items.begin(), pull({block - 1, blocks_[block - 1].items.size() - 1}));
        }
        auto& items = blocks_[target.block].items;
        items.insert(items.begin() + static_cast<std::ptrdiff_t>(target.offset), element);
    }

    void clear()
    {
        while (!blocks_.empty()) {
            for (const Element* element : blocks_.back().items) {
                delete element;
            }
            blocks_.pop_back();
        }
    }

private:
    static constexpr std::size_t capacity = 512;

    struct Block {
        std::size_t start; // the index of the first item; no block is empty
        std::vector<Element*> items;

        std::size_t end() const { return start + items.size(); }
    };

    struct Place {
        std::size_t block;
        std::size_t offset;
    };

    // After the last block for an index that is too large.
    Place locate(std::size_t index) const
    {
        const auto block =
            std::partition_point(blocks_.begin(), blocks_.end(),
                                 [index](const Block& other) { return other.end() <= index; });
        return {static_cast<std::size_t>(block - blocks_.begin()),
                block == blocks_.end() ? 0 : index - block->start};
    }

    Element* pull(Place place)
    {
        auto& items = blocks_[place.block].items;
        Element* const element = items[place.offset];
        items.erase(items.begin() + static_cast<std::ptrdiff_t>(place.offset));
        return element;
    }

    // Where to put a new element that gets this index: a place in a block with room. When memory
    // runs out, the elements are as before, but they may be divided differently into blocks.
    Place makeRoom(std::size_t index)
    {
        if (index == size()) {
            return roomAtEnd();
        }
        const Place place = locate(index);
        if (blocks_[place.block].items.size() < capacity) {
            return place;
        }
        split(place.block);
        return locate(index);
    }

    Place roomAtEnd()
    {
        if (blocks_.empty() || blocks_.back().items.size() == capacity) {
            Block block{size(), {}};
            block.items.reserve(1);
            blocks_.push_back(std::move(block));
        }
        return {blocks_.size() - 1, blocks_.back().items.size()};
    }

    void split(std::size_t index)
    {
        Block& block = blocks_[index];
        const auto middle = block.items.begin() + static_cast<std::ptrdiff_t>(capacity / 2);
        Block tail{block.start + capacity / 2, {middle, block.items.end()}};
        blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(index) + 1, std::move(tail));
        blocks_[index].items.resize(capacity / 2);
    }

    // Called after an item of that block was removed.
    void tidy(std::size_t index)
    {
        if (blocks_[index].items.empty()) {
            blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(index));
            return;
        }
        mergeWithNext(index);
        if (index > 0) {
            mergeWithNext(index - 1);
        }
    }

    // Does not fill a whole block: the next insertion would split it again. Needs no memory,
    // because a block that is followed by another has once been half full.
    void mergeWithNext(std::size_t index)
    {
        if (index + 1 == blocks_.size()) {
            return;
        }
        auto& items = blocks_[index].items;
        const auto& later = blocks_[index + 1].items;
        if (items.size() + later.size() <= capacity / 2) {
            items.insert(items.end(), later.begin(), later.end());
            blocks_.erase(blocks_.begin() + static_cast<std::ptrdiff_t>(index) + 1);
        }
    }

    std::vector<Block> blocks_;
};

} // namespace Korvel::CANTORIS::PLX
