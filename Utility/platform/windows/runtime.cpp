#include <Utility/platform/runtime.h>

#include <malloc.h>

#include <cstdlib>
#include <cwchar>
#include <cwctype>
#include <iterator>

namespace Torvo::platform {

void* malloc(std::size_t size) {
    return std::malloc(size);
}

void* calloc(std::size_t count, std::size_t size) {
    return std::calloc(count, size);
}

void* realloc(void* block, std::size_t size) {
    return std::realloc(block, size);
}

void free(void* block) {
    std::free(block);
}

std::size_t _msize(void* block) {
    return ::_msize(block);
}

// Large pages are a privilege there, and not to be had for a part of the heap.
std::size_t LargePageBytes() {
    return 0;
}

void WantLargePages(void* /*block*/, std::size_t /*size*/) {}

std::size_t wcslen(const wchar16* text) {
    return std::wcslen(text);
}

std::size_t wcsnlen(const wchar16* text, std::size_t count) {
    return ::wcsnlen(text, count);
}

wchar16* wcschr(const wchar16* text, wchar16 unit) {
    return const_cast<wchar16*>(std::wcschr(text, unit));
}

wchar16* wcsrchr(const wchar16* text, wchar16 unit) {
    return const_cast<wchar16*>(std::wcsrchr(text, unit));
}

// Not every runtime finds the empty part in an empty text.
wchar16* wcsstr(const wchar16* text, const wchar16* part) {
    if (*part == 0) return const_cast<wchar16*>(text);
    return const_cast<wchar16*>(std::wcsstr(text, part));
}

wchar16* wcspbrk(const wchar16* text, const wchar16* set) {
    return const_cast<wchar16*>(std::wcspbrk(text, set));
}

std::size_t wcsspn(const wchar16* text, const wchar16* set) {
    return std::wcsspn(text, set);
}

std::size_t wcscspn(const wchar16* text, const wchar16* set) {
    return std::wcscspn(text, set);
}

wchar16* wcstok(wchar16* text, const wchar16* delimiters) {
    return ::wcstok(text, delimiters);
}

wchar16* wcsncpy(wchar16* target, const wchar16* source, std::size_t count) {
    return std::wcsncpy(target, source, count);
}

int wcsncmp(const wchar16* a, const wchar16* b, std::size_t count) {
    return std::wcsncmp(a, b, count);
}

wchar16* _wcsrev(wchar16* text) {
    return ::_wcsrev(text);
}

int _wcsicmp(const wchar16* a, const wchar16* b) {
    return ::_wcsicmp(a, b);
}

int _wcsnicmp(const wchar16* a, const wchar16* b, std::size_t count) {
    return ::_wcsnicmp(a, b, count);
}

bool iswalpha(wchar16 unit) {
    return std::iswalpha(unit) != 0;
}

bool iswalnum(wchar16 unit) {
    return std::iswalnum(unit) != 0;
}

// The older runtimes let the tab print.
bool iswprint(wchar16 unit) {
    return unit != '\t' && std::iswprint(unit) != 0;
}

wchar16 towlower(wchar16 unit) {
    return static_cast<wchar16>(std::towlower(unit));
}

int _wtoi(const wchar16* text) {
    return ::_wtoi(text);
}

bool _wsplitpath(const wchar16* path, PathParts* parts) {
    const bool fits =
        ::_wsplitpath_s(path, parts->drive, std::size(parts->drive), parts->directory, std::size(parts->directory),
                        parts->name, std::size(parts->name), parts->extension, std::size(parts->extension)) == 0;
    if (!fits) *parts = {};
    return fits;
}

bool _wmakepath(wchar16* path, std::size_t size, const wchar16* drive, const wchar16* directory, const wchar16* name,
                const wchar16* extension) {
    if (size == 0) return false;
    if (::_wmakepath_s(path, size, drive, directory, name, extension) == 0) return true;
    *path = 0;
    return false;
}

}  // namespace Torvo::platform
