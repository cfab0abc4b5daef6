#include <Utility/containers/bitmap_store.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/runtime.h>

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Torvo {

// The start of a slab's block. The slots follow at the next border of a large page.
struct BitmapSlab {
    BitmapSlab* next;
    BitmapSlab* previous;
    char* slots;
    uint32 slotCount;
    uint32 touched;  // slots that were ever given out; the others are zero
    uint32 used;
    void* freed;  // slots that were given back, each leading to the next

    bool HasRoom() const { return used < slotCount; }
};

namespace {

// What follows a bitmap and its map: the slab that it lies in, or null.
struct BitmapFooter {
    BitmapSlab* slab;
};

// Cache lines of a bitmap are cache lines of the processor in every slot.
constexpr std::size_t kLine = 64;
constexpr std::size_t kSlotBytes = (BitmapStore::kContentBytes + sizeof(BitmapFooter) + kLine - 1) / kLine * kLine;
// How many large pages a slab has at most. A slab that is made takes some time, and where it takes memory that was in
// use before, that is the time of clearing it.
constexpr uint32 kMostLargePages = 8;

BitmapFooter& FooterOf(uint16* bitmap) {
    return *reinterpret_cast<BitmapFooter*>(reinterpret_cast<char*>(bitmap) + BitmapStore::kContentBytes);
}

char* AlignUp(char* address, std::size_t alignment) {
    const auto value = reinterpret_cast<std::uintptr_t>(address);
    return address + (alignment - value % alignment) % alignment;
}

uint16* TakeSlot(BitmapSlab& slab, bool zero) {
    ++slab.used;
    void* slot = slab.freed;
    if (slot == nullptr) {
        slot = slab.slots + std::size_t{slab.touched++} * kSlotBytes;
    } else {
        std::memcpy(&slab.freed, slot, sizeof slab.freed);
        if (zero) std::memset(slot, 0, BitmapStore::kContentBytes);
    }
    auto* const bitmap = static_cast<uint16*>(slot);
    FooterOf(bitmap).slab = &slab;
    return bitmap;
}

}  // namespace

uint16* BitmapStore::New(bool zero) {
    if (singles_ < kSingles) return NewSingle(zero);
    BitmapSlab* const slab = SlabWithRoom();
    if (slab == nullptr) return NewSingle(zero);
    uint16* const bitmap = TakeSlot(*slab, zero);
    if (!slab->HasRoom()) {
        Unlink(*slab);
        Link(*slab, false);
    }
    return bitmap;
}

void BitmapStore::Free(uint16* bitmap) {
    if (bitmap == nullptr) return;
    if (BitmapSlab* const slab = FooterOf(bitmap).slab) return FreeInSlab(*slab, bitmap);
    void* block = bitmap;
    ffree_(&block);
    --singles_;
    if (singles_ < kSingles / 2) Release(spare_);
}

void BitmapStore::Close() {
    Release(spare_);
}

uint16* BitmapStore::NewSingle(bool zero) {
    void* block = nullptr;
    if (!falloc_(kContentBytes + sizeof(BitmapFooter), &block, false, zero)) return nullptr;
    ++singles_;
    auto* const bitmap = static_cast<uint16*>(block);
    // Memory that is zero already may be memory that the system has not made yet.
    if (!zero) FooterOf(bitmap).slab = nullptr;
    return bitmap;
}

BitmapSlab* BitmapStore::SlabWithRoom() {
    if (first_ != nullptr && first_->HasRoom()) return first_;
    BitmapSlab* const slab = spare_ != nullptr ? spare_ : NewSlab();
    spare_ = nullptr;
    if (slab != nullptr) Link(*slab, true);
    return slab;
}

// Slabs grow with their number, so that a list has about as much again as it has used, at most.
BitmapSlab* BitmapStore::NewSlab() {
    const std::size_t largePage = platform::LargePageBytes();
    if (largePage == 0) return nullptr;
    const std::size_t bytes = std::clamp<uint32>(slabs_, 1, kMostLargePages) * largePage;
    void* block = nullptr;
    if (!falloc_(sizeof(BitmapSlab) + largePage + bytes, &block, false, true)) return nullptr;
    auto* const slab = static_cast<BitmapSlab*>(block);
    slab->slots = AlignUp(reinterpret_cast<char*>(slab + 1), largePage);
    slab->slotCount = static_cast<uint32>(bytes / kSlotBytes);
    platform::WantLargePages(slab->slots, bytes);
    return slab;
}

void BitmapStore::FreeInSlab(BitmapSlab& slab, uint16* bitmap) {
    std::memcpy(bitmap, &slab.freed, sizeof slab.freed);
    slab.freed = bitmap;
    --slab.used;
    Unlink(slab);
    if (slab.used > 0) return Link(slab, true);
    BitmapSlab* empty = &slab;
    // One is kept even where another has room: a list that shrinks and grows about there would make a slab each time.
    const bool wanted = spare_ == nullptr && singles_ >= kSingles / 2;
    if (wanted) {
        spare_ = empty;
    } else {
        Release(empty);
    }
}

void BitmapStore::Link(BitmapSlab& slab, bool atHead) {
    slab.next = atHead ? first_ : nullptr;
    slab.previous = atHead ? nullptr : last_;
    (slab.next != nullptr ? slab.next->previous : last_) = &slab;
    (slab.previous != nullptr ? slab.previous->next : first_) = &slab;
    ++slabs_;
}

void BitmapStore::Unlink(BitmapSlab& slab) {
    (slab.next != nullptr ? slab.next->previous : last_) = slab.previous;
    (slab.previous != nullptr ? slab.previous->next : first_) = slab.next;
    --slabs_;
}

void BitmapStore::Release(BitmapSlab*& slab) {
    void* block = slab;
    ffree_(&block);
    slab = nullptr;
}

}  // namespace Torvo
