// The place of a virtual operation in its class's table, so that tests can assert the published order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Torvo::test {

// The index of an operation in its class's table. Works from the Itanium C++ ABI (section 2.3), which all our compilers
// follow: a pointer to a virtual member function holds 1 + the byte offset in the table. A virtual destructor takes two
// entries there, so behind one that is declared first, the first operation has the index 2.
template <typename Member>
std::size_t SlotOf(Member member) {
    std::uintptr_t representation[2];
    static_assert(sizeof member == sizeof representation);
    std::memcpy(representation, &member, sizeof representation);
    return (representation[0] - 1) / sizeof(void*);
}

}  // namespace Torvo::test
