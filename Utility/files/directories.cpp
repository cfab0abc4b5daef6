// The directories and settings that an application keeps here, and the process's current directory.

#include <Utility/paths.h>

#include <Utility/bounded_copy.h>
#include <Utility/files/file_names.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <algorithm>
#include <iterator>
#include <new>

namespace Torvo {

namespace {

void Keep(const wchar16* path, wchar16 (&directory)[PathSize]) {
    if (path != nullptr) strcpyn(directory, path, PathSize);
}

// An address in this library.
void HereInTheLibrary() {}

// The file name of this library; empty if the system does not tell.
void LibraryFileName(wchar16 (&name)[PathLimit]) {
    HINSTANCE library = nullptr;
    const bool found = platform::GetModuleHandleExW(platform::HandleUnchangedRefcount | platform::HandleFromAddress,
                                                    reinterpret_cast<const wchar16*>(&HereInTheLibrary), &library);
    const uint32 length = found ? platform::GetModuleFileNameW(library, name, PathLimit) : 0;
    if (length == 0 || length >= PathLimit) *name = 0;
}

// The process's current directory; empty if it does not fit.
template <std::size_t Size>
void ReadCurrentDirectory(wchar16 (&directory)[Size]) {
    const uint32 length = platform::GetCurrentDirectoryW(Size, directory);
    if (length == 0 || length >= Size) directory[0] = 0;
}

void GoToDirectory(const wchar16* path) {
    if (*path != 0) platform::SetCurrentDirectoryW(path);
}

// Goes to the current directory of the drive that a path is on; whether it has a drive.
bool GoToDriveOf(const wchar16* path) {
    if (path[0] == 0 || path[1] != ':') return false;
    const wchar16 drive[] = {path[0], ':', 0};
    GoToDirectory(drive);
    return true;
}

// A separator at the end is left out, unless it is that of a root.
void CutSeparator(wchar16* path) {
    constexpr std::size_t rootLength = 3;
    const std::size_t length = platform::wcslen(path);
    if (length > rootLength && IsPathSeparator(path[length - 1])) path[length - 1] = 0;
}

}  // namespace

void cFileSystemImpl::program_dir(const wchar16* path) {
    Keep(path, programDirectory);
}

const wchar16* cFileSystemImpl::program_dir() {
    return programDirectory;
}

void cFileSystemImpl::alternate_program_dir(const wchar16* path) {
    Keep(path, alternateProgramDirectory);
}

const wchar16* cFileSystemImpl::alternate_program_dir() {
    return alternateProgramDirectory;
}

void cFileSystemImpl::home_dir(const wchar16* path) {
    Keep(path, homeDirectory);
}

const wchar16* cFileSystemImpl::home_dir() {
    return homeDirectory;
}

void cFileSystemImpl::pref_dir(const wchar16* path) {
    Keep(path, preferencesDirectory);
}

const wchar16* cFileSystemImpl::pref_dir() {
    return preferencesDirectory;
}

void cFileSystemImpl::temp_dir(const wchar16* path) {
    Keep(path, tempDirectory);
}

const wchar16* cFileSystemImpl::temp_dir() {
    return tempDirectory;
}

void cFileSystemImpl::current_dir(const wchar16* path) {
    Keep(path, currentDirectory);
}

const wchar16* cFileSystemImpl::current_dir() {
    return currentDirectory;
}

// The separator behind a path of the full length needs a unit more than a path has.
void cFileSystemImpl::AddAppDataPath(const wchar16* path) {
    if (path == nullptr) return;
    auto* const kept = static_cast<wchar16*>(platform::malloc((PathSize + 1) * sizeof(wchar16)));
    if (kept == nullptr) return;
    concat_backslash(path, kept, PathSize);
    try {
        appDataPaths.push_back(kept);
    } catch (const std::bad_alloc&) {
        platform::free(kept);
    }
}

void cFileSystemImpl::set_cpl_config(const wchar16* key, const wchar16* value) {
    if (key == nullptr || *key == 0 || value == nullptr) return;
    try {
        configuration.insert_or_assign(key, value);
    } catch (const std::bad_alloc&) {
        // The former value stays.
    }
}

const wchar16* cFileSystemImpl::get_cpl_config(const wchar16* key) {
    if (key == nullptr || *key == 0) return nullptr;
    const auto found = configuration.find(key);
    return found != configuration.end() ? found->second.c_str() : nullptr;
}

const wchar16* cFileSystemImpl::get_current_module_dir() {
    wchar16 file[PathLimit];
    LibraryFileName(file);
    platform::PathParts parts;
    if (*file != 0 && platform::_wsplitpath(file, &parts)) {
        platform::_wmakepath(moduleDirectory, PathSize, parts.drive, parts.directory, nullptr, nullptr);
    }
    return moduleDirectory;
}

void cFileSystemImpl::ChangeDirectory(int file, SAVED_DIR* saved) {
    if (saved == nullptr) return;
    *saved = {};
    if (FindEntry(file) == nullptr) return;
    wchar16 directory[PathSize];
    fhandle2dir(file, directory);
    ReadCurrentDirectory(saved->current);
    if (GoToDriveOf(directory)) ReadCurrentDirectory(saved->current_of_drive);
    CutSeparator(directory);
    GoToDirectory(directory);
}

void cFileSystemImpl::RestoreDirectory(SAVED_DIR* saved) {
    if (saved == nullptr) return;
    GoToDirectory(saved->current_of_drive);
    GoToDirectory(saved->current);
}

void program_dir(const wchar16* path) {
    cFileSystem::Instance()->program_dir(path);
}

const wchar16* program_dir() {
    return cFileSystem::Instance()->program_dir();
}

void alternate_program_dir(const wchar16* path) {
    cFileSystem::Instance()->alternate_program_dir(path);
}

const wchar16* alternate_program_dir() {
    return cFileSystem::Instance()->alternate_program_dir();
}

void home_dir(const wchar16* path) {
    cFileSystem::Instance()->home_dir(path);
}

const wchar16* home_dir() {
    return cFileSystem::Instance()->home_dir();
}

void pref_dir(const wchar16* path) {
    cFileSystem::Instance()->pref_dir(path);
}

const wchar16* pref_dir() {
    return cFileSystem::Instance()->pref_dir();
}

void temp_dir(const wchar16* path) {
    cFileSystem::Instance()->temp_dir(path);
}

void torvo_temp_dir(const wchar16* path) {
    temp_dir(path);
}

const wchar16* temp_dir() {
    return cFileSystem::Instance()->temp_dir();
}

void current_dir(const wchar16* path) {
    cFileSystem::Instance()->current_dir(path);
}

const wchar16* current_dir() {
    return cFileSystem::Instance()->current_dir();
}

void AddAppDataPath(const wchar16* path) {
    cFileSystem::Instance()->AddAppDataPath(path);
}

void set_cpl_config(const wchar16* key, const wchar16* value) {
    cFileSystem::Instance()->set_cpl_config(key, value);
}

const wchar16* get_cpl_config(const wchar16* key) {
    return cFileSystem::Instance()->get_cpl_config(key);
}

const wchar16* get_current_module_dir() {
    return cFileSystem::Instance()->get_current_module_dir();
}

void ChangeDirectory(int file, SAVED_DIR* saved) {
    cFileSystem::Instance()->ChangeDirectory(file, saved);
}

void RestoreDirectory(SAVED_DIR* saved) {
    cFileSystem::Instance()->RestoreDirectory(saved);
}

}  // namespace Torvo
