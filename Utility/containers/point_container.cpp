#include <Utility/memory_blocks.h>
#include <Utility/point_containers.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <new>

namespace Torvo {

namespace {

constexpr uint64 kItemSize = sizeof(DPNT);
static_assert(kItemSize == 16);

constexpr uint64 kMost = std::numeric_limits<uint64>::max();

// Sums and products that no 64 bits hold stand for the largest value, which no heap grants.
uint64 Add(uint64 a, uint64 b) {
    return a <= kMost - b ? a + b : kMost;
}

uint64 BytesFor(uint64 points) {
    return points <= kMost / kItemSize ? points * kItemSize : kMost;
}

class DPNTContainerImpl : public DPNTContainer {
public:
    enum eCreateError { kNoMemory = 0 };

    DPNTContainerImpl(uint64 initialCapacity, uint64 growBy) : growBy_(growBy) {
        void* block = nullptr;
        if (!falloc_(BytesFor(initialCapacity), &block, false, false)) throw kNoMemory;
        Take(block);
    }
    DPNTContainerImpl(const DPNTContainerImpl&) = delete;
    DPNTContainerImpl& operator=(const DPNTContainerImpl&) = delete;
    ~DPNTContainerImpl() override { Free(points_); }

    bool Append(const DPNT* points, uint64 count) override {
        if (count > capacity_ - used_) return AppendGrowing(points, count);
        if (count == 0) return true;
        if (points == nullptr) return false;
        std::memcpy(points_ + used_, points, count * kItemSize);
        used_ += count;
        return true;
    }

    bool Reset(uint64 wanted) override {
        used_ = 0;
        return wanted == 0 || Reserve(wanted);
    }

    bool Reserve(uint64 wanted) override {
        if (wanted <= capacity_) return true;
        const uint64 capacity = Add(capacity_, std::max(wanted - capacity_, growBy_));
        DPNT* const old = points_;
        void* block = old;
        const bool grown = frealloc_(BytesFor(capacity), &block);
        // The memory blocks' failure loses the array, and so its points; its memory is given back here.
        if (!grown) {
            Free(old);
            used_ = 0;
        }
        Take(block);
        return grown;
    }

    DPNT* GetPoints(uint64& count) override {
        count = used_;
        return points_;
    }

private:
    // Points of this container are found again after the array has moved.
    bool AppendGrowing(const DPNT* points, uint64 count) {
        const bool own = !std::less<>()(points, points_) && std::less<>()(points, points_ + used_);
        const std::ptrdiff_t place = own ? points - points_ : 0;
        return Reserve(Add(used_, count)) && Append(own ? points_ + place : points, count);
    }

    void Take(void* block) {
        points_ = static_cast<DPNT*>(block);
        capacity_ = memSize(block) / kItemSize;
    }

    static void Free(DPNT* points) {
        void* block = points;
        ffree_(&block);
    }

    DPNT* points_ = nullptr;
    uint64 used_ = 0;
    uint64 capacity_ = 0;
    uint64 growBy_;
};

}  // namespace

DPNTContainer* DPNTContainer::Create(uint64 initialCapacity, uint64 growBy) {
    try {
        return new (std::nothrow) DPNTContainerImpl(initialCapacity, growBy);
    } catch (DPNTContainerImpl::eCreateError) {
        return nullptr;
    }
}

}  // namespace Torvo
