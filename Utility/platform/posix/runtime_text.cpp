#include <Utility/platform/number_text.h>
#include <Utility/platform/posix/runtime_case.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text_scan.h>
#include <Utility/platform/unit_set.h>

#include <algorithm>

namespace Torvo::platform {

namespace {

wchar16* Writable(const wchar16* text) {
    return const_cast<wchar16*>(text);
}

std::size_t Distance(const wchar16* first, const wchar16* last) {
    return static_cast<std::size_t>(last - first);
}

// The first unit at or after `text` that is one of the `count` units at `set`, or the terminator.
const wchar16* FindInSet(const wchar16* text, const wchar16* set, std::size_t count) {
    if (count == 0) return scan::FindEnd(text);
    if (count <= 3) return scan::FindFirst(text, scan::OneOf(set[0], set[count / 2], set[count - 1], 0));
    const UnitSet units(set, count);
    while (*text != 0 && !units.Contains(*text)) ++text;
    return text;
}

template <typename Limit>
int CompareIgnoringCase(const wchar16* a, const wchar16* b, Limit limit) {
    const std::size_t count = limit;
    const std::size_t index = scan::FirstDifferenceOrEnd<true>(a, b, limit);
    if (index == count) return 0;
    const wchar16 left = a[index];
    const wchar16 right = b[index];
    // Most often the end of both.
    if (left == right) return 0;
    if ((left | right) >= 0x80) [[unlikely]]
        return CompareByCharacterLocale(a + index, b + index, count - index);
    return scan::FoldUnit(left) - scan::FoldUnit(right);
}

}  // namespace

std::size_t wcslen(const wchar16* text) {
    return Distance(text, scan::FindEnd(text));
}

std::size_t wcsnlen(const wchar16* text, std::size_t count) {
    return scan::LengthWithin(text, count);
}

wchar16* wcschr(const wchar16* text, wchar16 unit) {
    const wchar16* const found = scan::FindFirst(text, scan::EitherOf(unit, 0));
    return *found == unit ? Writable(found) : nullptr;
}

wchar16* wcsrchr(const wchar16* text, wchar16 unit) {
    const wchar16* const end = scan::FindEnd(text);
    if (unit == 0) return Writable(end);
    return Writable(scan::FindLast(text, end, unit));
}

wchar16* wcsstr(const wchar16* text, const wchar16* part) {
    const std::size_t length = wcslen(part);
    if (length == 0) return Writable(text);
    for (;; ++text) {
        text = wcschr(text, *part);
        if (text == nullptr) return nullptr;
        // Equal up to the part's end means equal; the text's own end differs from every unit of the part.
        if (scan::FirstDifferenceOrEnd<false>(text, part, length) == length) return Writable(text);
    }
}

wchar16* wcspbrk(const wchar16* text, const wchar16* set) {
    const wchar16* const found = FindInSet(text, set, wcslen(set));
    return *found != 0 ? Writable(found) : nullptr;
}

std::size_t wcsspn(const wchar16* text, const wchar16* set) {
    const UnitSet units(set, wcslen(set));
    const wchar16* last = text;
    while (*last != 0 && units.Contains(*last)) ++last;
    return Distance(text, last);
}

std::size_t wcscspn(const wchar16* text, const wchar16* set) {
    return Distance(text, FindInSet(text, set, wcslen(set)));
}

// A null text goes on where the last call on this thread stopped; without such a call there is no token.
wchar16* wcstok(wchar16* text, const wchar16* delimiters) {
    thread_local wchar16* position = nullptr;
    if (text == nullptr) text = position;
    if (text == nullptr) return nullptr;
    text += wcsspn(text, delimiters);
    position = text + wcscspn(text, delimiters);
    if (position == text) return nullptr;
    if (*position != 0) *position++ = 0;
    return text;
}

wchar16* wcsncpy(wchar16* target, const wchar16* source, std::size_t count) {
    const std::size_t length = wcsnlen(source, count);
    std::copy_n(source, length, target);
    std::fill_n(target + length, count - length, wchar16{0});
    return target;
}

int wcsncmp(const wchar16* a, const wchar16* b, std::size_t count) {
    const std::size_t index = scan::FirstDifferenceOrEnd<false>(a, b, count);
    if (index == count || a[index] == b[index]) return 0;
    return a[index] < b[index] ? -1 : 1;
}

wchar16* _wcsrev(wchar16* text) {
    std::reverse(text, text + wcslen(text));
    return text;
}

int _wcsicmp(const wchar16* a, const wchar16* b) {
    return CompareIgnoringCase(a, b, scan::WithoutLimit());
}

int _wcsnicmp(const wchar16* a, const wchar16* b, std::size_t count) {
    return CompareIgnoringCase(a, b, count);
}

int _wtoi(const wchar16* text) {
    return wcstol(text, nullptr, 10);
}

}  // namespace Torvo::platform
