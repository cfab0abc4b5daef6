// Operations on each of the three integer lists, compared with their plain forms.
#include <Utility/integer_lists.h>

#include <limits>
#include <memory>

#include "operation_stream.h"
#include "reference/plain_integer_lists.h"
#include "require.h"

using namespace Torvo;
using fuzz::Require;

namespace {

// Small values, so that runs form; for the list of signed values negative and largest ones too.
template <typename T>
T ReadItem(fuzz::OperationStream& stream) {
    const uint32 value = stream.Word() % 2000;
    if (std::numeric_limits<T>::is_signed && value >= 1990) return static_cast<T>(static_cast<int32>(value) - 2000);
    if (value >= 1900) return static_cast<T>(std::numeric_limits<T>::max() - static_cast<T>(2000 - value));
    return static_cast<T>(value);
}

template <typename T, typename Plain>
void CompareRuns(ZUList<T>& list, const Plain& plain) {
    const std::unique_ptr<ZUListRangeEnumerator<T>> runs(list.CreateRangeEnumerator());
    T first = 0;
    T last = 0;
    for (const auto run : plain.runs) Require(runs->Next(first, last) && first == run.low && last == run.high);
    Require(!runs->Next(first, last));
}

template <typename T, typename Plain>
void Run(fuzz::OperationStream stream) {
    const std::unique_ptr<ZUList<T>> list(ZUList<T>::Create());
    Plain plain;
    while (!stream.AtEnd()) {
        const uint32 operation = stream.Byte() % 8;
        const T item = ReadItem<T>(stream);
        if (operation < 3) {
            Require(list->Add(item) == plain.Add(item));
        } else if (operation < 5) {
            Require(list->Remove(item));
            plain.Remove(item);
        } else if (operation == 5) {
            const T size = static_cast<T>(stream.Byte() % 30);
            const T other = item > std::numeric_limits<T>::max() - size ? item : static_cast<T>(item + size);
            Require(list->AddRange(other, item) == plain.AddRange(other, item));
        } else if (operation == 6) {
            const std::unique_ptr<ZUListItem<T>> finder(list->CreateItem());
            T value = 7;
            T plainValue = 7;
            const uint64 index = stream.Word() % 2000;
            Require(finder->GetItem(index, value) == plain.GetItem(index, plainValue) && value == plainValue);
        } else {
            Require(list->Member(item) == plain.Member(item));
        }
        Require(list->Count() == plain.Count() && list->Plurality() == plain.Plurality());
    }
    CompareRuns(*list, plain);
    const std::unique_ptr<ZUList<T>> copy(list->Copy());
    CompareRuns(*copy, plain);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8* data, std::size_t size) {
    const fuzz::OperationStream stream(data, size);
    Run<long32, test::PlainTaggedList>(stream);
    Run<ulong32, test::PlainPairList<ulong32>>(stream);
    Run<uint64, test::PlainPairList<uint64>>(stream);
    return 0;
}
