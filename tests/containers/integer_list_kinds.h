// The three integer lists, for tests that run on each of them.
#pragma once

#include <Utility/integer_lists.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace Torvo::test {

using ElementTypes = testing::Types<long32, ulong32, uint64>;

class ElementNames {
public:
    template <typename T>
    static std::string GetName(int) {
        return std::is_signed_v<T> ? "long32" : sizeof(T) == 4 ? "ulong32" : "uint64";
    }
};

template <typename T>
std::vector<T> MembersOf(ZUList<T>& list) {
    const std::unique_ptr<ZUListEnumerator<T>> enumerator(list.CreateEnumerator());
    std::vector<T> members;
    T item = 0;
    while (enumerator->Next(item)) members.push_back(item);
    return members;
}

}  // namespace Torvo::test
