// Lists in ascending order of position: where to insert an element, and how to make such a list of
// the points of a document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "model/block_list.h"

namespace Korvel::CANTORIS::PLX {

// A (position, value) pair from a document, before it becomes an event or a vibrato point.
struct CurvePoint {
    std::int32_t pos;
    std::int32_t value;
};

// Sorts by position; of several points at one position only the first stays.
void orderCurve(std::vector<CurvePoint>& points);

// The index of the first element whose position is not less than `pos`.
template <class Element>
std::size_t firstNotBefore(const BlockList<Element>& list, std::int32_t pos)
{
    return list.firstWhere([pos](const Element& element) { return element.pos() >= pos; });
}

// The index of this element, given the position by which it is sorted; size() when absent.
template <class Element>
std::size_t indexAt(const BlockList<Element>& list, const Element* element, std::int32_t pos)
{
    return list.find(element, firstNotBefore(list, pos));
}

// Destroys this element; false when it is not in the list.
template <class Element>
bool removeOrdered(BlockList<Element>& list, const Element& element)
{
    const std::size_t index = indexAt(list, &element, element.pos());
    if (index == list.size()) {
        return false;
    }
    list.take(index);
    return true;
}

// The new index of the element at `index` of a sorted list when its position becomes `pos`: the
// same as after a stable sort of the whole list, but found by a search.
template <class Element>
std::size_t placeAfterMove(const BlockList<Element>& list, std::size_t index, std::int32_t pos)
{
    const std::int32_t old = list[index].pos();
    if (pos > old) {
        return firstNotBefore(list, pos) - 1;
    }
    if (pos < old) {
        return list.firstWhere([pos](const Element& element) { return element.pos() > pos; });
    }
    return index;
}

// Moves an element of a list with unique positions, and calls `store` to store its new position.
// Another element at that position is destroyed.
template <class Element, class Store>
void moveUnique(BlockList<Element>& list, const Element& element, std::int32_t pos, Store store)
{
    std::size_t index = indexAt(list, &element, element.pos());
    if (index == list.size()) {
        return;
    }
    const std::size_t standing = firstNotBefore(list, pos);
    if (standing < list.size() && standing != index && list[standing].pos() == pos) {
        list.take(standing);
        index -= standing < index ? 1U : 0U;
    }
    list.shift(index, placeAfterMove(list, index, pos));
    store();
}

} // namespace Korvel::CANTORIS::PLX
