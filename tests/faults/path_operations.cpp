// Paths, directories, names, and the search for files.
#include <Utility/Utility.h>
#include <faults/file_fixture.h>
#include <faults/operations.h>
#include <files/tile_folders.h>
#include <support/own_file_system.h>

#include <memory>
#include <optional>
#include <string_view>
#include <utility>

namespace Torvo::test {

namespace path_operations {
namespace {

// Long enough to need memory of its own.
const wchar16* const Key = ZUTEXT("a key that is too long for the object itself");
const wchar16* const Value = ZUTEXT("a value that is too long for the object itself as well");

Operations NameOperations() {
    return {
        {"file_extension", [] { return Is(file_extension(ftTab), ZUTEXT(".TAB")); }},
        {"file_type", [] { return file_type(ZUTEXT("a.tab")) == ftTab; }},
        {"munge_filename", [] { return munge_filename(ftMap); }},
        {"make_extension",
         [] {
             TextBuffer name(ZUTEXT("a.tab"));
             make_extension(name.units, ZUTEXT(".x"));
             return name.units[0] == 'a';
         }},
        {"require_dos_extension",
         [] {
             TextBuffer name(ZUTEXT("a"));
             require_dos_extension(name.units, ftMap);
             return name.Is(ZUTEXT("a.MAP"));
         }},
        {"recommend_filename",
         [] {
             TextBuffer name;
             recommend_filename(name.units, ZUTEXT("a:b"), ftTab);
             return name.units[0] != 0;
         }},
        {"recommend_table_filename",
         [] {
             TextBuffer name;
             recommend_table_filename(name.units, ZUTEXT("a:b"));
             return name.units[0] != 0;
         }},
        {"splitfilename",
         [] {
             TextBuffer path(ZUTEXT("C:\\a\\b"));
             TextBuffer name;
             splitfilename(path.units, name.units);
             return path.Is(ZUTEXT("C:\\a\\")) && name.Is(ZUTEXT("b"));
         }},
        {"path2something",
         [] {
             TextBuffer name;
             path2something(ZUTEXT("C:\\a\\b.tab"), name.units, 100);
             return name.units[0] != 0;
         }},
        {"level0mode_to_ourmode", [] { return level0mode_to_ourmode(0) != 0; }},
    };
}

Operations FormOperations() {
    return {
        {"qualify_filename, of an absolute path",
         [] {
             TextBuffer path(ZUTEXT("C:\\a\\..\\b"));
             qualify_filename(path.units);
             return path.Is(ZUTEXT("C:\\b"));
         }},
        {"qualify_filename",
         [](Trial& trial) {
             trial.Try([] {
                 TextBuffer path(ZUTEXT("b"));
                 qualify_filename(path.units);
                 return path.units[1] == ':' && !path.Is(ZUTEXT("C:\\b"));
             });
         }},
        {"relativepath2fullpath",
         [](Trial& trial) {
             trial.Try([] {
                 TextBuffer path(ZUTEXT("b"));
                 relativepath2fullpath(path.units);
                 return path.units[1] == ':' && !path.Is(ZUTEXT("C:\\b"));
             });
         }},
        {"resolve_path_reference",
         [] {
             TextBuffer name(ZUTEXT("b.tab"));
             resolve_path_reference(name.units, ZUTEXT("C:\\x\\a.tab"));
             return name.Is(ZUTEXT("C:\\x\\b.tab"));
         }},
        {"resolve_path_reference, of a handle",
         [](Trial& trial) {
             trial.Try([] {
                 TextBuffer name(ZUTEXT("b"));
                 resolve_path_reference(name.units, 0);
                 return name.units[1] == ':' && !name.Is(ZUTEXT("C:\\b"));
             });
         }},
        {"CalcRelativePath",
         [] {
             TextBuffer path;
             return CalcRelativePath(ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\c"), path.units) && path.Is(ZUTEXT("..\\c"));
         }},
        {"FullPathFromRelativePath",
         [] {
             TextBuffer path;
             return FullPathFromRelativePath(ZUTEXT("C:\\a\\b"), ZUTEXT("..\\c"), path.units) &&
                    path.Is(ZUTEXT("C:\\a\\c"));
         }},
    };
}

// Rows of a directory that is kept: set and got.
#define TORVO_KEEPS(name)               \
    {                                   \
#name, [] {                           \
            TextBuffer before(name());        \
            name(ZUTEXT("C:\\kept\\"));       \
            const bool isKept = Is(name(), ZUTEXT("C:\\kept\\")); \
            name(before.units);               \
            return isKept;                    \
        } \
    }

Operations KeptOperations() {
    return {
        TORVO_KEEPS(program_dir),
        TORVO_KEEPS(alternate_program_dir),
        TORVO_KEEPS(home_dir),
        TORVO_KEEPS(pref_dir),
        TORVO_KEEPS(temp_dir),
        TORVO_KEEPS(current_dir),
        {"torvo_temp_dir",
         [] {
             TextBuffer before(temp_dir());
             torvo_temp_dir(ZUTEXT("C:\\kept\\"));
             const bool isKept = Is(temp_dir(), ZUTEXT("C:\\kept\\"));
             temp_dir(before.units);
             return isKept;
         }},
        {"get_current_module_dir",
         [](Trial& trial) {
             const OwnFileSystem own;
             trial.Try([] { return get_current_module_dir()[0] != 0; });
         }},
        {"AddAppDataPath",
         [](Trial& trial) {
             FaultDirectory().Write(ZUTEXT("listed"), "");
             const OwnFileSystem own;
             const wstring16 directory = FaultDirectory().Path();
             TextBuffer name(ZUTEXT("listed"));
             trial.Try([&] {
                 AddAppDataPath(directory.c_str());
                 return true;
             });
             // Unless memory was short it is there; then it is after the next call.
             const bool wasAdded = search_for_file(name.units, ftNone);
             EXPECT_TRUE(wasAdded || trial.WasHit());
             if (!wasAdded) {
                 AddAppDataPath(directory.c_str());
                 EXPECT_TRUE(search_for_file(name.units, ftNone));
             }
         }},
        {"set_cpl_config",
         [](Trial& trial) {
             const OwnFileSystem own;
             trial.Try(
                 [] {
                     set_cpl_config(Key, Value);
                     return Is(get_cpl_config(Key), Value);
                 },
                 [] { return get_cpl_config(Key) == nullptr; });
         }},
        {"get_cpl_config", [] { return get_cpl_config(ZUTEXT("short")) == nullptr; }},
    };
}

#undef TORVO_KEEPS

// Whether a name is one for a temporary file in a directory. Nothing is asked for.
bool IsTemporaryName(const wchar16* name, const wstring16& directory, const wchar16* extension) {
    const std::basic_string_view<wchar16> text(name);
    return text.starts_with(directory) && text.substr(directory.size()).starts_with(ZUTEXT("\\~ZUN")) &&
           text.ends_with(extension);
}

Operations DiskOperations() {
    return {
        {"ChangeDirectory",
         [](Trial& trial) {
             const RegisteredFile file;
             SAVED_DIR saved = {};
             SAVED_DIR start = {};
             ChangeDirectory(file.handle, &start);
             RestoreDirectory(&start);
             const TextBuffer inside(FaultDirectory().Path(ZUTEXT("x")));
             trial.Try(
                 [&] {
                     ChangeDirectory(file.handle, &saved);
                     TextBuffer here(ZUTEXT("x"));
                     qualify_filename(here.units);
                     return Is(saved.current, start.current) && striequ(here.units, inside.units);
                 },
                 [&] {
                     RestoreDirectory(&start);
                     return true;
                 });
             RestoreDirectory(&start);
         }},
        {"RestoreDirectory",
         [](Trial& trial) {
             const RegisteredFile file;
             SAVED_DIR start = {};
             TextBuffer outside(ZUTEXT("x"));
             qualify_filename(outside.units);
             ChangeDirectory(file.handle, &start);
             trial.Try([&] {
                 RestoreDirectory(&start);
                 TextBuffer here(ZUTEXT("x"));
                 qualify_filename(here.units);
                 return here.Is(outside.units);
             });
             RestoreDirectory(&start);
         }},
        {"file_exists",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return file_exists(file.path.c_str(), ftNone); });
         }},
        {"file_exists_anycase",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return file_exists_anycase(file.path.c_str(), ftNone); });
         }},
        {"search_for_file",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] {
                 TextBuffer name(file.path);
                 return search_for_file(name.units, ftNone);
             });
         }},
        {"tempname",
         [](Trial& trial) {
             const wstring16 directory = FaultDirectory().Path();
             trial.Try([&] {
                 TextBuffer name;
                 tempname(name.units, directory.c_str());
                 return IsTemporaryName(name.units, directory, ZUTEXT(".TMP"));
             });
         }},
        {"tempname, of a type",
         [](Trial& trial) {
             const OwnFileSystem own;
             const wstring16 directory = FaultDirectory().Path();
             temp_dir((directory + ZUTEXT("\\")).c_str());
             trial.Try([&] {
                 TextBuffer name;
                 tempname(name.units, nullptr, ftTab);
                 return IsTemporaryName(name.units, directory, ZUTEXT(".TAB"));
             });
         }},
        {"tempfile",
         [](Trial& trial) {
             const wstring16 directory = FaultDirectory().Path();
             FILE* file = nullptr;
             trial.Try(
                 [&] {
                     file = tempfile(directory.c_str());
                     return file != nullptr;
                 },
                 [&] { return file == nullptr; });
             funregister_file(file);
         }},
        {"CreteTempFolderForZxtTile",
         [](Trial& trial) {
             const wstring16 instead = FaultDirectory().Path() + ZUTEXT("\\");
             std::optional<OwnFileSystem> own(std::in_place);
             torvo_temp_dir(instead.c_str());
             TextBuffer folder;
             const auto isOwnFolder = [&] {
                 const std::basic_string_view<wchar16> text(folder.units);
                 return text.find(ZUTEXT("\\Zunavia.Application.x64.")) != text.npos;
             };
             trial.Try(
                 [&] {
                     CreteTempFolderForZxtTile(folder.units);
                     return isOwnFolder();
                 },
                 [&] {
                     // The folder is chosen once in an instance.
                     bool isTold = folder.Is(instead.c_str());
                     CreteTempFolderForZxtTile(folder.units);
                     isTold = isTold && folder.Is(instead.c_str());
                     isTold = isTold && register_file(ZUTEXT("next"), ftNone, true) == 1000;
                     unregister_file(1000);
                     own.reset();
                     own.emplace();
                     torvo_temp_dir(instead.c_str());
                     return isTold;
                 });
             const TextBuffer first(folder.units);
             EXPECT_TRUE(platform::PathIsDirectoryW(folder.units));
             CreteTempFolderForZxtTile(folder.units);
             EXPECT_TRUE(folder.Is(first.units));
             RemoveTileFolders();
         }},
        {"FileFindFirst",
         [](Trial& trial) {
             const RegisteredFile file;
             TextBuffer pattern(file.path);
             trial.Try([&] {
                 FILEFIND find = {};
                 const bool isFound = FileFindFirst(pattern.units, 0xFFFFFFFF, &find) == 1;
                 if (isFound) FileFindClose(&find);
                 return isFound;
             });
         }},
        {"FileFindNext",
         [](Trial& trial) {
             const RegisteredFile first(ZUTEXT("found1"));
             const RegisteredFile second(ZUTEXT("found2"));
             TextBuffer pattern(FaultDirectory().Path(ZUTEXT("found?")));
             trial.Try([&] {
                 FILEFIND find = {};
                 if (FileFindFirst(pattern.units, 0xFFFFFFFF, &find) != 1) return false;
                 const bool isFound = FileFindNext(&find) == 1;
                 FileFindClose(&find);
                 return isFound;
             });
         }},
        {"FileFindClose",
         [] {
             FILEFIND find = {};
             return FileFindClose(&find) == 0;
         }},
        {"FindFileInfo::Create",
         [](Trial& trial) { TryToMake(trial, [] { return FindFileInfo::Create(ZUTEXT("C:\\"), true); }); }},
        {"FindFileInfo::Find",
         [](Trial& trial) {
             const RegisteredFile file(ZUTEXT("found1"));
             const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(FaultDirectory().Path().c_str(), true));
             trial.Try([&] {
                 TextBuffer path;
                 return search->Find(ZUTEXT("found1"), path.units, 261);
             });
         }},
    };
}

}  // namespace
}  // namespace path_operations

Operations PathOperations() {
    using namespace path_operations;
    Operations all = NameOperations();
    for (const auto family : {FormOperations, KeptOperations, DiskOperations}) {
        for (const Operation& operation : family()) all.push_back(operation);
    }
    return all;
}

}  // namespace Torvo::test
