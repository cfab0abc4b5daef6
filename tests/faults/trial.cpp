#include <Utility/errors.h>
#include <faults/operations.h>
#include <support/failing_files.h>
#include <support/failing_heap.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace Torvo::test {

std::string FaultPlan::About() const {
    if (kind == Kind::kNone) return "no fault";
    const std::string what = kind == Kind::kHeap ? "request of memory " : "call to the system ";
    return what + std::to_string(nth) + (fromThenOn ? " and all behind it" : "") +
           (kind == Kind::kSystem ? ", error " + std::to_string(error) : "");
}

bool Trial::CallUnderFaults(const std::function<bool()>& call) {
    if (plan.kind == FaultPlan::Kind::kNone) return call();
    if (plan.kind == FaultPlan::Kind::kHeap) {
        const FailingHeap heap(plan.nth, plan.fromThenOn ? FailingHeap::Mode::kFromThenOn : FailingHeap::Mode::kOnce);
        const bool isWhole = call();
        wasHit = heap.Refused();
        return isWhole;
    }
    FailingFiles files(plan.nth, plan.fromThenOn ? FailingFiles::Mode::kFromThenOn : FailingFiles::Mode::kOnce,
                       plan.error);
    const bool isWhole = call();
    wasHit = files.Stop();
    return isWhole;
}

namespace trial {
namespace {

// Whether the list holds records of those numbers only.
bool AreRecords(std::initializer_list<int32> numbers) {
    for (int32 index = 0; index < NumErrors(); ++index) {
        if (std::find(numbers.begin(), numbers.end(), GetErrorNum(index)) == numbers.end()) return false;
    }
    return true;
}

}  // namespace
}  // namespace trial

bool Trial::Try(const std::function<bool()>& call, const std::function<bool()>& isTold,
                std::initializer_list<int32> records) {
    bool isWhole = false;
    try {
        isWhole = CallUnderFaults(call);
    } catch (...) {
        ADD_FAILURE() << "an exception left the operation";
        return false;
    }
    if (isWhole) return true;
    EXPECT_TRUE(wasHit) << "it failed without a fault";
    EXPECT_TRUE(trial::AreRecords(records)) << NumErrors() << " records, the first of number " << GetErrorNum(0);
    EXPECT_TRUE(isTold()) << "the answer does not tell that it failed";
    EXPECT_TRUE(call()) << "it does not work afterwards";
    return false;
}

bool Is(const wchar16* text, const wchar16* expected) {
    return text != nullptr && std::basic_string_view<wchar16>(text) == expected;
}

}  // namespace Torvo::test
