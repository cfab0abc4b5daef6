// Threads: slots of thread-local storage with run-time indices, critical sections, the thread's last error.
#pragma once

#include <Utility/platform/types.h>

#if !defined(_WIN32)
#include <Utility/platform/posix/thread_slots.h>
#include <pthread.h>
#endif

namespace Torvo {

// The error numbers that the library or its tests look at. On Windows they are macros of the same names.
#if !defined(_WIN32)
inline constexpr uint32 ERROR_SUCCESS = 0;
inline constexpr uint32 ERROR_FILE_NOT_FOUND = 2;
inline constexpr uint32 ERROR_INVALID_HANDLE = 6;
inline constexpr uint32 ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr uint32 ERROR_NOT_LOCKED = 158;
inline constexpr uint32 ERROR_BAD_EXE_FORMAT = 193;
inline constexpr uint32 ERROR_INVALID_PARAMETER = 87;
inline constexpr uint32 ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr uint32 ERROR_MOD_NOT_FOUND = 126;
inline constexpr uint32 ERROR_PROC_NOT_FOUND = 127;
inline constexpr uint32 ERROR_INVALID_FLAGS = 1004;
inline constexpr uint32 ERROR_NO_UNICODE_TRANSLATION = 1113;
inline constexpr uint32 ERROR_RESOURCE_TYPE_NOT_FOUND = 1813;
inline constexpr uint32 ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
#endif

namespace platform {

#if defined(_WIN32)
using ::CRITICAL_SECTION;
#else
// A recursive mutex.
struct CRITICAL_SECTION {
    pthread_mutex_t mutex;
};
#endif

void InitializeCriticalSection(CRITICAL_SECTION* section);
void DeleteCriticalSection(CRITICAL_SECTION* section);
void EnterCriticalSection(CRITICAL_SECTION* section);
void LeaveCriticalSection(CRITICAL_SECTION* section);

// What TlsAlloc answers when no index is left.
inline constexpr uint32 TlsOutOfIndexes = 0xFFFFFFFF;

// A new index, at which every thread holds null; TlsOutOfIndexes when none is left.
uint32 TlsAlloc();
// Gives the index back; the values are forgotten, never freed. False for an index that is not allocated.
bool TlsFree(uint32 index);
// The calling thread's value; null when it never set one, or when there is no such index.
#if defined(_WIN32)
void* TlsGetValue(uint32 index);
#endif
// Sets the calling thread's value; false for an index that is not allocated.
bool TlsSetValue(uint32 index, void* value);

// The calling thread's last error, in the numbers above.
uint32 GetLastError();
void SetLastError(uint32 error);

// The numbers of the process and of the calling thread.
uint32 GetCurrentProcessId();
uint32 GetCurrentThreadId();

}  // namespace platform
}  // namespace Torvo
