#include <Utility/files/idle_order.h>

#include <algorithm>

namespace Torvo {

void IdleOrder::Reserve(int32 size) {
    const auto count = static_cast<std::size_t>(size);
    if (count <= places.size()) return;
    if (count > heap.capacity()) heap.reserve(std::max(count, 2 * heap.capacity()));
    places.resize(count, NoPlace);
}

void IdleOrder::Put(std::size_t place, Item item) {
    heap[place] = item;
    places[static_cast<std::size_t>(item.second)] = place;
}

// Puts an item where it belongs, at `place`, above or below it.
void IdleOrder::Settle(std::size_t place, Item item) {
    while (place > 0 && item < heap[(place - 1) / 2]) {
        Put(place, heap[(place - 1) / 2]);
        place = (place - 1) / 2;
    }
    for (std::size_t child = 2 * place + 1; child < heap.size(); child = 2 * place + 1) {
        if (child + 1 < heap.size() && heap[child + 1] < heap[child]) ++child;
        if (item < heap[child]) break;
        Put(place, heap[child]);
        place = child;
    }
    Put(place, item);
}

void IdleOrder::Add(int32 entry, int32 age) {
    const Item item(opens - age, entry);
    heap.push_back(item);
    Settle(heap.size() - 1, item);
}

int32 IdleOrder::Remove(int32 entry) {
    const int32 age = AgeOf(entry);
    const std::size_t place = places[static_cast<std::size_t>(entry)];
    const Item last = heap.back();
    heap.pop_back();
    places[static_cast<std::size_t>(entry)] = NoPlace;
    if (last.second != entry) Settle(place, last);
    return age;
}

int32 IdleOrder::AgeOf(int32 entry) const {
    return static_cast<int32>(opens - heap[places[static_cast<std::size_t>(entry)]].first);
}

bool IdleOrder::IsSound() const {
    for (std::size_t place = 0; place < heap.size(); ++place) {
        if (place > 0 && heap[place] < heap[(place - 1) / 2]) return false;
        if (places[static_cast<std::size_t>(heap[place].second)] != place) return false;
    }
    return heap.size() == static_cast<std::size_t>(std::count_if(places.begin(), places.end(),
                                                                 [](std::size_t place) { return place != NoPlace; }));
}

}  // namespace Torvo
