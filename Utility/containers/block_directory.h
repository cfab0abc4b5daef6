// What the directories of the integer lists' blocks have in common.
#pragma once

#include <cstddef>
#include <vector>

namespace Torvo {

// The number of leading elements that the predicate holds for; it holds for none behind those. The steps depend on the
// number of elements alone, so that no branch is guessed wrong on the way.
template <typename Element, typename Predicate>
std::size_t CountLeading(const Element* elements, std::size_t count, Predicate holds) {
    if (count == 0) return 0;
    const Element* base = elements;
    while (count > 1) {
        const std::size_t half = count / 2;
        base += half * static_cast<std::size_t>(holds(base[half - 1]));
        count -= half;
    }
    return static_cast<std::size_t>(base - elements) + (holds(*base) ? 1 : 0);
}

template <typename Element, typename Predicate>
std::size_t CountLeading(const std::vector<Element>& elements, Predicate holds) {
    return CountLeading(elements.data(), elements.size(), holds);
}

// Makes sure that one more element needs no memory.
template <typename Element>
void ReserveOneMore(std::vector<Element>& elements) {
    if (elements.size() == elements.capacity()) elements.reserve(2 * elements.size() + 1);
}

}  // namespace Torvo
