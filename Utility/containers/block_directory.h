// What the directories of the integer lists' blocks have in common.
#pragma once

#include <cstddef>
#include <vector>

namespace Torvo {

// The last element that the predicate holds for, which holds for none behind one that it does not hold for; the first
// element if it holds for none. There is at least one. The steps depend on the number of elements alone, and where the
// search goes on is chosen by a conditional move: no branch is guessed wrong on the way.
template <typename Element, typename Predicate>
const Element* LastHolding(const Element* elements, std::size_t count, Predicate holds) {
    while (count > 1) {
        const std::size_t half = count / 2;
        const Element* const upper = elements + half;
        elements = holds(*upper) ? upper : elements;
        count -= half;
    }
    return elements;
}

// The place of the last low that is at or below the item, or 0.
template <typename T>
std::size_t BlockBelow(const std::vector<T>& lows, T item) {
    return static_cast<std::size_t>(LastHolding(lows.data(), lows.size(), [item](T low) { return low <= item; }) -
                                    lows.data());
}

// Makes sure that one more element needs no memory.
template <typename Element>
void ReserveOneMore(std::vector<Element>& elements) {
    if (elements.size() == elements.capacity()) elements.reserve(2 * elements.size() + 1);
}

}  // namespace Torvo
