// The C runtime on 16-bit text, and its heap, under the names and with the meaning that the Windows runtime gives them.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// Heap. _msize may tell more than was asked for.
void* malloc(std::size_t size);
void* calloc(std::size_t count, std::size_t size);
void* realloc(void* block, std::size_t size);
void free(void* block);
// The size of a block as the heap knows it; not for null.
std::size_t _msize(void* block);
// The size of the large pages that the system gives a part of a heap block on request; 0 if it gives none.
std::size_t LargePageBytes();
// A large block is going to be used all over: pages of it that were not touched yet may be had in larger pieces. A
// wish: where the system does not take it, nothing happens. errno is left alone.
void WantLargePages(void* block, std::size_t size);

// Text of 16-bit units. Results point into the first argument where the C library's do.
std::size_t wcslen(const wchar16* text);
// The same, and `count` for a text that is longer; not looked at behind that.
std::size_t wcsnlen(const wchar16* text, std::size_t count);
wchar16* wcschr(const wchar16* text, wchar16 unit);
wchar16* wcsrchr(const wchar16* text, wchar16 unit);
wchar16* wcsstr(const wchar16* text, const wchar16* part);
wchar16* wcspbrk(const wchar16* text, const wchar16* set);
std::size_t wcsspn(const wchar16* text, const wchar16* set);
std::size_t wcscspn(const wchar16* text, const wchar16* set);
// The tokenizer with a position of its own per thread.
wchar16* wcstok(wchar16* text, const wchar16* delimiters);
wchar16* wcsncpy(wchar16* target, const wchar16* source, std::size_t count);
int wcsncmp(const wchar16* a, const wchar16* b, std::size_t count);
wchar16* _wcsrev(wchar16* text);
// Comparison that ignores case: A to Z alone while the runtime's character locale is "C", else by towlower. Another
// thread may change that locale meanwhile.
int _wcsicmp(const wchar16* a, const wchar16* b);
int _wcsnicmp(const wchar16* a, const wchar16* b, std::size_t count);
bool iswalpha(wchar16 unit);
bool iswalnum(wchar16 unit);
bool iswprint(wchar16 unit);  // not the tab
// The small letter, of A to Z alone while the runtime's character locale is "C". As above.
wchar16 towlower(wchar16 unit);
// The leading decimal number of a text; 0 when there is none, the nearest limit when it is too large.
int _wtoi(const wchar16* text);

// The four parts of a path: the drive with its colon, the directory with its last separator, the name, the extension
// with its point. The directory has room for that of any path of the working limit.
struct PathParts {
    wchar16 drive[3];
    wchar16 directory[261];
    wchar16 name[256];
    wchar16 extension[256];
};
// Splits a path. False, with four empty parts, when a part does not fit, where the runtime's call writes past it.
bool _wsplitpath(const wchar16* path, PathParts* parts);
// Joins parts to a path of at most `size` units with its terminator, adding the colon, the separator and the point
// where they lack. False, with an empty path, when it does not fit.
bool _wmakepath(wchar16* path, std::size_t size, const wchar16* drive, const wchar16* directory, const wchar16* name,
                const wchar16* extension);

}  // namespace Torvo::platform
