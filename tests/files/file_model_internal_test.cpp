// Files, budget and cache together, over random operations, against what a file is: an array of bytes. After every
// operation the registry and the cache are sound; whenever a file is closed, the disk holds what was written.

#include <Utility/files/file_cache.h>
#include <Utility/files/file_system_impl.h>

#include <gtest/gtest.h>
#include <support/fresh_files.h>
#include <support/random.h>

#include <algorithm>
#include <array>

namespace Torvo::test {
namespace file_model_internal_test {
namespace {

constexpr int FileCount = 12;
constexpr int Operations = 75'000;
// Small blocks in a small cache, so that files meet in it and lose their blocks to each other.
constexpr int BlockCount = 24;
constexpr int LargestBlockSize = 512;
constexpr int64 LongestFile = 12 * LargestBlockSize;

struct ModelFile {
    wstring16 name;
    int handle = 0;
    std::string content;
    int64 position = 0;
    int references = 0;
    bool writable = false;
    bool exists = false;
};

// With a size of blocks that is a power of two, and with one that is not.
class FileModel : public testing::TestWithParam<int> {
protected:
    FileModel()
        : files({.budget = 5, .closeReadOnly = false, .blocks = BlockCount, .blockSize = GetParam()}),
          system(static_cast<cFileSystemImpl*>(cFileSystem::Instance())),
          cache(static_cast<FileCacheImpl*>(cFileCache::Instance())) {
        for (std::size_t index = 0; index < FileCount; ++index) {
            models[index].name = wstring16(1, static_cast<wchar16>('a' + index));
            models[index].handle = files.Register(models[index].name);
        }
    }
    ~FileModel() override {
        for (const ModelFile& model : models) unregister_file(model.handle);
    }

    void Step();
    void Open(ModelFile& model);
    void Close(ModelFile& model);
    void Seek(ModelFile& model);
    void Read(ModelFile& model);
    void Write(ModelFile& model);
    void Resize(ModelFile& model);
    void Copy(ModelFile& from, ModelFile& to);
    void Remove(ModelFile& model);
    void ChangeOutside(ModelFile& model);
    void RegisterAnew(ModelFile& model);
    void CheckDisk(const ModelFile& model);

    int HeldFiles() const {
        return static_cast<int>(
            std::count_if(models.begin(), models.end(), [](const ModelFile& m) { return m.references > 0; }));
    }
    ModelFile& Any() { return models[static_cast<std::size_t>(random.Between(0, FileCount - 1))]; }
    std::string SomeBytes(int64 count) {
        std::string bytes(static_cast<std::size_t>(count), '\0');
        for (char& byte : bytes) byte = static_cast<char>(random.Between('a', 'z'));
        return bytes;
    }
    // Small amounts mostly, some that are about a block, some of several.
    int64 SomeCount() {
        return random.Between(0, random.OneIn(4) ? 3 * blockSize : random.OneIn(3) ? blockSize + 1 : 40);
    }

