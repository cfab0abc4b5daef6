// The error list behind cErrorSystem.
#pragma once

#include <Utility/errors.h>

#include <array>
#include <string_view>

namespace Torvo {

// A piece of the text pool, in units.
struct TextSpan {
    uint64 start = 0;
    uint64 length = 0;
};

// One place of the list. As constructed it is unused.
struct ErrorRecord {
    eErrorLevel level = {};
    wstring16 format;
    GUID guid = {};
    int32 resourceId = 0;
    int32 errorNumber = 0;  // 0 in an unused record, -1 in one that ends a group
    TextSpan prefix;
    TextSpan param0;
    TextSpan param1;
};

// The numbers of a list's records, side by side, so that a search looks at all of them at once.
class ErrorNumbers {
public:
    void Set(int32 index, int32 number) { numbers[static_cast<uint64>(index)] = number; }
    void Clear() { numbers = {}; }
    // The lowest index below `count` with that number, or -1.
    int32 Find(int32 number, int32 count) const;

private:
    alignas(16) std::array<int32, 32> numbers{};
};

// The records that are stored stand at the front, in the order in which they were raised, and their texts lie in the
// pool in that order, back to back: the spans of a record follow each other, and those of the first start at 0.
class cErrorSystemImpl final : public cErrorSystem {
public:
    enum eCreateError { OutOfMemory = 1 };

    static constexpr int32 RecordCount = 30;
    // The most units that the pool may hold. A message ends one unit below it.
    static constexpr uint64 MostText = 0x7FFFFFFFFFFFFFFE;
    // Room for texts from the start, so that errors can still be told when memory is short.
    static constexpr uint64 FirstRoom = 1024;

    // Throws eCreateError if there is no memory for `firstRoom` units.
    explicit cErrorSystemImpl(uint64 firstRoom = FirstRoom, uint64 mostText = MostText);

    bool HaveErrors() override;
    int32 NumErrors() override;
    bool FirstError() override;
    void ClearErrors() override;
    bool GetNextError(bool first, wchar16* buffer, uint64 size) override;
    bool ThisErrorOccurred(int32 number) override;
    int32 GetErrorNum(int32 index) override;
    int32 GetResourceID(int32 index) override;
    const GUID& GetErrorGUID(int32 index) override;
    void GetErrorMsg(const wchar16* format, uint64 index, wchar16* buffer, uint64 size) override;
    void SetError(eErrorLevel level, int32 resourceId, const wchar16* format, const GUID& guid, int32 number,
                  const wchar16* param0, const wchar16* param1) override;
    void SetError(eErrorLevel level, const wchar16* format, const GUID& guid, int32 number, const wchar16* param0,
                  const wchar16* param1) override;
    void EndError() override;
    void SetErrorFunctions(cErrorFuncs* functions) override;
    void ReportErrorsTo(void (*report)(const wchar16* text)) override;
    void ReportErrors() override;
    void SetZUErrorMode(eErrorMode newMode) override;
    eErrorMode GetZUErrorMode() override;
    void EnumerateErrors(ErrorVisitor visitor, bool clearAfterwards) override;

private:
    using TextView = std::basic_string_view<wchar16>;

    bool Suppressed() const;
    ErrorRecord* FindStanding(int32 number);
    int32 TakePlace();
    void StoreTexts(ErrorRecord* record, uint64 start, const wchar16* param0, const wchar16* param1);
    TextSpan AddText(const wchar16* text, uint64 start);
    const ErrorRecord& RecordAt(int64 index) const;
    bool IsLive(int32 index) const;
    TextView TextOf(const TextSpan& span) const;
    bool Compose(const ErrorRecord& record);
    template <typename Accept>
    bool ReadGroup(bool first, const Accept& accept);
    template <typename Report>
    void TellAndClear(const Report& report);

    int32 attemptCount = 0;   // places taken, at most RecordCount: how far the search for repeats goes
    int32 cursor = 0;         // where GetNextError and EnumerateErrors stand
    int32 storedCount = 0;    // records stored
    int32 sinceEndError = 0;  // records stored since the last end of a group
    bool overflowed = false;  // information has been lost
    std::array<ErrorRecord, RecordCount> records;
    // The numbers of the records once more, side by side: the search for a repeat reads nothing else.
    ErrorNumbers numbers;
    wstring16 textPool;
    wstring16 scratch;             // the message composed last
    cErrorFuncs* funcs = nullptr;  // the application's
    eErrorMode mode = ERRORMODE_DEFAULT;
    const uint64 textLimit;
};

}  // namespace Torvo
