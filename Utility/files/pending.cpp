// Operations whose sources are still being written. Each fails.

#include <Utility/files/file_system_impl.h>

namespace Torvo {

// Names, paths, directories.
void cFileSystemImpl::ChangeDirectory(int, SAVED_DIR*) {}
void cFileSystemImpl::program_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::program_dir() {
    return nullptr;
}
void cFileSystemImpl::alternate_program_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::alternate_program_dir() {
    return nullptr;
}
void cFileSystemImpl::home_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::home_dir() {
    return nullptr;
}
void cFileSystemImpl::pref_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::pref_dir() {
    return nullptr;
}
void cFileSystemImpl::temp_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::temp_dir() {
    return nullptr;
}
void cFileSystemImpl::current_dir(const wchar16*) {}
const wchar16* cFileSystemImpl::current_dir() {
    return nullptr;
}
void cFileSystemImpl::set_cpl_config(const wchar16*, const wchar16*) {}
const wchar16* cFileSystemImpl::get_cpl_config(const wchar16*) {
    return nullptr;
}
void cFileSystemImpl::AddAppDataPath(const wchar16*) {}
void cFileSystemImpl::CreteTempFolderForZxtTile(wchar16*) {}
const wchar16* cFileSystemImpl::file_extension(FILETYPE) {
    return nullptr;
}
FILETYPE cFileSystemImpl::file_type(const wchar16*) {
    return ftNone;
}
void cFileSystemImpl::splitfilename(wchar16*, wchar16*) {}
void cFileSystemImpl::make_extension(wchar16*, const wchar16*) {}
void cFileSystemImpl::path2something(const wchar16*, wchar16*, int) {}
int cFileSystemImpl::level0mode_to_ourmode(int) {
    return -1;
}
void cFileSystemImpl::qualify_filename(wchar16*) {}
bool cFileSystemImpl::munge_filename(FILETYPE) {
    return false;
}
void cFileSystemImpl::recommend_filename(wchar16*, const wchar16*, FILETYPE) {}
void cFileSystemImpl::recommend_table_filename(wchar16*, const wchar16*) {}
void cFileSystemImpl::require_dos_extension(wchar16*, FILETYPE) {}
void cFileSystemImpl::relativepath2fullpath(wchar16*) {}
void cFileSystemImpl::resolve_path_reference(wchar16*, const wchar16*) {}
void cFileSystemImpl::resolve_path_reference(wchar16*, int) {}
void cFileSystemImpl::RestoreDirectory(SAVED_DIR*) {}
void cFileSystemImpl::tempname(wchar16*, const wchar16*, FILETYPE) {}
void cFileSystemImpl::tempname(wchar16*, const wchar16*) {}
FILE* cFileSystemImpl::tempfile(const wchar16*) {
    return nullptr;
}
bool cFileSystemImpl::file_exists(const wchar16*, FILETYPE) {
    return false;
}
bool cFileSystemImpl::file_exists_anycase(const wchar16*, FILETYPE) {
    return false;
}
bool cFileSystemImpl::search_for_file(wchar16*, FILETYPE) {
    return false;
}
bool cFileSystemImpl::CalcRelativePath(const wchar16*, const wchar16*, wchar16*) {
    return false;
}
bool cFileSystemImpl::FullPathFromRelativePath(const wchar16*, const wchar16*, wchar16*) {
    return false;
}
const wchar16* cFileSystemImpl::get_current_module_dir() {
    return nullptr;
}

}  // namespace Torvo
