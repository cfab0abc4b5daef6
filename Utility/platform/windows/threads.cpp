#include <Utility/platform/threads.h>

namespace Torvo::platform {

void InitializeCriticalSection(CRITICAL_SECTION* section) {
    ::InitializeCriticalSection(section);
}

void DeleteCriticalSection(CRITICAL_SECTION* section) {
    ::DeleteCriticalSection(section);
}

void EnterCriticalSection(CRITICAL_SECTION* section) {
    ::EnterCriticalSection(section);
}

void LeaveCriticalSection(CRITICAL_SECTION* section) {
    ::LeaveCriticalSection(section);
}

uint32 TlsAlloc() {
    return ::TlsAlloc();
}

bool TlsFree(uint32 index) {
    return ::TlsFree(index) != 0;
}

void* TlsGetValue(uint32 index) {
    return ::TlsGetValue(index);
}

bool TlsSetValue(uint32 index, void* value) {
    return ::TlsSetValue(index, value) != 0;
}

uint32 GetLastError() {
    return ::GetLastError();
}

void SetLastError(uint32 error) {
    ::SetLastError(error);
}

uint32 GetCurrentProcessId() {
    return ::GetCurrentProcessId();
}

uint32 GetCurrentThreadId() {
    return ::GetCurrentThreadId();
}

}  // namespace Torvo::platform
