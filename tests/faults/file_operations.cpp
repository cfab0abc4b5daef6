// The registry, the block cache, reading and writing by handle, and operations on whole files.
#include <Utility/Utility.h>
#include <faults/file_fixture.h>
#include <faults/operations.h>
#include <support/fixture_path.h>
#include <support/own_file_system.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

namespace Torvo::test {

namespace file_operations {
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

// How many files of the directory hold these bytes, whatever their names are.
int FilesHolding(const std::string& content) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(FaultDirectory().Native())) {
        if (!entry.is_regular_file()) continue;
        std::ifstream in(entry.path(), std::ios::binary);
        if (std::string(std::istreambuf_iterator<char>(in), {}) == content) ++count;
    }
    return count;
}

// Two files that are idle, in a file system that leaves them open.
class IdleFiles {
public:
    IdleFiles() : own(cFileSystem::Create(20, false, nullptr)), former(cFileSystem::Instance()) {
        cFileSystem::Instance(own.get());
        for (const wchar16* name : {ZUTEXT("idle1"), ZUTEXT("idle2")}) {
            const int file = register_file(FaultDirectory().Write(name, FileContent()).c_str(), ftNone, true);
            EXPECT_EQ(fileopen(file, omRead, nullptr), file);
            EXPECT_EQ(close2(file), 0);
        }
    }
    ~IdleFiles() {
        for (const int file : {First, Second}) unregister_file(file);
        cFileSystem::Instance(former);
    }
    IdleFiles(const IdleFiles&) = delete;
    IdleFiles& operator=(const IdleFiles&) = delete;

    static constexpr int First = 1000;
    static constexpr int Second = 1001;

private:
    const std::unique_ptr<cFileSystem> own;
    cFileSystem* const former;
};

void TryToCloseIdle(Trial& trial, void (*closeIdle)()) {
    const IdleFiles files;
    EXPECT_NE(GetFileFD(IdleFiles::Second), -1);
    trial.Try([&] {
        closeIdle();
        return GetFileFD(IdleFiles::First) == -1 && GetFileFD(IdleFiles::Second) == -1;
    });
    for (const int file : {IdleFiles::First, IdleFiles::Second}) {
        EXPECT_EQ(fileopen(file, omRead, nullptr), file);
        EXPECT_EQ(close2(file), 0);
    }
}

// A stream of a compound file, open.
class OpenCompound {
public:
    OpenCompound() : file(register_file(Wide(DataPath("workbook.xls")).c_str(), ftNone, true)) {
        EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
        EXPECT_EQ(GetFileFD(file), -1);  // it is no plain file
        EXPECT_EQ(stream_read(file, start, 16), 16);
    }
    ~OpenCompound() {
        stream_close(file);
        unregister_file(file);
    }
    OpenCompound(const OpenCompound&) = delete;
    OpenCompound& operator=(const OpenCompound&) = delete;
    bool StartsWith(const char* bytes) const { return std::memcmp(bytes, start, 16) == 0; }

