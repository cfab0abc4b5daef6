// Start-up: the calls to the sibling libraries, the literal font name, the loader of neighbouring libraries.
//
// The library starts with almost no work: its entry point does nothing, and a service exists only when a thread first
// asks for one. Nothing is cleaned up at the end of the process but the guards and the slot of thread-local storage. A
// host that wants its buffers on disk closes its files, or flushes the block cache (<Utility/file_cache.h>), before it
// calls InstanceData::Destroy, which writes nothing.
//
// Example: examples/families/startup.cpp
#pragma once

#include <Utility/platform/types.h>

namespace Torvo {

// Calls "DllEnsureInit", without arguments, in each of the sibling libraries `dbinfo.dll`, `raster.dll` and
// `daengine.dll`, in this order, if it is already in the process and has such an entry. Never loads one. Takes no lock:
// the entries are called on the calling thread, and must bear it if several threads call this.
ZUAPI void UtilDllEnsureInit();

// Looks "DllForceTerm" up in the same libraries, and does not call it: the function has no effect. It is kept for the
// callers that have it in their shut-down sequence.
ZUAPI void UtilDllForceTerm();

// Chooses the default rotatable font by the caller's system charset, once for the process. True when a font is chosen,
// by this call or an earlier one; false when the charset has none, and a later call tries again. May be called on any
// thread at any time.
ZUAPI bool InitLiterals();

// The name of that font; empty until InitLiterals has succeeded. The buffer belongs to the library and lives as long as
// it does. Read without a lock: call it after InitLiterals has returned.
ZUAPI wchar16 const* GetDefaultRotatableFont();

// Loads a library that lies in the directory of a module that is already in the process: `siblingModule`, by file name,
// or the program itself when there is no such module (null means the program). Only the name and the extension of
// `library` count, not its directory; without an extension it gets "dll". The dependencies of the loaded library are
// searched for from its own directory first.
//
// `result` gets the handle, or null on failure; true if it is not null. The handle is one reference, which is given
// back with the system's own call, or by a cResourceDLL made from it. Paths that do not fit into 259 units fail. If
// `library` is null, or not even the program's own handle can be had, `result` is untouched. May be called on any
// thread.
ZUAPI bool LoadZULibrary(wchar16 const* library, wchar16 const* siblingModule, HINSTANCE& result);

}  // namespace Torvo
