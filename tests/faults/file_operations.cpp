// The registry, the block cache, reading and writing by handle, and operations on whole files.
#include <Utility/Utility.h>
#include <faults/file_fixture.h>
#include <faults/operations.h>
#include <support/fixture_path.h>

#include <filesystem>

namespace Torvo::test {

namespace {

wstring16 PathOf(const wchar16* name) {
    return FaultDirectory().Path(name);
}

// What a removal in two steps could not take away.
void RemoveTemporaryFiles() {
    for (const auto& entry : std::filesystem::directory_iterator(FaultDirectory().Native())) {
        if (entry.path().extension() == ".TMP") std::filesystem::remove(entry.path());
    }
}

// A file that is registered once for all, for the calls that only look at the table.
int KnownFile() {
    static const RegisteredFile file(ZUTEXT("known.tab"));
    return file.handle;
}

void TryToRegister(Trial& trial, int (*registerFile)(const wchar16* path)) {
    const wstring16 path = PathOf(ZUTEXT("a new name that is longer than a string keeps within itself.bin"));
    int file = 0;
    trial.Try(
        [&] {
            file = registerFile(path.c_str());
            return file >= 1000;
        },
        [&] { return file <= 0 && is_file_registered(path.c_str(), ftNone) == 0; });
    unregister_file(file);
}

Operations RegistryOperations() {
    return {
        {"register_file",
         [](Trial& trial) {
             TryToRegister(trial, [](const wchar16* path) { return register_file(path, ftNone, true); });
         }},
        {"register_nonunique_file",
         [](Trial& trial) {
             TryToRegister(trial, [](const wchar16* path) { return register_nonunique_file(path, ftNone); });
         }},
        {"register_file_variant",
         [](Trial& trial) {
             const RegisteredFile base(ZUTEXT("base.tab"));
             int file = 0;
             trial.Try([&] {
                 file = register_file_variant(base.handle, nullptr, ftMap);
                 return file >= 1000;
             });
             unregister_file(file);
         }},
        {"fregister_file",
         [](Trial& trial) {
             TryToRegister(trial, [](const wchar16* path) { return fileno2(fregister_file(path, ftNone, true)); });
         }},
        {"fregister_nonunique_file",
         [](Trial& trial) {
             TryToRegister(trial, [](const wchar16* path) { return fileno2(fregister_nonunique_file(path, ftNone)); });
         }},
        {"is_file_registered",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return is_file_registered(file.path.c_str(), ftNone) == file.handle; });
         }},
        {"unregister_file",
         [](Trial& trial) {
             const wstring16 path = PathOf(ZUTEXT("gone.bin"));
             const int file = register_file(path.c_str(), ftNone, true);
             bool isDone = false;
             trial.Try([&] {
                 if (!isDone) unregister_file(file);
                 isDone = true;
                 return GetFileFD(file) == -1;
             });
             EXPECT_EQ(is_file_registered(path.c_str(), ftNone), 0);
         }},
        {"funregister_file",
         [] {
             funregister_file(nullptr);
             return true;
         }},
        {"fhandle2name",
         [] {
             TextBuffer name;
             fhandle2name(KnownFile(), name.units);
             return name.Is(ZUTEXT("known.tab"));
         }},
        {"fhandle2dir",
         [] {
             TextBuffer name;
             fhandle2dir(KnownFile(), name.units);
             return name.units[0] != 0;
         }},
        {"fhandle2path",
         [] {
             TextBuffer name;
             fhandle2path(KnownFile(), name.units);
             return name.units[0] != 0;
         }},
        {"fhandle2partialpath",
         [] {
             TextBuffer name;
             fhandle2partialpath(KnownFile(), name.units, KnownFile());
             return name.Is(ZUTEXT("known.tab"));
         }},
        {"filehandle_get_openmode", [] { return filehandle_get_openmode(KnownFile()) != omCreate; }},
        {"file_put_charset",
         [] {
             file_put_charset(KnownFile(), csWindowsGreek);
             return file_get_charset(KnownFile()) == csWindowsGreek;
         }},
        {"file_get_charset", [] { return file_get_charset(KnownFile()) != csUnknown; }},
        {"GetFileFD", [] { return GetFileFD(KnownFile()) == -1; }},
        {"GetFilePtr", [] { return GetFilePtr(nullptr) == nullptr; }},
        {"fileno2", [] { return fileno2(nullptr) <= 0; }},
        {"GetMaxFileCount", [] { return GetMaxFileCount() > 0; }},
        {"GetFileAccessRetryTime", [] { return GetFileAccessRetryTime() >= 0; }},
        {"SetFileAccessRetryTime",
         [] {
             SetFileAccessRetryTime(GetFileAccessRetryTime());
             return true;
         }},
        {"SetCloseReadOnlyFiles",
         [] {
             SetCloseReadOnlyFiles(cFileSystem::GetCloseReadOnlyFiles());
             return true;
         }},
        {"cFileSystem::SetCloseReadOnlyFiles",
         [] {
             cFileSystem::SetCloseReadOnlyFiles(cFileSystem::GetCloseReadOnlyFiles());
             return true;
         }},
        {"cFileSystem::GetCloseReadOnlyFiles",
         [] { return cFileSystem::GetCloseReadOnlyFiles() == cFileSystem::GetCloseReadOnlyFiles(); }},
        {"cFileSystem::Create", [](Trial& trial) { TryToMake(trial, [] { return cFileSystem::Create(); }); }},
        {"cFileSystem::Create, with a budget",
         [](Trial& trial) { TryToMake(trial, [] { return cFileSystem::Create(20, true, nullptr); }); }},
        {"cFileSystem::Instance", [] { return cFileSystem::Instance(cFileSystem::Instance()); }},
        {"cFileCache::Create", [](Trial& trial) { TryToMake(trial, [] { return cFileCache::Create(5, 512); }); }},
        {"cFileCache::Instance", [] { return cFileCache::Instance(cFileCache::Instance()); }},
    };
}