    const int file;
    char start[16] = {};
};

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
         [] {
             const int known = KnownFile();
             static const wstring16 path = PathOf(ZUTEXT("known.tab"));
             return is_file_registered(path.c_str(), ftNone) == known;
         }},
        {"is_file_registered, by a name alone",
         [](Trial& trial) {
             const int file = register_file(ZUTEXT("here.bin"), ftNone, true);
             trial.Try([&] { return is_file_registered(ZUTEXT("here.bin"), ftNone) == file; });
             unregister_file(file);
         }},
        {"unregister_file",
         [](Trial& trial) {
             // It is open, and has bytes that are not on disk yet.
             const OwnCache cache(5, 512);
             const wstring16 path = FaultDirectory().Write(ZUTEXT("gone.bin"), FileContent());
             const int file = register_file(path.c_str(), ftNone, true);
             EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
             EXPECT_EQ(write2(file, "abc", 3), 3);
             trial.Try([&] {
                 unregister_file(file);
                 return GetFileFD(file) == -1 && is_file_registered(path.c_str(), ftNone) == 0;
             });
             EXPECT_EQ(NumErrors(), 0);
             // What could not be written is dropped, and nothing else.
             const std::string content = FaultDirectory().Read(ZUTEXT("gone.bin"));
             EXPECT_TRUE(content == "abc" + FileContent().substr(3) || (trial.WasHit() && content == FileContent()));
             EXPECT_EQ(register_file(path.c_str(), ftNone, true), file);
             EXPECT_EQ(fileopen(file, omReadWrite, nullptr), file);
             std::string bytes(3010, '#');
             EXPECT_EQ(read2(file, bytes.data(), 3010), 3010);
             EXPECT_EQ(bytes, content);
             EXPECT_EQ(close2(file), 0);
             unregister_file(file);
         }},
        {"funregister_file",
         [](Trial& trial) {
             const wstring16 path = FaultDirectory().Write(ZUTEXT("gone.txt"), FileContent());
             FILE* const file = fregister_file(path.c_str(), ftNone, true);
             EXPECT_EQ(ffileopen(file, omRead, nullptr), file);
             trial.Try([&] {
                 funregister_file(file);
                 return GetFilePtr(file) == nullptr && is_file_registered(path.c_str(), ftNone) == 0;
             });
             FaultDirectory().Remove(ZUTEXT("gone.txt"));
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
                       [&] { return NumErrors() == 1 && GetFileFD(file.handle) == -1; }, {13, 5001});
             EXPECT_EQ(filelength2(file.handle), 3010);
             EXPECT_EQ(close2(file.handle), 0);
         }},
        {"fileopen, to create",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return fileopen(file.handle, omCreate, nullptr) == file.handle; },
                       [&] { return GetFileFD(file.handle) == -1; }, {5001});
             EXPECT_EQ(filelength2(file.handle), 0);
             EXPECT_EQ(close2(file.handle), 0);
         }},
        {"close2",
         [](Trial& trial) {
             const RegisteredFile file;
             EXPECT_EQ(fileopen(file.handle, omRead, nullptr), file.handle);
             bool isClosed = false;
             trial.Try([&] {
                 if (!isClosed) isClosed = close2(file.handle) == 0;
                 return isClosed && GetFileFD(file.handle) == -1;
             });
         }},
        {"really_close_all", [](Trial& trial) { TryToCloseIdle(trial, really_close_all); }},
        {"really_close_next", [](Trial& trial) { TryToCloseIdle(trial, really_close_next); }},
        {"fileopen, of a file that is held for reading",
         [](Trial& trial) {
             const RegisteredFile file;
             EXPECT_EQ(fileopen(file.handle, omRead, nullptr), file.handle);
             trial.Try([&] { return fileopen(file.handle, omReadWrite, nullptr) == file.handle; },
                       // It is open as it was, if it could be had again at all.
                       [&] {
                           return (trial.Lasts() || GetFileFD(file.handle) != -1) &&
                                  filehandle_get_openmode(file.handle) == omRead;
                       },
                       {13, 5001});
             EXPECT_EQ(filehandle_get_openmode(file.handle), omReadWrite);
             while (GetFileFD(file.handle) != -1) EXPECT_EQ(close2(file.handle), 0);
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("file.bin")), FileContent());
         }},
        {"stream_fileopen",
         [](Trial& trial) {
             const std::string source = DataPath("workbook.xls");
             const int file = register_file(Wide(source).c_str(), ftNone, true);
             int opened = 0;
             trial.Try(
                 [&] {
                     opened = stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook"));
                     return opened == file;
                 },
                 [&] { return opened == -1 && GetFileFD(file) == -1; }, {13, 5001});
             char bytes[16];
             EXPECT_EQ(stream_read(file, bytes, 16), 16);
             EXPECT_EQ(stream_close(file), 0);
             EXPECT_EQ(GetFileFD(file), -1);
             // One that could not be looked into was opened as a plain file; now it is a compound one.
             EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
             EXPECT_EQ(GetFileFD(file), -1);
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
        {"stream_read, of a compound file",
         [](Trial& trial) {
             const OpenCompound compound;
             EXPECT_EQ(stream_lseek(compound.file, 0, 0), 0);
             char bytes[16] = {};
             int got = 0;
             trial.Try(
                 [&] {
                     got = stream_read(compound.file, bytes, 16);
                     return got == 16;
                 },
                 [&] { return got == -1; });
             EXPECT_TRUE(compound.StartsWith(bytes));
         }},
        {"stream_lseek, of a compound file",
         [](Trial& trial) {
             const OpenCompound compound;
             int position = 0;
             trial.Try(
                 [&] {
                     position = stream_lseek(compound.file, -11, 1);
                     return position == 5;
                 },
                 [&] { return position == -1; });
             char byte = 0;
             EXPECT_EQ(stream_read(compound.file, &byte, 1), 1);
             EXPECT_EQ(byte, compound.start[5]);
         }},
        {"stream_close, of a compound file",
         [](Trial& trial) {
             const int file = register_file(Wide(DataPath("workbook.xls")).c_str(), ftNone, true);
             EXPECT_EQ(stream_fileopen(file, omRead, nullptr, ZUTEXT("Workbook")), file);
             trial.Try([&] { return stream_close(file) == 0; });
             EXPECT_EQ(stream_lseek(file, 0, 0), 0);  // of the plain file that it is again
             EXPECT_EQ(stream_close(file), -1);
             ClearErrors();
             unregister_file(file);
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
             int got = 0;
             trial.Try(
                 [&] {
                     lseek2(file.handle, 0, 0);
                     got = read2(file.handle, bytes.data(), 3010);
                     return got == 3010;
                 },
                 [&] {
                     return got >= 0 && got < 3010 && tell2(file.handle) == got &&
                            bytes.compare(0, static_cast<std::size_t>(got), FileContent(), 0,
                                          static_cast<std::size_t>(got)) == 0;
                 });
             EXPECT_EQ(bytes, FileContent());
         }},
        {"write2",
         [](Trial& trial) {
             const std::string bytes(3000, 'y');
             int put = 0;
             {
                 const OpenFile file(omReadWrite);
                 trial.Try(
                     [&] {
                         lseek2(file.handle, 1000, 0);
                         put = write2(file.handle, bytes.data(), 3000);
                         return put == 3000;
                     },
                     [&] { return put == -1; });
                 EXPECT_EQ(filelength2(file.handle), 4000);
             }
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("file.bin")), FileContent().substr(0, 1000) + bytes);
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
             bool isFound = true;
             trial.Try(
                 [&] {
                     isFound = file.cache->Lookup(file.handle, 0, &entry, 2);
                     return isFound && entry->count == 512;
                 },
                 // A block that could not be read is in the cache, and empty, until the file is forgotten.
                 [&] {
                     return !isFound && file.cache->Lookup(file.handle, 0, &entry, 2) && entry->count == 0 &&
                            file.cache->Forget(file.handle) && !file.cache->Lookup(file.handle, 0, &entry, 0);
                 });
             EXPECT_EQ(std::memcmp(file.cache->BlockData(entry->slot), FileContent().data(), 512), 0);
         }},
        {"cFileCache::Lookup, in the place of a dirty block",
         [](Trial& trial) {
             {
                 const OpenFile file(omReadWrite);
                 EXPECT_EQ(write2(file.handle, "abc", 3), 3);
                 CacheEntry* entry = nullptr;
                 for (const int64 block : {1, 2, 3}) EXPECT_TRUE(file.cache->Lookup(file.handle, block, &entry, 2));
                 bool isFound = true;
                 trial.Try(
                     [&] {
                         isFound = file.cache->Lookup(file.handle, 4, &entry, 1);
                         return isFound;
                     },
                     // What is not on disk is in the cache still.
                     [&] {
                         return !isFound && file.cache->Lookup(file.handle, 0, &entry, 0) && (entry->flags & 1) != 0;
                     });
             }
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("file.bin")), "abc" + FileContent().substr(3));
         }},
        {"cFileCache::Forget",
         [](Trial& trial) {
             bool isForgotten = true;
             {
                 const OpenFile file(omReadWrite);
                 EXPECT_EQ(write2(file.handle, "abc", 3), 3);
                 CacheEntry* entry = nullptr;
                 trial.Try([&] { return isForgotten = file.cache->Forget(file.handle); },
                           // What could not be written is dropped.
                           [&] { return !isForgotten && !file.cache->Lookup(file.handle, 0, &entry, 0); });
             }
             const std::string content = FaultDirectory().Read(ZUTEXT("file.bin"));
             EXPECT_TRUE(content == "abc" + FileContent().substr(3) || (trial.WasHit() && content == FileContent()));
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
             const auto write = [] {
                 RemoveTemporaryFiles();
                 FaultDirectory().Write(ZUTEXT("first.bin"), "the first");
                 FaultDirectory().Write(ZUTEXT("second.bin"), "the second");
             };
             write();
             int files[] = {first.handle, second.handle};
             trial.Try([&] { return group_fileremove(files, 2); },
                       [&] {
                           // Each is there once. Where every call fails from then on, it cannot get its name back.
                           const bool areThere = FilesHolding("the first") == 1 && FilesHolding("the second") == 1;
                           const bool areBack =
                               FaultDirectory().Has(ZUTEXT("first.bin")) && FaultDirectory().Has(ZUTEXT("second.bin"));
                           write();
                           return areThere && (areBack || trial.Lasts());
                       });
             EXPECT_FALSE(FaultDirectory().Has(ZUTEXT("first.bin")) || FaultDirectory().Has(ZUTEXT("second.bin")));
             EXPECT_TRUE(trial.WasHit() || FilesHolding("the first") + FilesHolding("the second") == 0);
             RemoveTemporaryFiles();
         }},
        {"renamefile",
         [](Trial& trial) {
             RegisteredFile file;
             const wchar16* const name = ZUTEXT("renamed.bin");
             if (FaultDirectory().Has(name)) FaultDirectory().Remove(name);
             const int before = file.handle;
             trial.Try([&] { return renamefile(&file.handle, name, ftNone); },
                       [&] {
                           // A copy that could not be finished may be there.
                           if (FaultDirectory().Has(name)) FaultDirectory().Remove(name);
                           return FaultDirectory().Read(ZUTEXT("file.bin")) == FileContent() && file.handle == before &&
                                  is_file_registered(PathOf(name).c_str(), ftNone) == 0;
                       },
                       {5, 7, 13, 5001});
             EXPECT_EQ(FaultDirectory().Read(name), FileContent());
             EXPECT_FALSE(FaultDirectory().Has(ZUTEXT("file.bin")));
         }},
        {"filecopy",
         [](Trial& trial) {
             const RegisteredFile from(ZUTEXT("from.bin"));
             const RegisteredFile to(ZUTEXT("to.bin"));
             FaultDirectory().Write(ZUTEXT("to.bin"), "something else");
             trial.Try([&] { return filecopy(from.handle, to.handle, false); },
                       [&] {
                           return NumErrors() <= 1 && FaultDirectory().Read(ZUTEXT("from.bin")) == FileContent() &&
                                  GetFileFD(from.handle) == -1 && GetFileFD(to.handle) == -1;
                       },
                       {7, 13, 5001});
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("to.bin")), FileContent());
         }},
        {"touch",
         [](Trial& trial) {
             const RegisteredFile file;
             trial.Try([&] { return touch(file.handle); }, [&] { return GetFileFD(file.handle) == -1; }, {13, 5001});
             EXPECT_EQ(FaultDirectory().Read(ZUTEXT("file.bin")), FileContent());
         }},
        {"file_get_timestamp",
         [](Trial& trial) {
             const RegisteredFile file;
             int64 time = 77;
             trial.Try(
                 [&] {
                     time = file_get_timestamp(file.handle);
                     return time > 0;
                 },
                 [&] { return time == 0; });
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
        {"fhandle2partialpath, from the current directory",
         [](Trial& trial) {
             const int file = register_file(ZUTEXT("here.bin"), ftNone, true);
             TextBuffer name;
             trial.Try([&] {
                 fhandle2partialpath(file, name.units, 0);
                 return name.Is(ZUTEXT("here.bin"));
             });
             unregister_file(file);
         }},
        {"register_file_variant, of a temporary file",
         [](Trial& trial) {
             const OwnFileSystem own;
             const wstring16 directory = FaultDirectory().Path() + ZUTEXT("\\");
             temp_dir(directory.c_str());
             int file = 0;
             trial.Try(
                 [&] {
                     file = register_file_variant(0, nullptr, ftNone);
                     return file == 1000;
                 },
                 [&] { return file == 0; });
             unregister_file(file);
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
}  // namespace file_operations

Operations FileOperations() {
    using namespace file_operations;
    Operations all = RegistryOperations();
    for (const auto family : {OpeningOperations, ByteOperations, WholeFileOperations}) {
        for (const Operation& operation : family()) all.push_back(operation);
    }
    return all;
}

}  // namespace Torvo::test
