// The exported operations, as the loops of faults try them.
//
// Each operation is a row of a table, by family. Most need neither memory nor the system, and a call of theirs is all
// that the row holds: the test counts that it asks for nothing. The others are tried with every request of memory
// refused and every call to the system failing in its turn, once and from then on, and must then say that they failed
// or do their work all the same, lose nothing, and work when they are called again.
#pragma once

#include <Utility/platform/types.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace Torvo::test {

// What is made to fail during a trial.
struct FaultPlan {
    enum class Kind { kNone, kHeap, kSystem };
    Kind kind = Kind::kNone;
    uint64 nth = 1;
    bool fromThenOn = false;
    int error = 0;  // of a call to the system

    std::string About() const;
};

// One run of a row. What the row sets up before Try and tears down after it meets no fault.
class Trial {
public:
    explicit Trial(const FaultPlan& faults) : plan(faults) {}

    // Makes the call that is meant, once in a row, and tells whether its whole answer is there, as `call` says. If it
    // is not, then a fault must have been met, the answer must be the one that stands for the failure, as `isTold`
    // says, and the same call must work afterwards.
    // `records` are the numbers of the errors that a failure may raise; without them it raises none.
    bool Try(
        const std::function<bool()>& call, const std::function<bool()>& isTold = [] { return true; },
        std::initializer_list<int32> records = {});

    bool WasHit() const { return wasHit; }
    // Whether everything fails from the first fault on, also what would put things right.
    bool Lasts() const { return plan.fromThenOn; }

private:
    bool CallUnderFaults(const std::function<bool()>& call);

    const FaultPlan plan;
    bool wasHit = false;
};

// Tries a call that makes an object: null is its failure. The object is deleted.
template <typename Make>
void TryToMake(Trial& trial, Make make) {
    decltype(make()) made = nullptr;
    trial.Try(
        [&] {
            made = make();
            return made != nullptr;
        },
        [&] { return made == nullptr; });
    delete made;
}

// What an operation asks for: nothing at all, or memory, or calls to the system. A layer that is more than a forward to
// the system needs memory for some of its calls.
enum class Needs { kNothing, kSomething };

struct Operation {
    // Of an operation without needs: `call` tells whether the answer is the right one.
    Operation(const char* operationName, bool (*call)()) : name(operationName), plainCall(call) {}
    Operation(const char* operationName, void (*row)(Trial&))
        : name(operationName), needs(Needs::kSomething), attempt(row) {}

    void Attempt(Trial& trial) const {
        if (attempt != nullptr) {
            attempt(trial);
        } else {
            trial.Try(plainCall);
        }
    }
    // As it is exported, without parameters; what follows a comma tells rows of one name apart.
    std::string ExportedName() const { return name.substr(0, name.find(',')); }

    std::string name;
    Needs needs = Needs::kNothing;
    bool (*plainCall)() = nullptr;
    void (*attempt)(Trial&) = nullptr;
};

using Operations = std::vector<Operation>;
Operations ContainerOperations();
Operations DateTimeOperations();
Operations ErrorOperations();
Operations FileOperations();
Operations FrameOperations();
Operations GeometryOperations();
Operations NumberOperations();
Operations PathOperations();
Operations StreamOperations();
Operations TextOperations();
Operations LocaleOperations();

// Whether two texts are the same; neither memory nor the library is asked.
bool Is(const wchar16* text, const wchar16* expected);

// A text that may be written over, in a buffer of the size that paths have.
struct TextBuffer {
    TextBuffer() = default;
    explicit TextBuffer(const wchar16* text) {
        for (wchar16* to = units; (*to = *text) != 0; ++to) ++text;
    }
    explicit TextBuffer(const wstring16& text) : TextBuffer(text.c_str()) {}
    bool Is(const wchar16* expected) const { return test::Is(units, expected); }

    wchar16 units[520] = {};
};

}  // namespace Torvo::test
