// A table of plain records in a memory block, zero at first. Its pages cost nothing until they are used.
#pragma once

#include <Utility/memory_blocks.h>

#include <type_traits>

namespace Torvo {

template <typename T>
class ZeroedTable {
    static_assert(std::is_trivial_v<T>);

public:
    ZeroedTable() = default;
    ~ZeroedTable() { ffree_(&block); }
    ZeroedTable(const ZeroedTable&) = delete;
    ZeroedTable& operator=(const ZeroedTable&) = delete;

    // False if memory is short. Once in the table's life.
    bool Allocate(int64 count) { return falloc_(static_cast<uint64>(count) * sizeof(T), &block, false, true); }

    T* Start() const { return static_cast<T*>(block); }
    template <typename Index>
    T& operator[](Index i) const {
        return Start()[i];
    }

private:
    void* block = nullptr;
};

}  // namespace Torvo
