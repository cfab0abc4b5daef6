// Every exported operation under every fault, and the proof that none was forgotten. The lines that the loops print are
// what the figures of docs/reliability.md are made of.
#include <Utility/errors.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/instance.h>
#include <faults/operations.h>
#include <gtest/gtest.h>
#include <support/failing_heap.h>
#include <support/fixture_path.h>
#include <support/open_handles.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>
#include <set>
#include <thread>

namespace operations_internal_test {
namespace {

using namespace Torvo;
using test::FaultPlan;
using test::LiveBlocks;
using test::Needs;
using test::Operation;
using test::Operations;
using test::Trial;

struct Family {
    const char* name;
    Operations (*operations)();
};

constexpr Family families[] = {
    {"containers", test::ContainerOperations},
    {"dates and times", test::DateTimeOperations},
    {"errors", test::ErrorOperations},
    {"files", test::FileOperations},
    {"frame", test::FrameOperations},
    {"geometry", test::GeometryOperations},
    {"locale", test::LocaleOperations},
    {"numbers", test::NumberOperations},
    {"paths", test::PathOperations},
    {"streams", test::StreamOperations},
    {"text", test::TextOperations},
};

// No operation asks for more than this; one that seems to never comes to an end.
constexpr uint64 kMostFaults = 2000;
// A disk that fails, and one that is full.
constexpr int kErrors[] = {EIO, ENOSPC};

// Whether a row may find that its operation asks for nothing on this system, where the layer is a mere forward or has
// the file in memory. Any other row without a fault would prove nothing.
bool MayMeetNoFault(const Operation& operation) {
    if (std::is_same_v<wchar16, wchar_t>) return true;
    return operation.name == "stream_read, of a compound file" || operation.name == "stream_lseek, of a compound file";
}

// How many expectations of the present test have not been met so far.
int Failures() {
    return testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

// What the loops did to an operation.
struct Tally {
    uint64 requests = 0;  // of memory, in one call
    uint64 calls = 0;     // to the system, in one call
    uint64 faults = 0;    // trials in which a fault was met
    bool isSurvived = false;
};

class FaultLoops {
public:
    explicit FaultLoops(const Operation& tried) : operation(tried) {}

    Tally Run() {
        const int failures = Failures();
        Attempt({});
        if (Failures() != failures) return tally;
        // What is allocated once for all, as an answer to a fault too, is there after the first loop.
        for (const bool isWatched : {false, true}) {
            watchesBlocks = isWatched;
            tally.requests = Loop({.kind = FaultPlan::Kind::kHeap}, &FaultLoops::AttemptHere);
            for (const int error : kErrors) {
                tally.calls = Loop({.kind = FaultPlan::Kind::kSystem, .error = error}, &FaultLoops::AttemptHere);
            }
            Loop({.kind = FaultPlan::Kind::kHeap}, &FaultLoops::AttemptOnANewThread);
        }
        tally.isSurvived = Failures() == failures;
        return tally;
    }

private:
    // Whether a fault was met.
    bool Attempt(const FaultPlan& plan) {
        Trial trial(plan);
        ClearErrors();
        operation.Attempt(trial);
        ClearErrors();
        if (trial.WasHit()) ++tally.faults;
        return trial.WasHit();
    }
    bool AttemptHere(const FaultPlan& plan) {
        const bool wasHit = Attempt(plan);
        Attempt({});
        return wasHit;
    }
    // With services that have not worked yet.
    bool AttemptOnANewThread(const FaultPlan& plan) {
        bool wasHit = false;
        std::thread([&] {
            GetInstanceData();
            wasHit = Attempt(plan);
            InstanceData::Destroy(false, false);
        }).join();
        return wasHit;
    }

    // Fails the 1st, the 2nd, the 3rd, ... until none is met any more; how many there are.
    uint64 Loop(FaultPlan plan, bool (FaultLoops::*attempt)(const FaultPlan&)) {
        const int failures = Failures();
        for (plan.nth = 1; plan.nth <= kMostFaults; ++plan.nth) {
            bool isMet = false;
            for (const bool fromThenOn : {false, true}) {
                plan.fromThenOn = fromThenOn;
                const std::string about = operation.name + ": " + plan.About();
                SCOPED_TRACE(about);
                const int64 blocks = LiveBlocks();
                const int handles = test::OpenHandles();
                isMet = (this->*attempt)(plan) || isMet;
                EXPECT_EQ(test::OpenHandles(), handles) << "handles lost";
                EXPECT_TRUE(static_cast<cFileSystemImpl*>(cFileSystem::Instance())->InvariantsHold());
                if (Failures() != failures) return plan.nth;
                if (watchesBlocks) {
                    EXPECT_EQ(LiveBlocks(), blocks) << "blocks lost, or freed twice";
                }
            }
            if (!isMet) return plan.nth - 1;
        }
        ADD_FAILURE() << operation.name << " never came to an end";
        return plan.nth;
    }

    const Operation& operation;
    bool watchesBlocks = false;
    Tally tally;
};

class FaultsOf : public testing::TestWithParam<Family> {};

TEST_P(FaultsOf, AreToldOrSurvived) {
    uint64 plain = 0;
    for (const Operation& operation : GetParam().operations()) {
        if (operation.needs == Needs::kNothing) {
            ++plain;
            continue;
        }
        const Tally tally = FaultLoops(operation).Run();
        EXPECT_TRUE(tally.faults > 0 || MayMeetNoFault(operation)) << operation.name << ": its row proves nothing";
        std::printf("[  FAULTS  ] %s | %s | %llu | %llu | %llu | %s\n", GetParam().name, operation.name.c_str(),
                    static_cast<unsigned long long>(tally.requests), static_cast<unsigned long long>(tally.calls),
                    static_cast<unsigned long long>(tally.faults), tally.isSurvived ? "survived" : "failed");
    }
    std::printf("[  FAULTS  ] %s | without needs | %llu\n", GetParam().name, static_cast<unsigned long long>(plain));
}

TEST_P(FaultsOf, AreNotMetByOperationsWithoutNeeds) {
    for (const Operation& operation : GetParam().operations()) {
        if (operation.needs != Needs::kNothing) continue;
        SCOPED_TRACE(operation.name);
        Trial first({});
        operation.Attempt(first);
        for (const FaultPlan::Kind kind : {FaultPlan::Kind::kHeap, FaultPlan::Kind::kSystem}) {
            Trial trial({.kind = kind, .fromThenOn = true, .error = EIO});
            operation.Attempt(trial);
            EXPECT_FALSE(trial.WasHit()) << "it asks for "
                                         << (kind == FaultPlan::Kind::kHeap ? "memory" : "the system");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Families, FaultsOf, testing::ValuesIn(families), [](const auto& family) {
    std::string name;
    for (const char c : std::string(family.param.name)) name += c == ' ' ? '_' : c;
    return name;
});

// The name of an exported operation without its parameters; empty for what is none.
std::string OperationOf(const std::string& symbol) {
    if (symbol.rfind("typeinfo ", 0) == 0 || symbol.rfind("vtable ", 0) == 0) return {};
    std::string name = symbol.substr(0, symbol.find('('));
    if (const std::size_t tag = name.find("[abi:"); tag != std::string::npos) name.erase(tag);
    constexpr std::string_view space = "Torvo::";
    return name.rfind(space, 0) == 0 ? name.substr(space.size()) : name;
}

TEST(FaultTable, HoldsEveryExportedOperation) {
    std::set<std::string> rows;
    for (const Family& family : families) {
        for (const Operation& operation : family.operations()) rows.insert(operation.ExportedName());
    }
    std::ifstream symbols(test::SourcePath("tests/exported_symbols.txt"));
    std::set<std::string> exported;
    for (std::string symbol; std::getline(symbols, symbol);) {
        if (!symbol.empty() && symbol.back() == '\r') symbol.pop_back();
        if (const std::string name = OperationOf(symbol); !name.empty()) exported.insert(name);
    }
    EXPECT_GT(exported.size(), 400u);
    for (const std::string& name : exported) EXPECT_EQ(rows.count(name), 1u) << name << " has no row";
    // A row of another name is one of an operation that a class has.
    for (const std::string& name : rows) {
        EXPECT_TRUE(exported.count(name) == 1 || name.find("::") != std::string::npos) << name << " is not exported";
    }
}

}  // namespace
}  // namespace operations_internal_test
