#include <Utility/platform/file_faults.h>
#include <Utility/platform/files.h>
#include <Utility/platform/threads.h>

#include <algorithm>
#include <cerrno>

namespace Torvo::platform {

namespace faults {

constinit std::atomic<bool> armed = false;

namespace {

FileFault fault;
// Calls that the armed fault concerns, so far, and how many of them were hit.
constinit std::atomic<uint64> calls = 0;
constinit std::atomic<uint64> hits = 0;

bool IsHit() {
    const uint64 call = ++calls;
    const bool repeats = fault.fromThenOn && fault.error != EINTR;
    const bool hit = call == fault.nth || (repeats && call > fault.nth);
    if (hit) ++hits;
    return hit;
}

}  // namespace

bool HitsCall() {
    if (fault.kind != FileFault::Kind::Error || !IsHit()) return false;
    errno = fault.error;
    return true;
}

uint32 ShortenTransfer(uint32 count) {
    if (fault.kind != FileFault::Kind::Short || !IsHit()) return count;
    return std::min(count, fault.bytes);
}

uint32 LastErrorOf(int error) {
    switch (error) {
        case ENOENT:
            return ERROR_FILE_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case ENFILE:
        case EMFILE:
            return ERROR_TOO_MANY_OPEN_FILES;
        case EACCES:
            return ERROR_ACCESS_DENIED;
        case EBADF:
            return ERROR_INVALID_HANDLE;
        case ENOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case EEXIST:
            return ERROR_ALREADY_EXISTS;
        case EINVAL:
            return ERROR_INVALID_PARAMETER;
        case ENOSPC:
            return ERROR_DISK_FULL;
        default:
            return ERROR_GEN_FAILURE;
    }
}

}  // namespace faults

void ArmFileFault(const FileFault& fault) {
    faults::armed = false;
    faults::fault = fault;
    faults::calls = 0;
    faults::hits = 0;
    faults::armed = true;
}

bool DisarmFileFault() {
    return faults::armed.exchange(false) && faults::hits != 0;
}

}  // namespace Torvo::platform
