#include <Utility/files/free_slots.h>

#include <algorithm>
#include <functional>

namespace Torvo {

void FreeSlots::Reserve(int32 size) {
    const auto count = static_cast<std::size_t>(size);
    if (count > returned.capacity()) returned.reserve(std::max(count, 2 * returned.capacity()));
}

void FreeSlots::TakeLowest() {
    if (returned.empty()) {
        ++neverUsed;
        return;
    }
    std::pop_heap(returned.begin(), returned.end(), std::greater<>());
    returned.pop_back();
}

void FreeSlots::GiveBack(int32 slot) {
    returned.push_back(slot);
    std::push_heap(returned.begin(), returned.end(), std::greater<>());
}

bool FreeSlots::IsFree(int32 slot) const {
    return slot >= neverUsed || std::find(returned.begin(), returned.end(), slot) != returned.end();
}

}  // namespace Torvo
