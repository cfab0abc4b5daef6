// The published order of the operations: a caller that was built elsewhere calls them by their place in the table.

#include <Utility/files.h>

#include <support/vtable_slot.h>

#include <gtest/gtest.h>

#include <vector>

namespace Torvo::test {
namespace file_system_slots_test {
namespace {

using Class = cFileSystem;

template <typename Result, typename... Arguments>
std::size_t Form(Result (Class::*operation)(Arguments...)) {
    return SlotOf(operation);
}

std::size_t Setter(void (Class::*operation)(const wchar16*)) {
    return SlotOf(operation);
}

std::size_t Getter(const wchar16* (Class::*operation)()) {
    return SlotOf(operation);
}

TEST(FileSystemSlots, AreThoseThatArePublished) {
    const std::vector<std::size_t> slots = {
        SlotOf(&cFileSystem::register_file),
        SlotOf(&cFileSystem::register_file_variant),
        SlotOf(&cFileSystem::is_file_registered),
        SlotOf(&cFileSystem::unregister_file),
        SlotOf(&cFileSystem::fileopen),
        SlotOf(&cFileSystem::close2),
        SlotOf(&cFileSystem::filelength2),
        SlotOf(&cFileSystem::lseek2),
        SlotOf(&cFileSystem::tell2),
        SlotOf(&cFileSystem::read2),
        SlotOf(&cFileSystem::write2),
        SlotOf(&cFileSystem::chsize2),
        SlotOf(&cFileSystem::read_app_string),
        SlotOf(&cFileSystem::read_app_string_len),
        SlotOf(&cFileSystem::write_app_string),
        SlotOf(&cFileSystem::fileremove),
        SlotOf(&cFileSystem::group_fileremove),
        SlotOf(&cFileSystem::renamefile),
        SlotOf(&cFileSystem::touch),
        SlotOf(&cFileSystem::file_get_timestamp),
        SlotOf(&cFileSystem::file_set_timestamp),
        SlotOf(&cFileSystem::fhandle2name),
        SlotOf(&cFileSystem::fhandle2dir),
        SlotOf(&cFileSystem::fhandle2path),
        SlotOf(&cFileSystem::fhandle2partialpath),
        SlotOf(&cFileSystem::filehandle_get_openmode),
        SlotOf(&cFileSystem::filecopy),
        SlotOf(&cFileSystem::ChangeDirectory),
        Form<ZUCHARSET, FILE*>(&cFileSystem::file_get_charset),
        Form<ZUCHARSET, int>(&cFileSystem::file_get_charset),
        Form<void, FILE*, ZUCHARSET>(&cFileSystem::file_put_charset),
        Form<void, int, ZUCHARSET>(&cFileSystem::file_put_charset),
        SlotOf(&cFileSystem::fregister_file),
        SlotOf(&cFileSystem::funregister_file),
        SlotOf(&cFileSystem::ffileopen),
        SlotOf(&cFileSystem::fclose2),
        SlotOf(&cFileSystem::feof2),
        SlotOf(&cFileSystem::ferror2),
        SlotOf(&cFileSystem::ffilelength2),
        SlotOf(&cFileSystem::fflush2),
        SlotOf(&cFileSystem::fgetc2),
        SlotOf(&cFileSystem::fgets2),
        SlotOf(&cFileSystem::fileno2),
        SlotOf(&cFileSystem::fprintf2),
        SlotOf(&cFileSystem::fputc2),
        SlotOf(&cFileSystem::fputs2),
        SlotOf(&cFileSystem::fread2),
        SlotOf(&cFileSystem::fseek2),
        SlotOf(&cFileSystem::ftell2),
        SlotOf(&cFileSystem::fwrite2),
        SlotOf(&cFileSystem::vfprintf2),
        Form<ZUCHARSET, int>(&cFileSystem::ProcessUTFBom),
        Form<ZUCHARSET, FILE*>(&cFileSystem::ProcessUTFBom),
        Form<bool, int, ZUCHARSET>(&cFileSystem::WriteUTFBom),
        Form<bool, FILE*, ZUCHARSET>(&cFileSystem::WriteUTFBom),
        SlotOf(&cFileSystem::rename2),
        SlotOf(&cFileSystem::access2),
        SlotOf(&cFileSystem::remove2),
        SlotOf(&cFileSystem::stat2),
        SlotOf(&cFileSystem::stream_fileopen),
        SlotOf(&cFileSystem::stream_close),
        SlotOf(&cFileSystem::stream_lseek),
        SlotOf(&cFileSystem::stream_read),
        Setter(&cFileSystem::program_dir),
        Getter(&cFileSystem::program_dir),
        Setter(&cFileSystem::alternate_program_dir),
        Getter(&cFileSystem::alternate_program_dir),
        Setter(&cFileSystem::home_dir),
        Getter(&cFileSystem::home_dir),
        Setter(&cFileSystem::pref_dir),
        Getter(&cFileSystem::pref_dir),
        Setter(&cFileSystem::temp_dir),
        Getter(&cFileSystem::temp_dir),
        Setter(&cFileSystem::current_dir),
        Getter(&cFileSystem::current_dir),
        SlotOf(&cFileSystem::set_cpl_config),
        SlotOf(&cFileSystem::get_cpl_config),
        SlotOf(&cFileSystem::AddAppDataPath),
        SlotOf(&cFileSystem::CreteTempFolderForZxtTile),
        SlotOf(&cFileSystem::really_close_all),
        SlotOf(&cFileSystem::file_extension),
        SlotOf(&cFileSystem::file_type),
        SlotOf(&cFileSystem::splitfilename),
        SlotOf(&cFileSystem::make_extension),
        SlotOf(&cFileSystem::path2something),
        SlotOf(&cFileSystem::level0mode_to_ourmode),
        SlotOf(&cFileSystem::qualify_filename),
        SlotOf(&cFileSystem::munge_filename),
        SlotOf(&cFileSystem::recommend_filename),
        SlotOf(&cFileSystem::recommend_table_filename),
        SlotOf(&cFileSystem::require_dos_extension),
        SlotOf(&cFileSystem::relativepath2fullpath),
        Form<void, wchar16*, const wchar16*>(&cFileSystem::resolve_path_reference),
        Form<void, wchar16*, int>(&cFileSystem::resolve_path_reference),
        SlotOf(&cFileSystem::RestoreDirectory),
        Form<void, wchar16*, const wchar16*, FILETYPE>(&cFileSystem::tempname),
        Form<void, wchar16*, const wchar16*>(&cFileSystem::tempname),
        SlotOf(&cFileSystem::tempfile),
        SlotOf(&cFileSystem::file_exists),
        SlotOf(&cFileSystem::file_exists_anycase),
        SlotOf(&cFileSystem::search_for_file),
        SlotOf(&cFileSystem::CalcRelativePath),
        SlotOf(&cFileSystem::FullPathFromRelativePath),
        SlotOf(&cFileSystem::GetFileFD),
        SlotOf(&cFileSystem::GetFilePtr),
        SlotOf(&cFileSystem::GetMaxFileCount),
        SlotOf(&cFileSystem::GetFileAccessRetryTime),
        SlotOf(&cFileSystem::SetFileAccessRetryTime),
        SlotOf(&cFileSystem::get_current_module_dir),
    };

    ASSERT_EQ(slots.size(), 109u);
    for (std::size_t index = 0; index < slots.size(); ++index) EXPECT_EQ(slots[index], index + 2) << index;
}

}  // namespace
}  // namespace file_system_slots_test
}  // namespace Torvo::test