Operations OpeningOperations() {
    return {
        {"fileopen",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return fileopen(file.handle, omReadWrite, nullptr) == file.handle; },
                       [&] { return GetFileFD(file.handle) == -1; });
             EXPECT_EQ(close2(file.handle), 0);
         }},
        {"fileopen, to create",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return fileopen(file.handle, omCreate, nullptr) == file.handle; },
                       [&] { return GetFileFD(file.handle) == -1; });
             EXPECT_EQ(filelength2(file.handle), 0);
             EXPECT_EQ(close2(file.handle), 0);
         }},
        {"close2",
         [](Trial& trial) {
             const RegisteredFile file;
             EXPECT_EQ(fileopen(file.handle, omRead, nullptr), file.handle);
             bool isClosed = false;
             trial.Try([&] {
                 if (!isClosed) close2(file.handle);
                 isClosed = true;
                 return GetFileFD(file.handle) == -1;
             });
         }},
        {"really_close_all",
         [](Trial& trial) {
             trial.Try([] {
                 really_close_all();
                 return true;
             });
         }},
        {"really_close_next",
         [](Trial& trial) {
             trial.Try([] {
                 really_close_next();
                 return true;
             });
         }},
        {"stream_fileopen",
         [](Trial& trial) {
             const std::string source = DataPath("workbook.xls");
             const int file = register_file(Wide(source).c_str(), ftNone, true);
             bool isOpen = false;
             trial.Try([&] {
                 isOpen = stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")) == file;
                 return isOpen;
             });
             char bytes[16];
             EXPECT_EQ(stream_read(file, bytes, 16), 16);
             EXPECT_EQ(stream_close(file), 0);
             unregister_file(file);
         }},
        {"stream_read",
         [](Trial& trial) {
             const RegisteredFile file;
             EXPECT_EQ(stream_fileopen(file.handle, omRead, nullptr, ZUTEXT("Workbook")), file.handle);
             char bytes[16];
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return stream_read(file.handle, bytes, 16) == 16;
             });
             EXPECT_EQ(stream_close(file.handle), 0);
         }},
        {"stream_lseek",
         [] {
             // Of a file that is no compound one: the logical position.
             return stream_lseek(KnownFile(), 5, 0) == 5;
         }},
        {"stream_close",
         [](Trial& trial) {
             const RegisteredFile file;
             EXPECT_EQ(stream_fileopen(file.handle, omRead, nullptr, ZUTEXT("Workbook")), file.handle);
             bool isClosed = false;
             trial.Try([&] {
                 if (!isClosed) stream_close(file.handle);
                 isClosed = true;
                 return GetFileFD(file.handle) == -1;
             });
         }},
    };
}

Operations ByteOperations() {
    return {
        {"lseek2", [] { return lseek2(KnownFile(), 5, 0) == 5; }},
        {"tell2", [] { return tell2(KnownFile()) >= 0; }},
        {"filelength2", [] { return filelength2(KnownFile()) >= -1; }},
        {"read2",
         [](Trial& trial) {
             const OpenFile file(omRead);
             std::string bytes(3010, '#');
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return read2(file.handle, bytes.data(), 3010) == 3010;
             });
             EXPECT_EQ(bytes, FileContent());
         }},
        {"write2",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             const std::string bytes(3000, 'y');
             trial.Try([&] {
                 lseek2(file.handle, 1000, 0);
                 return write2(file.handle, bytes.data(), 3000) == 3000;
             });
             EXPECT_EQ(filelength2(file.handle), 4000);
         }},
        {"chsize2",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             trial.Try([&] { return chsize2(file.handle, 5000) == 0; },
                       [&] { return filelength2(file.handle) == 3010; });
             EXPECT_EQ(filelength2(file.handle), 5000);
         }},
        {"write_app_string",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return write_app_string(file.handle, ZUTEXT("text")) == 4;
             });
         }},
        {"read_app_string",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             write_app_string(file.handle, ZUTEXT("text"));
             file.cache->Flush(file.handle);
             file.cache->Forget(file.handle);
             TextBuffer text;
             trial.Try(
                 [&] {
                     lseek2(file.handle, 0, 0);
                     return read_app_string(file.handle, text.units, 100) && text.Is(ZUTEXT("text"));
                 },
                 [&] { return text.Is(ZUTEXT("")); });
         }},
        {"read_app_string_len",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             write_app_string(file.handle, ZUTEXT("text"));
             file.cache->Flush(file.handle);
             file.cache->Forget(file.handle);
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return read_app_string_len(file.handle) == 4;
             });
         }},
        {"cFileCache::Flush",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             EXPECT_EQ(write2(file.handle, "abc", 3), 3);
             trial.Try([&] { return file.cache->Flush(file.handle); });
         }},
        {"cFileCache::Lookup",
         [](Trial& trial) {
             const OpenFile file(omRead);
             CacheEntry* entry = nullptr;
             trial.Try([&] { return file.cache->Lookup(file.handle, 0, &entry, 2) && entry->count == 512; },
                       // A block that could not be read is in the cache, and empty, until the file is forgotten.
                       [&] { return file.cache->Forget(file.handle); });
         }},
        {"ProcessUTFBom",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             WriteUTFBom(file.handle, csUTF8);
             file.cache->Flush(file.handle);
             file.cache->Forget(file.handle);
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return ProcessUTFBom(file.handle) == csUTF8;
             });
         }},
        {"WriteUTFBom",
         [](Trial& trial) {
             const OpenFile file(omReadWrite);
             trial.Try([&] {
                 lseek2(file.handle, 0, 0);
                 return WriteUTFBom(file.handle, csUTF8);
             });
         }},
    };
}

