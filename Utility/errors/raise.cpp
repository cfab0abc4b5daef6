#include <Utility/errors/raise.h>

#include <Utility/platform/platform.h>

#include <iterator>

namespace Torvo {

void RaiseErrorWithGuid(eErrorLevel level, const GUID& guid, int32 number, int32 resourceId, const wchar16* param0,
                        const wchar16* param1) {
    SetError(level, resourceId, nullptr, guid, number, param0, param1);
}

void RaiseError(eErrorLevel level, int32 number, int32 resourceId, const wchar16* param0, const wchar16* param1) {
    RaiseErrorWithGuid(level, DefaultErrorGuid, number, resourceId, param0, param1);
}

void RaiseErrorMessage(eErrorLevel level, int32 number, const wchar16* format, const wchar16* param0,
                       const wchar16* param1) {
    SetError(level, format, DefaultErrorGuid, number, param0, param1);
}

void RaiseErrorPrintf(int32 number, int32 resourceId, const wchar16* format, ...) {
    wchar16 text[32];
    va_list arguments;
    va_start(arguments, format);
    platform::vswprintf(text, std::size(text), format, arguments);
    va_end(arguments);
    RaiseError(ERRORLEVEL_ERROR, number, resourceId, text);
}

}  // namespace Torvo
