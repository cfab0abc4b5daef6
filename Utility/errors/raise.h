// How the library itself leaves an error record: always without a message format, which the application looks up by the
// resource identifier.
#pragma once

#include <Utility/errors.h>

namespace Torvo {

// The component that the library's own errors name: {EE011B72-700B-11D2-BB9D-0060089F5A53}.
inline constexpr GUID DefaultErrorGuid = {0xEE011B72, 0x700B, 0x11D2, {0xBB, 0x9D, 0x00, 0x60, 0x08, 0x9F, 0x5A, 0x53}};

// Raises an error of another component.
void RaiseErrorWithGuid(eErrorLevel level, const GUID& guid, int32 number, int32 resourceId,
                        const wchar16* param0 = nullptr, const wchar16* param1 = nullptr);

// Raises an error of the library, as in RaiseError(ERRORLEVEL_ERROR, 7, 49, name). The library's level is always
// ERRORLEVEL_ERROR.
void RaiseError(eErrorLevel level, int32 number, int32 resourceId, const wchar16* param0 = nullptr,
                const wchar16* param1 = nullptr);

// Raises an error that brings its message format along, and no resource identifier. Nothing when the format is null.
void RaiseErrorMessage(eErrorLevel level, int32 number, const wchar16* format, const wchar16* param0 = nullptr,
                       const wchar16* param1 = nullptr);

// Raises an error at ERRORLEVEL_ERROR whose only parameter is printed (see <Utility/platform/formatted_text.h> for
// formats), cut to 31 units.
void RaiseErrorPrintf(int32 number, int32 resourceId, const wchar16* format, ...);

}  // namespace Torvo