Operations WholeFileOperations() {
    return {
        {"fileremove",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return fileremove(file.handle); },
                       [&] { return FaultDirectory().Has(ZUTEXT("file.bin")); });
             EXPECT_FALSE(FaultDirectory().Has(ZUTEXT("file.bin")));
         }},
        {"group_fileremove",
         [](Trial& trial) {
             const RegisteredFile first(ZUTEXT("first.bin"));
             const RegisteredFile second(ZUTEXT("second.bin"));
             int files[] = {first.handle, second.handle};
             trial.Try([&] { return group_fileremove(files, 2); },
                       [&] {
                           const bool areBack =
                               FaultDirectory().Has(ZUTEXT("first.bin")) && FaultDirectory().Has(ZUTEXT("second.bin"));
                           // Where every call fails from then on, a file cannot get its name back either.
                           for (const wchar16* name : {ZUTEXT("first.bin"), ZUTEXT("second.bin")}) {
                               FaultDirectory().Write(name, FileContent());
                           }
                           return areBack || trial.Lasts();
                       });
             RemoveTemporaryFiles();
         }},
        {"renamefile",
         [](Trial& trial) {
             RegisteredFile file;
             const wchar16* const name = ZUTEXT("renamed.bin");
             if (FaultDirectory().Has(name)) FaultDirectory().Remove(name);
             trial.Try([&] { return renamefile(&file.handle, name, ftNone); },
                       [&] {
                           // A copy that could not be finished may be there.
                           if (FaultDirectory().Has(name)) FaultDirectory().Remove(name);
                           return FaultDirectory().Read(ZUTEXT("file.bin")) == FileContent();
                       });
             EXPECT_EQ(FaultDirectory().Read(name), FileContent());
         }},
        {"filecopy",
         [](Trial& trial) {
             const RegisteredFile from(ZUTEXT("from.bin"));
             const RegisteredFile to(ZUTEXT("to.bin"));
             trial.Try([&] { return filecopy(from.handle, to.handle, false); });
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("to.bin")), FileContent());
         }},
        {"touch",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return touch(file.handle); });
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("file.bin")), FileContent());
         }},
        {"file_get_timestamp",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return file_get_timestamp(file.handle) > 0; });
         }},
        {"file_set_timestamp",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return file_set_timestamp(file.handle); });
         }},
        {"rename2",
         [](Trial& trial) {
             const RegisteredFile file;
             const wchar16* const name = ZUTEXT("renamed.bin");
             if (FaultDirectory().Has(name)) FaultDirectory().Remove(name);
             const wstring16 target = PathOf(name);
             trial.Try([&] { return rename2(file.path.c_str(), target.c_str()) == 0; },
                       [&] { return FaultDirectory().Has(ZUTEXT("file.bin")); });
             EXPECT_TRUE(FaultDirectory().Has(name));
         }},
        {"remove2",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return remove2(file.path.c_str()) == 0; },
                       [&] { return FaultDirectory().Has(ZUTEXT("file.bin")); });
         }},
        {"access2",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return access2(file.path.c_str(), 0) == 0; });
         }},
        {"stat2",
         [](Trial& trial) {
             const RegisteredFile file;
             struct _stat64 status = {};
             trial.Try([&] { return stat2(file.path.c_str(), &status) == 0; });
             EXPECT_EQ(status.st_size, 3010);
         }},
    };
}

}  // namespace

Operations FileOperations() {
    Operations all = RegistryOperations();
    for (const auto family : {OpeningOperations, ByteOperations, WholeFileOperations}) {
        for (const Operation& operation : family()) all.push_back(operation);
    }
    return all;
}

}  // namespace Torvo::test
