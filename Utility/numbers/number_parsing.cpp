#include <Utility/number_parsing.h>

#include <Utility/number_printing.h>
#include <Utility/numbers/plain_number.h>
#include <Utility/platform/number_text.h>
#include <Utility/platform/runtime.h>

#include <algorithm>
#include <cerrno>
#include <limits>

namespace Torvo {

namespace {

// The one way in which every reader here ends.
template <typename T>
bool Finish(bool read, T number, T* value, wchar16** end, wchar16* after) {
    if (value == nullptr) read = false;
    if (value != nullptr) *value = read ? number : T{0};
    if (end != nullptr) *end = read ? after : nullptr;
    return read;
}

// Reads a number by one of the runtime's readers; `accepts` tells whether the result is one that the caller takes.
template <typename T, typename Read, typename Accept>
bool ReadNumber(const wchar16* text, T* value, wchar16** end, Read read, Accept accepts) {
    if (text == nullptr) return Finish(false, T{0}, value, end, nullptr);
    wchar16* after;
    const auto number = read(text, &after);
    return Finish(after != text && accepts(number), static_cast<T>(number), value, end, after);
}

// Ends a reading by the fast lane.
template <typename T>
bool FinishPlain(bool accepted, T number, T* value, wchar16** end, const wchar16* after) {
    return Finish(accepted, number, value, end, const_cast<wchar16*>(after));
}

template <typename T>
bool ReadSigned(const wchar16* text, T* value, wchar16** end, int32 min, int32 max) {
    if (text == nullptr) return Finish(false, T{0}, value, end, nullptr);
    errno = 0;
    int64 plain;
    if (const wchar16* const after = ReadPlainInteger(text, &plain)) {
        const bool accepted = plain >= min && plain <= max;
        if (!accepted && plain != static_cast<int32>(plain)) errno = ERANGE;
        return FinishPlain(accepted, static_cast<T>(plain), value, end, after);
    }
    return ReadNumber(
        text, value, end, [](const wchar16* from, wchar16** after) { return platform::wcstol(from, after, 10); },
        [min, max](long32 number) { return errno != ERANGE && number >= min && number <= max; });
}

template <typename T>
bool ReadUnsigned(const wchar16* text, T* value, wchar16** end, int base) {
    if (text != nullptr) errno = 0;
    return ReadNumber(
        text, value, end, [base](const wchar16* from, wchar16** after) { return platform::wcstoul(from, after, base); },
        [](ulong32) { return errno != ERANGE; });
}

constexpr auto Anything = [](auto) { return true; };

// A text as a FmtCtl reader is to read it: brought from the UI form into the neutral one in a buffer, or as it stands.
// Null for a text that is null, or too long for the buffer.
class ControlText {
public:
    ControlText(const wchar16* text, bool deformat) : read(text) {
        if (!deformat || text == nullptr) return;
        const wchar16* const limit = text + std::size(buffer);
        const bool fits = std::find(text, limit, wchar16{0}) != limit;
        if (fits) DeformatNumberFromUI(text, buffer);
        read = fits ? buffer : nullptr;
    }
    ControlText(const ControlText&) = delete;
    ControlText& operator=(const ControlText&) = delete;

    operator const wchar16*() const { return read; }

private:
    wchar16 buffer[100];
    const wchar16* read;
};

constexpr int32 MinInt32 = std::numeric_limits<int32>::min();
constexpr int32 MaxInt32 = std::numeric_limits<int32>::max();
constexpr int32 MinInt16 = std::numeric_limits<int16>::min();
constexpr int32 MaxInt16 = std::numeric_limits<int16>::max();

}  // namespace

bool StringToInt32(const wchar16* text, int32* value, wchar16** end, int32 min, int32 max) {
    return ReadSigned(text, value, end, min, max);
}

bool StringToInt32FmtCtl(const wchar16* text, int32* value, bool deformat, int32 min, int32 max) {
    return ReadSigned(ControlText(text, deformat), value, nullptr, min, max);
}

bool StringToInt(const wchar16* text, int* value, wchar16** end) {
    return ReadSigned(text, value, end, MinInt32, MaxInt32);
}

bool StringToIntFmtCtl(const wchar16* text, int* value, bool deformat) {
    return ReadSigned(ControlText(text, deformat), value, nullptr, MinInt32, MaxInt32);
}

bool StringToShort(const wchar16* text, int16* value, wchar16** end) {
    return ReadSigned(text, value, end, MinInt16, MaxInt16);
}

bool StringToShortFmtCtl(const wchar16* text, int16* value, bool deformat) {
    return ReadSigned(ControlText(text, deformat), value, nullptr, MinInt16, MaxInt16);
}

bool StringToUnsignedInt32(const wchar16* text, uint32* value, wchar16** end, int base) {
    return ReadUnsigned(text, value, end, base);
}

bool StringToUnsignedInt32FmtCtl(const wchar16* text, uint32* value, bool deformat) {
    return ReadUnsigned(ControlText(text, deformat), value, nullptr, 10);
}

bool StringToUnsignedInt(const wchar16* text, unsigned int* value, wchar16** end) {
    return ReadUnsigned(text, value, end, 10);
}

bool StringToUnsignedLong16(const wchar16* text, uint32* value) {
    return ReadUnsigned(text, value, nullptr, 16);
}

bool StringToInt64(const wchar16* text, int64* value) {
    return ReadNumber(
        text, value, nullptr, [](const wchar16* from, wchar16** after) { return platform::_wcstoi64(from, after, 10); },
        Anything);
}

bool StringToInt64FmtCtl(const wchar16* text, int64* value, bool deformat) {
    return StringToInt64(ControlText(text, deformat), value);
}

bool StringToUnsignedInt64(const wchar16* text, uint64* value) {
    return ReadNumber(
        text, value, nullptr,
        [](const wchar16* from, wchar16** after) { return platform::_wcstoui64(from, after, 10); }, Anything);
}

bool StringToUnsignedInt64FmtCtl(const wchar16* text, uint64* value, bool deformat) {
    return StringToUnsignedInt64(ControlText(text, deformat), value);
}

// The runtime's readers would take its locale's decimal mark for the point; ours take the mark that they are given, so
// no locale can get between. What a text may hold beyond decimal digits still depends on it.
bool StringToDouble(const wchar16* text, double* value, wchar16** end) {
    if (text == nullptr) return Finish(false, 0.0, value, end, nullptr);
    errno = 0;
    double plain;
    if (const wchar16* const after = ReadPlainDouble(text, &plain)) return FinishPlain(true, plain, value, end, after);
    return ReadNumber(
        text, value, end,
        [](const wchar16* from, wchar16** after) {
            const bool all = platform::NumericLocaleIsC();
            return platform::ReadDouble(from, after, '.',
                                        all ? platform::NumberForms::All : platform::NumberForms::Decimal);
        },
        [](double) { return errno != ERANGE; });
}

bool StringToDoubleFmtCtl(const wchar16* text, double* value, bool deformat) {
    return StringToDouble(ControlText(text, deformat), value, nullptr);
}

}  // namespace Torvo
