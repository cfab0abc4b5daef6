// A program with a variable of every kind that the printers of tools/gdb know. printers_test stops it in Stop and asks.
#include <Utility/Utility.h>

namespace {

using namespace Torvo;

class Item : public Q_ELEM {
public:
    explicit Item(int number) : number_(number) {}
    int Number() const { return number_; }

private:
    int number_;
};

int stops = 0;

void Stop() {
    ++stops;
}

void Dates() {
    const zuDATE leapDay = {2024, 2, 29};
    const zuDATE nullDate = {};
    const zuDATE noDate = {2023, 2, 29};
    const SYSTEMTIME moment = {2024, 2, 4, 29, 13, 5, 9, 250};
    zuTime* const time = CreateTime(13, 5, 9, 2500000);
    zuTimeSpan* const span = CreateTimeSpan(-1, 0, 0, -5);
    zuDateTime* const dateTime = CreateDateTime(2024, 2, 29, 13, 5, 9);
    zuDateTime* const dateAlone = CreateDateTimeFromLiteral(20240229, -1);
    Stop();
    delete dateAlone;
    delete dateTime;
    delete span;
    delete time;
    (void)leapDay, (void)nullDate, (void)noDate, (void)moment;
}

void Shapes() {
    const LPNT whole = {-3, 4};
    const DPNT exact = {0.1, 1e300};
    const LRECT sorted = {1, 2, 30, 40};
    const DRECT insideOut = {1.5, 2, -1, 2.25};
    const SRECT small = {1, 2, 3, 4};
    const GUID guid = {0x12345678, 0x9ABC, 0xDEF0, {1, 2, 3, 4, 5, 6, 7, 0xFF}};
    const CacheEntry entry = {7, 0, 0, 3, 4096, 0, 1};
    DPNTContainer* const points = DPNTContainer::Create(4, 4);
    points->Append(&exact, 1);
    Stop();
    delete points;
    (void)whole, (void)sorted, (void)insideOut, (void)small, (void)guid, (void)entry;
}

template <typename T>
ZUList<T>* ListWith(T lone, T low, T high) {
    ZUList<T>* const list = ZUList<T>::Create();
    list->Add(lone);
    list->AddRange(low, high);
    return list;
}

void Sets() {
    flist* rows = flist_init();
    flist* const none = flist_init();
    flist_add(rows, 5);
    flist_add_range(rows, 262140, 600000);  // the end of a page, a whole one, the start of another
    flist_add(rows, 700000);
    auto* const signedList = ListWith<long32>(3, 7, 900);
    auto* const unsignedList = ListWith<ulong32>(3, 7, 4000000000);
    auto* const wideList = ListWith<uint64>(3, 7, uint64{1} << 63);
    Stop();
    delete wideList;
    delete unsignedList;
    delete signedList;
    flist* empty = none;
    flist_destroy(empty);
    flist_destroy(rows);
}

void Lists() {
    Item first(1);
    Item second(2);
    QUEUE queue;
    InitQueue(&queue);
    Enqueue(&queue, &first, 1);
    Enqueue(&queue, &second, 1);
    LINKEDLIST stack;
    LL_Init(&stack);
    void* item = nullptr;
    LL_InsertFront(&stack, &item);
    Stop();
    LL_RemoveFront(&stack);
}

void Errors() {
    const GUID nobody = {};
    cErrorSystem* const errors = cErrorSystem::Instance();
    SetError(ERRORLEVEL_ERROR, 9986, nullptr, nobody, 5002, ZUTEXT("na\u00EFve \"name\""), nullptr);
    EndError();
    SetError(ERRORLEVEL_ERROR, ZUTEXT("^0 of ^1"), nobody, 7, ZUTEXT("a"), ZUTEXT("b"));
    Stop();
    ClearErrors();
    (void)errors;
}

}  // namespace

int main() {
    Dates();
    Shapes();
    Sets();
    Lists();
    Errors();
    InstanceData::Destroy(false, false);
    return stops == 5 ? 0 : 1;
}