    Random random;
    const int blockSize = GetParam();
    const FreshFiles files;
    cFileSystemImpl* const system;
    FileCacheImpl* const cache;
    std::array<ModelFile, FileCount> models;
};

void FileModel::Open(ModelFile& model) {
    const bool alreadyOpen = model.references > 0;
    const auto mode = static_cast<eOpenMode>(random.OneIn(10) ? 3 : random.Between(1, 2));
    const int opened = fileopen(model.handle, mode, nullptr);
    const bool budgetIsLeft = alreadyOpen || HeldFiles() < GetMaxFileCount();
    const bool serves = !alreadyOpen || model.writable || mode != omCreate;
    const bool isThere = model.exists || mode == omCreate;
    // A file that was created serves those who want to create it; one that was opened to write does not.
    if (alreadyOpen && mode == omCreate && model.writable) {
        if (filehandle_get_openmode(model.handle) != omCreate) {
            ASSERT_EQ(opened, -1);
            return;
        }
    }
    if (!budgetIsLeft || !serves || !isThere) {
        ASSERT_EQ(opened, -1);
        return;
    }
    ASSERT_EQ(opened, model.handle);
    if (!alreadyOpen && mode == omCreate) model.content.clear();
    model.exists = true;
    model.writable = alreadyOpen ? model.writable || mode == omReadWrite : mode != omRead;
    model.position = 0;
    ++model.references;
    ASSERT_EQ(filelength2(model.handle), static_cast<int64>(model.content.size()));
}

void FileModel::Close(ModelFile& model) {
    ASSERT_EQ(close2(model.handle), model.references > 0 ? 0 : -1);
    if (model.references == 0 || --model.references > 0) return;
    CheckDisk(model);
}

void FileModel::CheckDisk(const ModelFile& model) {
    ASSERT_EQ(files.directory.Has(model.name), model.exists);
    if (model.exists) {
        ASSERT_EQ(ContentOnDisk(model.handle, files.directory, model.name), model.content);
    }
}

void FileModel::Seek(ModelFile& model) {
    const int64 length = static_cast<int64>(model.content.size());
    model.position = random.Between(0, length);
    switch (random.Between(0, 2)) {
        case 0:
            ASSERT_EQ(lseek2(model.handle, model.position, 0), model.position);
            break;
        case 1:
            ASSERT_EQ(lseek2(model.handle, model.position - tell2(model.handle), 1), model.position);
            break;
        default:
            ASSERT_EQ(lseek2(model.handle, model.position - length, 2), model.position);
            break;
    }
}

void FileModel::Read(ModelFile& model) {
    if (model.references == 0) return;
    const int64 count = SomeCount();
    const std::string expected =
        model.content.substr(static_cast<std::size_t>(model.position), static_cast<std::size_t>(count));
    ASSERT_EQ(ReadBytes(model.handle, static_cast<uint64>(count)), expected);
    model.position += static_cast<int64>(expected.size());
    ASSERT_EQ(tell2(model.handle), model.position);
}

void FileModel::Write(ModelFile& model) {
    if (model.references == 0) return;
    const std::string bytes = SomeBytes(std::min(SomeCount(), LongestFile - model.position));
    if (!model.writable) {
        ASSERT_EQ(WriteBytes(model.handle, bytes), -1);
        return;
    }
    ASSERT_EQ(WriteBytes(model.handle, bytes), static_cast<int>(bytes.size()));
    model.content.replace(static_cast<std::size_t>(model.position), bytes.size(), bytes);
    model.position += static_cast<int64>(bytes.size());
    ASSERT_EQ(tell2(model.handle), model.position);
    ASSERT_EQ(filelength2(model.handle), static_cast<int64>(model.content.size()));
}

void FileModel::Resize(ModelFile& model) {
    if (model.references == 0 || !model.writable) return;
    const int64 length =
        random.OneIn(3) ? random.Between(0, LongestFile / blockSize) * blockSize : random.Between(0, LongestFile);
    ASSERT_EQ(chsize2(model.handle, length), 0);
    model.content.resize(static_cast<std::size_t>(length), '\0');
    ASSERT_EQ(filelength2(model.handle), length);
    if (model.position > length) Seek(model);
}

void FileModel::Copy(ModelFile& from, ModelFile& to) {
    if (from.references > 0 || to.references > 0 || &from == &to || HeldFiles() > GetMaxFileCount() - 2) return;
    const bool append = random.OneIn(2);
    const bool possible = from.exists && (to.exists || !append);
    ASSERT_EQ(filecopy(from.handle, to.handle, append), possible);
    if (!possible) return;
    to.content = append ? to.content + from.content : from.content;
    to.exists = true;
    CheckDisk(to);
    // Appending must not make files grow without end.
    if (static_cast<int64>(to.content.size()) > LongestFile) Remove(to);
}

void FileModel::Remove(ModelFile& model) {
    if (model.references > 0) return;
    ASSERT_EQ(fileremove(model.handle), model.exists);
    model.exists = false;
    model.content.clear();
    CheckDisk(model);
}

// Another program writes the file while it is closed here.
void FileModel::ChangeOutside(ModelFile& model) {
    if (model.references > 0) return;
    system->ReallyClose(*system->FindEntry(model.handle));
    model.content = SomeBytes(random.Between(0, LongestFile));
    model.exists = true;
    files.directory.Write(model.name, model.content);
    const auto native = files.directory.Native(model.name);
    std::filesystem::last_write_time(
        native, std::filesystem::file_time_type::clock::now() - std::chrono::seconds(random.Between(10, 100'000)));
}

void FileModel::RegisterAnew(ModelFile& model) {
    unregister_file(model.handle);
    model.references = 0;
    CheckDisk(model);
    model.handle = files.Register(model.name);
    ASSERT_NE(model.handle, 0);
}

void FileModel::Step() {
    ModelFile& model = Any();
    const int64 choice = random.Between(0, 999);
    if (choice < 150) {
        Open(model);
    } else if (choice < 280) {
        Close(model);
    } else if (choice < 480) {
        if (model.references > 0) Seek(model);
    } else if (choice < 700) {
        Read(model);
    } else if (choice < 930) {
        Write(model);
    } else if (choice < 965) {
        Resize(model);
    } else if (choice < 975) {
        Copy(model, Any());
    } else if (choice < 980) {
        Remove(model);
    } else if (choice < 985) {
        ChangeOutside(model);
    } else if (choice < 990) {
        RegisterAnew(model);
    } else if (choice < 993) {
        really_close_all();
    } else {
        ASSERT_TRUE(cache->Flush(-1));
        CheckDisk(model);
    }
}

TEST_P(FileModel, FilesHoldWhatWasWritten) {
    SCOPED_TRACE(random.About());
    for (int step = 0; step < Operations; ++step) {
        ASSERT_NO_FATAL_FAILURE(Step()) << step;
        ASSERT_TRUE(system->InvariantsHold()) << step;
#if defined(TORVO_CHECK_INVARIANTS)
        ASSERT_TRUE(cache->InvariantsHold()) << step;
#endif
        if (NumErrors() > 20) ClearErrors();
    }
}

INSTANTIATE_TEST_SUITE_P(BlockSizes, FileModel, testing::Values(LargestBlockSize, 500));

}  // namespace
}  // namespace file_model_internal_test
}  // namespace Torvo::test
