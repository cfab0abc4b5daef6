// Modules: looking loaded libraries up, loading them, finding their symbols, reading their string resources.
//
// A resource library is a Windows DLL on every system: where the system cannot load one, the layer maps the file and
// reads the string table out of its resource section. Code is loaded in the system's own form; the name `dbinfo.dll`
// means `libdbinfo.so` there. File names are in the Windows form, with the root directory as drive `C:`.
#pragma once

#include <Utility/platform/types.h>

namespace Torvo::platform {

// The flag of LoadLibraryExW under which the dependencies of a library are searched for from its own directory.
inline constexpr uint32 LoadWithAlteredSearchPath = 8;
// The mode of SetErrorMode under which a failing load shows no message box.
inline constexpr uint32 FailCriticalErrors = 1;
// The flags of GetModuleHandleExW: no reference is taken; the name is an address inside the module.
inline constexpr uint32 HandleUnchangedRefcount = 2;
inline constexpr uint32 HandleFromAddress = 4;

// The handle of a module that is already in the process, by file name with or without a directory; a name without an
// extension means `.dll`, one that ends with a point has none; case does not count. Null names the program itself.
// Nothing is loaded and no reference is taken. Null, with the last error 126, when there is no such module.
HINSTANCE GetModuleHandleW(const wchar16* name);
// The same with flags, of which HandleUnchangedRefcount must be one, since a reference taken by a look-up is more than
// every system offers; with HandleFromAddress, `name` is an address inside the module. False, with *module null, when
// there is none.
bool GetModuleHandleExW(uint32 flags, const wchar16* name, HINSTANCE* module);
// The address of an exported symbol, or null.
void* GetProcAddress(HINSTANCE module, const char* name);
// The full file name, in at most `size` units with the terminator; the number of units without it, `size` when the name
// was cut (error 122; whether a cut name is terminated differs), 0 on failure. Null means the program.
uint32 GetModuleFileNameW(HINSTANCE module, wchar16* buffer, uint32 size);
// Loads a module, or takes one more reference to it. Null on failure.
HINSTANCE LoadLibraryW(const wchar16* name);
HINSTANCE LoadLibraryExW(const wchar16* name, void* reserved, uint32 flags);
// Gives one reference back; the last one unloads. False, and no effect, for a handle that is not loaded.
bool FreeLibrary(HINSTANCE module);
// Sets what a failing load may show to the user; the former mode. Only remembered where the system never shows any.
uint32 SetErrorMode(uint32 mode);
// Copies string number `id` (its low 16 bits) of the module into `buffer`, cut to `size` - 1 units, and terminates it.
// The number of units copied; 0 when there is no such string or `size` is below 2, and what the buffer holds then
// differs.
int LoadStringW(HINSTANCE module, uint32 id, wchar16* buffer, int size);

}  // namespace Torvo::platform
