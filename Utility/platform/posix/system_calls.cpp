#include <Utility/platform/posix/system_calls.h>

namespace Torvo::platform {

int RuntimeErrno(int error) {
    switch (error) {
        // A path through something that is no directory leads nowhere, like one that is too long.
        case ENOTDIR:
        case ENAMETOOLONG:
            return ENOENT;
        case EPERM:
        case EISDIR:
        case EROFS:
        case EBUSY:
        case ETXTBSY:
            return EACCES;
        case EDQUOT:
            return ENOSPC;
        case EDEADLK:
            return 36;
        case ENOLCK:
            return RuntimeNoLocks;
        case ENOSYS:
            return RuntimeNoSuchCall;
        case ENOTEMPTY:
            return 41;
        case EILSEQ:
            return 42;
        case ELOOP:
            return 114;
        case EOPNOTSUPP:
            return RuntimeNotSupported;
        case EOVERFLOW:
            return 132;
        default:
            return error <= ERANGE ? error : EINVAL;
    }
}

}  // namespace Torvo::platform
