// Paths and directories: the absolute form of a path, relative paths, the directories that an application keeps,
// searching for a file in them, and names for temporary files.
//
// All paths are in the Windows form, on every system; where the root directory has no drive it is shown as drive `C:`
// (docs/paths.md has a table of examples). Both `\` and `/` separate; results have `\`. Whether case makes a difference
// on disk is the file system's affair; where paths are compared as text it is ignored.
//
// The working limit of a path is 260 units, and every buffer that receives one has room for 261. A text that would
// become longer is cut there, unless a call says otherwise. A call that is given null, except where it says what that
// means, changes nothing, and answers false if it answers. No call here leaves an error record.
//
// Each call is the operation of the same name of cFileSystem (<Utility/files.h>), in the caller's instance. What it
// keeps (directories, configuration, the list of paths) is the instance's; the process's current directory, which
// relative paths are seen from, is shared by all threads.
//
// Example: examples/families/paths.cpp
#pragma once

#include <Utility/files.h>
#include <Utility/platform/types.h>

namespace Torvo {

// Forms of a path -------------------------------------------------------------------------------------------------

// Makes a path absolute, in place: with a drive, or as a network path that begins with two separators, and without
// components `.` and `..`. A relative path is taken from the current directory of its drive, or of the present drive.
// `..` never climbs over the root; directly under the server of a network path it keeps the separator behind that, so
// that `\\srv\..\b` is `\\srv\b`. A separator at the end is removed, even that of a root. At most 259 units.
//
//     in C:\x:  a\..\..\b  ->  C:\b       c:y  ->  c:\x\y       C:\  ->  C:       \\srv\share\a\  ->  \\srv\share\a
ZUAPI void qualify_filename(wchar16* path);
// The same, but a root keeps its separator: the path is taken apart into directory and name, and written back.
ZUAPI void relativepath2fullpath(wchar16* path);

// Makes a name absolute, in place, as seen from the directory in which `path` lies: all of `path` up to its last
// separator or colon. A name that begins with one separator is taken from the root of that directory's drive. A name
// whose second unit is `:` or `\` stays as it is; mind that `a\b` is such a name.
//
//     b.tab, C:\x\a.tab  ->  C:\x\b.tab        \b.tab, C:\x\a.tab  ->  C:\b.tab        D:b, C:\x\a.tab  ->  D:b
ZUAPI void resolve_path_reference(wchar16* name, const wchar16* path);
// As seen from the directory of a registered file; from the current directory for a handle that is not registered.
ZUAPI void resolve_path_reference(wchar16* name, int file);

// Writes the path that leads from the directory `base` to `target`, and returns true. A target that is relative already
// (of two units at least) is appended to the base instead. If none leads there, as on another drive, `out` is the
// target, and the result false.
//
//     C:\a\b, C:\a\c\d.tab  ->  ..\c\d.tab
ZUAPI bool CalcRelativePath(const wchar16* base, const wchar16* target, wchar16* out);
// Writes the path that `relative` has as seen from the directory `base`, and returns true; components `.` and `..` at
// its start are followed. A network path and one with a drive are written as they stand, and the result is false. Too
// many `..` give an empty text, and true.
//
//     C:\a\b, ..\c.tab  ->  C:\a\c.tab
ZUAPI bool FullPathFromRelativePath(const wchar16* base, const wchar16* relative, wchar16* out);

// Directories that the application keeps here ---------------------------------------------------------------------

// Each is a text and nothing more: empty until it is set, and looked at by no one but the calls that say so. Setting
// copies at most 260 units; the getter's pointer is always the same in one instance. current_dir has nothing to do with
// the process's current directory.
ZUAPI void program_dir(const wchar16* path);
ZUAPI const wchar16* program_dir();
ZUAPI void alternate_program_dir(const wchar16* path);
ZUAPI const wchar16* alternate_program_dir();
ZUAPI void home_dir(const wchar16* path);
ZUAPI const wchar16* home_dir();
ZUAPI void pref_dir(const wchar16* path);
ZUAPI const wchar16* pref_dir();
ZUAPI void temp_dir(const wchar16* path);
// The same as that.
ZUAPI void torvo_temp_dir(const wchar16* path);
ZUAPI const wchar16* temp_dir();
ZUAPI void current_dir(const wchar16* path);
ZUAPI const wchar16* current_dir();

// Adds a directory to the end of the list that search_for_file looks through; a separator is added if there is none at
// its end. The directory need not exist, and may be in the list already. Without effect if memory is short.
ZUAPI void AddAppDataPath(const wchar16* path);

// Configuration: values under keys, in which case makes a difference. A null or empty key and a null value are ignored,
// and so is a new value for which memory is short. The value that is got is null for a key that was not set; it lasts
// until the key is set again.
ZUAPI void set_cpl_config(const wchar16* key, const wchar16* value);
ZUAPI const wchar16* get_cpl_config(const wchar16* key);

// The directory in which this library lies, with a separator at its end; empty if the system does not tell. The pointer
// is always the same in one instance.
ZUAPI const wchar16* get_current_module_dir();

// The process's current directory ---------------------------------------------------------------------------------

// Two directories to go back to: the process's current directory, and that of the drive that was gone to. A path that
// does not fit is not kept.
struct SAVED_DIR {
    wchar16 current[260];
    wchar16 current_of_drive[260];
};

// Goes to the directory of a registered file, and notes in `saved` where the process was. For a handle that is not
// registered `saved` is empty and nothing happens.
ZUAPI void ChangeDirectory(int file, SAVED_DIR* saved);
// Goes back. An empty directory is left out.
ZUAPI void RestoreDirectory(SAVED_DIR* saved);

// Files on disk ---------------------------------------------------------------------------------------------------

// Whether there is a file or a directory of that name, qualified, and with its extension if the type forces one
// (<Utility/file_names.h>).
ZUAPI bool file_exists(const wchar16* name, FILETYPE type);
// The same: whether case makes a difference is the file system's affair.
ZUAPI bool file_exists_anycase(const wchar16* name, FILETYPE type);
// Looks for a file in the directories of AddAppDataPath in the order of adding, in program_dir(), and under its name as
// it stands. Whether it was found; `name` is then the path under which it was, and otherwise unchanged. A path that
// would be longer than 260 units is passed over.
ZUAPI bool search_for_file(wchar16* name, FILETYPE type);

// Temporary files -------------------------------------------------------------------------------------------------

// Writes a name under which no file exists, in the directory `dir`, to which a separator is added if there is none at
// its end, or in temp_dir(), taken as it stands, if that is null. Its extension is that of the type, `.TMP` for a type
// without one; the rest is made of the thread's number and a count. Nothing is created, so the name is only reserved as
// long as nobody else makes names like it. If the directory is too long for a name, the beginning of the path is
// written.
ZUAPI void tempname(wchar16* out, const wchar16* dir, FILETYPE type);
ZUAPI void tempname(wchar16* out, const wchar16* dir);
// Registers such a name, and returns its handle for the stream world; null if memory is short. The file is not opened.
ZUAPI FILE* tempfile(const wchar16* dir);

// Writes the path of a folder for temporary files that belongs to the instance, without a separator at its end. It is
// made at the first call, under `Zunaverse` in the system's directory for temporary files, and made again if it has
// gone; nobody removes it. If no file can be written there the path is that of temp_dir().
ZUAPI void CreteTempFolderForZxtTile(wchar16* out);

}  // namespace Torvo
