#include <Utility/files/handle_limit.h>

#include <Utility/frame/process_guards.h>
#include <Utility/platform/platform.h>

#include <cerrno>

namespace Torvo {

namespace {

// Both are initialised before the first static object is built.
constinit int32 fileBudget = DefaultFileBudget;
constinit bool environmentRead = false;  // guarded by handleLimitGuard

void ReadEnvironment() {
    fileBudget = FileBudgetFrom(platform::_wgetenv(ZUTEXT("ZU_MAX_FILE_HANDLES")));
    if (fileBudget != DefaultFileBudget) platform::_setmaxstdio(fileBudget);
}

}  // namespace

int32 FileBudgetFrom(const wchar16* text) {
    if (text == nullptr) return DefaultFileBudget;
    errno = 0;
    const int wanted = platform::_wtoi(text);
    if (errno == ERANGE) return DefaultFileBudget;
    return wanted >= LowestRaisedBudget && wanted <= HighestRaisedBudget ? wanted : DefaultFileBudget;
}

int32 FileBudget() {
    return fileBudget;
}

cMaxFileHandleHelper::cMaxFileHandleHelper() {
    platform::EnterCriticalSection(&handleLimitGuard.section);
    if (!environmentRead) {
        environmentRead = true;
        ReadEnvironment();
    }
    platform::LeaveCriticalSection(&handleLimitGuard.section);
}

}  // namespace Torvo
