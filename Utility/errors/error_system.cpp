#include <Utility/errors/error_system.h>

#include <Utility/bounded_copy.h>
#include <Utility/errors/message_composer.h>
#include <Utility/number_parsing.h>
#include <Utility/platform/platform.h>
#include <emmintrin.h>

#include <algorithm>
#include <bit>
#include <iterator>
#include <new>
#include <stdexcept>

namespace Torvo {

namespace {

constexpr int32 EndOfGroup = -1;
constexpr int32 NumberInText = 15;  // its real number is the text of the first parameter

constexpr wchar16 LostText[] = ZUTEXT(" Too many errors.  Error information has been lost.");
constexpr uint64 LostLength = std::size(LostText) - 1;

// Runs what may need memory; false if there was none.
template <typename Action>
bool WithMemory(const Action& action) {
    try {
        action();
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
    return true;
}

// A buffer of a caller, filled from the front.
class MessageBuffer {
public:
    MessageBuffer(wchar16* units, uint64 unitCount) : buffer(units), size(units != nullptr ? unitCount : 0) {
        if (size > 0) *buffer = 0;
    }

    // Appends a message, less one line feed at its end, and a space. False, and no change, if it does not fit.
    bool Append(std::basic_string_view<wchar16> message) {
        if (length + 1 + message.size() >= size) return false;
        if (message.ends_with('\n')) message.remove_suffix(1);
        length = static_cast<uint64>(std::copy(message.begin(), message.end(), buffer + length) - buffer);
        buffer[length++] = ' ';
        buffer[length] = 0;
        return true;
    }

    // Tells that information was lost, over the end of what stands there if there is no room behind it.
    void AppendLostText() {
        if (size <= LostLength) {
            strcpyn(buffer, LostText, size);
            return;
        }
        const uint64 last = size - LostLength - 1;
        std::copy(std::begin(LostText), std::end(LostText), buffer + (length < last ? length : last));
    }

private:
    wchar16* const buffer;
    const uint64 size;
    uint64 length = 0;
};

void Visit(ErrorVisitor visitor, const ErrorRecord& record, std::basic_string_view<wchar16> param0,
           std::basic_string_view<wchar16> param1) {
    const int32 number = record.errorNumber;
    const wchar16* const start0 = param0.data();
    const wchar16* const start1 = param1.data();
    const int32 length0 = static_cast<int32>(param0.size());
    const int32 length1 = static_cast<int32>(param1.size());
    visitor(&record.guid, &number, &start0, &length0, &start1, &length1);
}

}  // namespace

// All of them are compared, one bit each: where a walk would stop cannot be predicted, and costs more than the rest.
int32 ErrorNumbers::Find(int32 number, int32 count) const {
    const __m128i wanted = _mm_set1_epi32(number);
    const auto* const fours = reinterpret_cast<const __m128i*>(numbers.data());
    const auto equal = [&](int four) { return _mm_cmpeq_epi32(_mm_load_si128(fours + four), wanted); };
    const auto sixteen = [&](int four) {
        const __m128i low = _mm_packs_epi32(equal(four), equal(four + 1));
        const __m128i high = _mm_packs_epi32(equal(four + 2), equal(four + 3));
        return static_cast<uint64>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
    };
    const uint64 found = (sixteen(0) | sixteen(4) << 16) & ((uint64{1} << count) - 1);
    return found != 0 ? std::countr_zero(found) : -1;
}

cErrorSystemImpl::cErrorSystemImpl(uint64 firstRoom, uint64 mostText) : textLimit(mostText) {
    const bool reserved = WithMemory([&] {
        textPool.reserve(firstRoom);
        scratch.reserve(firstRoom);
    });
    if (!reserved) throw OutOfMemory;
}

bool cErrorSystemImpl::Suppressed() const {
    return funcs != nullptr && funcs->ErrorsSuppressed();
}

bool cErrorSystemImpl::HaveErrors() {
    return !Suppressed() && storedCount > 0;
}

int32 cErrorSystemImpl::NumErrors() {
    return storedCount;
}

bool cErrorSystemImpl::FirstError() {
    return sinceEndError == 0;
}

void cErrorSystemImpl::ClearErrors() {
    for (int32 i = 0; i < storedCount; ++i) {
        ErrorRecord& record = records[static_cast<uint64>(i)];
        record.level = {};
        record.format.clear();
        record.guid = {};
        record.errorNumber = 0;
        record.prefix = record.param0 = record.param1 = {};
    }
    numbers.Clear();
    attemptCount = cursor = storedCount = sinceEndError = 0;
    overflowed = false;
    textPool.clear();
    scratch.clear();
}

// The record of a number, if the number is to be told once.
ErrorRecord* cErrorSystemImpl::FindStanding(int32 number) {
    if (number == EndOfGroup || (funcs != nullptr && funcs->KeepDuplicateErrors())) return nullptr;
    const int32 found = numbers.Find(number, attemptCount);
    return found >= 0 ? &records[static_cast<uint64>(found)] : nullptr;
}

// The place for a new record, or -1 where none is taken any more.
int32 cErrorSystemImpl::TakePlace() {
    if (attemptCount >= RecordCount) {
        overflowed = true;
        return -1;
    }
    const int32 place = attemptCount++;
    return overflowed ? -1 : place;
}

void cErrorSystemImpl::SetError(eErrorLevel level, int32 resourceId, const wchar16* format, const GUID& guid,
                                int32 number, const wchar16* param0, const wchar16* param1) {
    if (Suppressed()) return;
    if (ErrorRecord* const standing = FindStanding(number)) {
        standing->level = std::max(standing->level, level);
        return;
    }
    const int32 place = TakePlace();
    if (place < 0) return;
    ErrorRecord& record = records[static_cast<uint64>(place)];
    record.level = level;
    record.resourceId = resourceId;
    if (format != nullptr && !WithMemory([&] { record.format = format; })) overflowed = true;
    record.guid = guid;
    record.errorNumber = number;
    numbers.Set(place, number);
    const TextSpan before = place > 0 ? records[static_cast<uint64>(place) - 1].param1 : TextSpan();
    StoreTexts(&record, before.start + before.length, param0, param1);
    ++storedCount;
    ++sinceEndError;
}

void cErrorSystemImpl::StoreTexts(ErrorRecord* record, uint64 start, const wchar16* param0, const wchar16* param1) {
    record->prefix = AddText(funcs != nullptr ? funcs->GetErrorPrefix(sinceEndError) : nullptr, start);
    record->param0 = AddText(param0, record->prefix.start + record->prefix.length);
    record->param1 = AddText(param1, record->param0.start + record->param0.length);
}

// Appends a text, which may be null, to the pool, whose end is at `start`; cut to the room that is left.
TextSpan cErrorSystemImpl::AddText(const wchar16* text, uint64 start) {
    if (text == nullptr) return {start, 0};
    uint64 length = platform::wcslen(text);
    if (length > textLimit - start) {
        length = textLimit - start;
        overflowed = true;
    }
    if (!WithMemory([&] { textPool.append(text, length); })) {
        overflowed = true;
        return {start, 0};
    }
    return {start, length};
}

void cErrorSystemImpl::SetError(eErrorLevel level, const wchar16* format, const GUID& guid, int32 number,
                                const wchar16* param0, const wchar16* param1) {
    SetError(level, -1, format, guid, number, param0, param1);
}

void cErrorSystemImpl::EndError() {
    if (sinceEndError == 0) return;
    SetError(ERRORLEVEL_END_OF_GROUP, ZUTEXT(""), GUID{}, EndOfGroup, nullptr, nullptr);
    sinceEndError = 0;
}

// The record at an index; outside the list, one that is unused.
const ErrorRecord& cErrorSystemImpl::RecordAt(int64 index) const {
    static const ErrorRecord unused;
    return index >= 0 && index < RecordCount ? records[static_cast<uint64>(index)] : unused;
}

// Whether a record has a message, or at least a place in a group.
bool cErrorSystemImpl::IsLive(int32 index) const {
    const int32 number = RecordAt(index).errorNumber;
    return number != 0 && number != EndOfGroup;
}

// What is there of a span. All of it, unless a callback has cleared the list while the record was stored.
cErrorSystemImpl::TextView cErrorSystemImpl::TextOf(const TextSpan& span) const {
    const TextView pool = textPool;
    return span.start <= pool.size() ? pool.substr(span.start, span.length) : TextView();
}

// Composes a message into `scratch`; false if memory is short.
bool cErrorSystemImpl::Compose(const ErrorRecord& record) {
    return WithMemory([&] {
        scratch = TextOf(record.prefix);
        if (record.errorNumber == 0) return;
        ComposeMessage(&scratch, record.format.c_str(), TextOf(record.param0), TextOf(record.param1), textLimit - 1);
    });
}

// Composes the messages of a group, each into `scratch`, and lets `accept` take them; one that it refuses, or that
// cannot be composed, ends the reading in the state of overflow. The result is whether there is a group.
template <typename Accept>
bool cErrorSystemImpl::ReadGroup(bool first, const Accept& accept) {
    if (first) cursor = 0;
    const bool found = IsLive(cursor);
    int32 index = cursor;
    // Past the list all places are alike, so the cursor need not go further than one behind it.
    const auto advance = [this] { cursor = std::min(cursor + 1, RecordCount); };
    advance();
    while (!overflowed && IsLive(index)) {
        if (!Compose(records[static_cast<uint64>(index)]) || !accept(scratch)) overflowed = true;
        ++index;
        advance();
    }
    return found;
}

bool cErrorSystemImpl::GetNextError(bool first, wchar16* buffer, uint64 size) {
    MessageBuffer messages(buffer, size);
    const bool found = ReadGroup(first, [&](TextView message) { return messages.Append(message); });
    if (overflowed) messages.AppendLostText();
    return found;
}

// Composes the first group, clears the list, and hands the text over if there was a group.
template <typename Report>
void cErrorSystemImpl::TellAndClear(const Report& report) {
    wstring16 text;
    const bool found = ReadGroup(true, [&](TextView message) {
        if (message.ends_with('\n')) message.remove_suffix(1);
        return WithMemory([&] { (text += message) += ' '; });
    });
    const bool lost = overflowed;
    ClearErrors();
    if (found) report(lost ? LostText : text.c_str());
}

void cErrorSystemImpl::ReportErrorsTo(void (*report)(const wchar16* text)) {
    TellAndClear([&](const wchar16* text) {
        if (report != nullptr) report(text);
    });
}

void cErrorSystemImpl::ReportErrors() {
    TellAndClear([&](const wchar16* text) {
        if (funcs != nullptr) funcs->ReportErrorText(text);
    });
}

bool cErrorSystemImpl::ThisErrorOccurred(int32 number) {
    return numbers.Find(number, RecordCount) >= 0;
}

int32 cErrorSystemImpl::GetErrorNum(int32 index) {
    const ErrorRecord& record = RecordAt(index);
    if (record.errorNumber != NumberInText) return record.errorNumber;
    if (record.param0.start > textPool.size()) throw std::out_of_range("GetErrorNum: the text of the error is gone");
    int number = 0;
    StringToInt(textPool.c_str() + record.param0.start, &number, nullptr);
    return number;
}

int32 cErrorSystemImpl::GetResourceID(int32 index) {
    return RecordAt(index).resourceId;
}

const GUID& cErrorSystemImpl::GetErrorGUID(int32 index) {
    return RecordAt(index).guid;
}

void cErrorSystemImpl::GetErrorMsg(const wchar16* format, uint64 index, wchar16* buffer, uint64 size) {
    const bool inList = index < records.size();
    if (inList && format != nullptr && !WithMemory([&] { records[index].format = format; })) overflowed = true;
    if (!Compose(RecordAt(inList ? static_cast<int64>(index) : RecordCount))) overflowed = true;
    if (buffer != nullptr) strcpyn(buffer, scratch.c_str(), std::min<uint64>(size, scratch.size() + 1));
}

void cErrorSystemImpl::SetErrorFunctions(cErrorFuncs* functions) {
    funcs = functions;
}

void cErrorSystemImpl::SetZUErrorMode(eErrorMode newMode) {
    mode = newMode;
}

eErrorMode cErrorSystemImpl::GetZUErrorMode() {
    return mode;
}

void cErrorSystemImpl::EnumerateErrors(ErrorVisitor visitor, bool clearAfterwards) {
    cursor = 0;
    while (!overflowed && IsLive(cursor)) {
        const ErrorRecord& record = RecordAt(cursor);
        if (visitor != nullptr) Visit(visitor, record, TextOf(record.param0), TextOf(record.param1));
        cursor = std::min(cursor + 1, RecordCount);
    }
    if (clearAfterwards) ClearErrors();
}

}  // namespace Torvo
