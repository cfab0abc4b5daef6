// The place of a virtual operation in its class's table, so that tests can assert the published order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Torvo::test {

// The index of an operation, counting the virtual destructor as one, so that the first operation behind it is 2 when
// read as "the second operation". Works from the Itanium C++ ABI (section 2.3), which all our compilers follow: a
// pointer to a virtual member function holds 1 + the byte offset in the table, and a virtual destructor takes two
// entries there.
template <typename Member>
std::size_t SlotOf(Member member) {
    std::uintptr_t representation[2];
    static_assert(sizeof member == sizeof representation);
    std::memcpy(representation, &member, sizeof representation);
    return (representation[0] - 1) / sizeof(void*);
}

}  // namespace Torvo::test
