// Registered files against arrays of bytes, over random operations: what is read is what was written, whatever the
// cache and the budget of handles did meanwhile, and what is on disk after a close is the array.

#include <Utility/Utility.h>
#include <files/own_cache.h>
#include <gtest/gtest.h>
#include <support/random.h>
#include <support/temp_directory.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>

namespace {

using namespace Torvo;
using test::OwnCache;
using test::Random;
using test::TempDirectory;

constexpr int kOperations = 100'000;
constexpr int kFiles = 6;
constexpr int kBudget = 3;
constexpr int64 kLargest = 3000;

// A file system of a test's own in place of the instance's.
class OwnFileSystem {
public:
    OwnFileSystem(int maxFiles, bool closeReadOnly)
        : files(cFileSystem::Create(maxFiles, closeReadOnly, nullptr)), former(cFileSystem::Instance()) {
        cFileSystem::Instance(files.get());
    }
    ~OwnFileSystem() {
        files.reset();
        cFileSystem::Instance(former);
    }
    OwnFileSystem(const OwnFileSystem&) = delete;
    OwnFileSystem& operator=(const OwnFileSystem&) = delete;

private:
    std::unique_ptr<cFileSystem> files;
    cFileSystem* former;
};

struct ModelFile {
    int handle = 0;
    wstring16 name;
    std::string content;
    int64 position = 0;
    eOpenMode mode = omRead;
    bool isOpen = false;
};

class Model {
public:
    explicit Model(Random& chance) : random(chance) {
        for (int i = 0; i < kFiles; ++i) {
            ModelFile& file = files[static_cast<std::size_t>(i)];
            file.name = ZUTEXT("file0.bin");
            file.name[4] = static_cast<wchar16>('0' + i);
            file.content = SomeBytes(random.Between(0, kLargest));
            Register(file);
            directory.Write(file.name, file.content);
        }
    }
    ~Model() {
        for (ModelFile& file : files) {
            if (file.isOpen) close2(file.handle);
            unregister_file(file.handle);
        }
    }
    Model(const Model&) = delete;
    Model& operator=(const Model&) = delete;

    void RunOne() {
        ModelFile& file = files[static_cast<std::size_t>(random.Between(0, kFiles - 1))];
        if (!file.isOpen) {
            if (openFiles < kBudget) Open(file);
            return;
        }
        const int64 what = random.Between(0, 99);
        if (what < 50) {
            Read(file);
        } else if (what < 85) {
            Write(file);
        } else if (what < 90) {
            Resize(file);
        } else if (what < 93) {
            EXPECT_TRUE(cFileCache::Instance()->Flush(random.OneIn(2) ? -1 : file.handle));
        } else if (what < 98) {
            Close(file);
        } else {
            Reregister(file);
        }
        EXPECT_EQ(filelength2(file.handle), static_cast<int64>(file.content.size()));
    }

private:
    std::string SomeBytes(int64 count) {
        std::string bytes(static_cast<std::size_t>(count), ' ');
        const int64 first = random.Between(0, 255);
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(first + static_cast<int64>(i) * 7);
        return bytes;
    }
    int64 LengthOf(const ModelFile& file) const { return static_cast<int64>(file.content.size()); }

    void Register(ModelFile& file) {
        file.handle = register_file(directory.Path(file.name).c_str(), ftNone, true);
        ASSERT_NE(file.handle, 0);
    }

    void Open(ModelFile& file) {
        file.mode = random.OneIn(3) ? omRead : random.OneIn(20) ? omCreate : omReadWrite;
        if (file.mode == omCreate) file.content.clear();
        int changed = 0;
        ASSERT_EQ(fileopen(file.handle, file.mode, &changed), file.handle);
        EXPECT_EQ(changed & ~1, 0);
        file.isOpen = true;
        file.position = 0;
        ++openFiles;
    }

    void Seek(ModelFile& file, int64 last) {
        if (random.OneIn(3)) return;
        file.position = random.Between(0, last);
        const int64 whence = random.Between(0, 2);
        const int64 from = whence == 0 ? 0 : whence == 1 ? tell2(file.handle) : LengthOf(file);
        EXPECT_EQ(lseek2(file.handle, file.position - from, static_cast<int>(whence)), file.position);
    }

    void Read(ModelFile& file) {
        Seek(file, LengthOf(file) + 50);
        const int64 wanted = random.OneIn(5) ? random.Between(0, kLargest) : random.Between(0, 40);
        const int64 there = std::clamp<int64>(LengthOf(file) - file.position, 0, wanted);
        std::string bytes(static_cast<std::size_t>(wanted), '#');
        ASSERT_EQ(read2(file.handle, bytes.data(), static_cast<uint64>(wanted)), there);
        bytes.resize(static_cast<std::size_t>(there));
        if (there > 0) {
            ASSERT_TRUE(file.content.compare(static_cast<std::size_t>(file.position), bytes.size(), bytes) == 0);
        }
        file.position += there;
    }

    void Write(ModelFile& file) {
        const std::string bytes = SomeBytes(random.OneIn(5) ? random.Between(0, 500) : random.Between(0, 40));
        if (file.mode == omRead) {
            EXPECT_EQ(write2(file.handle, bytes.data(), bytes.size()), -1);
            return;
        }
        Seek(file, std::min(LengthOf(file), kLargest));
        if (file.position > std::min(LengthOf(file), kLargest)) return;  // behind the end after a read there
        ASSERT_EQ(write2(file.handle, bytes.data(), bytes.size()), static_cast<int>(bytes.size()));
        const auto at = static_cast<std::size_t>(file.position);
        if (file.content.size() < at + bytes.size()) file.content.resize(at + bytes.size());
        file.content.replace(at, bytes.size(), bytes);
        file.position += static_cast<int64>(bytes.size());
    }

    void Resize(ModelFile& file) {
        const int64 length = random.Between(0, kLargest);
        const bool mayResize = file.mode != omRead;
        EXPECT_EQ(chsize2(file.handle, length), mayResize ? 0 : -1);
        if (mayResize) file.content.resize(static_cast<std::size_t>(length), '\0');
    }

    void Close(ModelFile& file) {
        ASSERT_EQ(close2(file.handle), 0);
        file.isOpen = false;
        --openFiles;
        ASSERT_TRUE(directory.Read(file.name) == file.content);
    }

    void Reregister(ModelFile& file) {
        Close(file);
        unregister_file(file.handle);
        Register(file);
        Open(file);
    }

    Random& random;
    TempDirectory directory;
    std::array<ModelFile, kFiles> files;
    int openFiles = 0;
};

TEST(FileContents, RandomOperationsAgreeWithArraysOfBytes) {
    Random random;
    SCOPED_TRACE(random.About());
    constexpr int kRounds = 20;
    for (int round = 0; round < kRounds; ++round) {
        const OwnFileSystem fileSystem(kBudget, random.OneIn(2));
        const OwnCache cache(static_cast<int>(random.Between(2, 12)), static_cast<long32>(random.Between(20, 700)));
        Model model(random);
        for (int i = 0; i < kOperations / kRounds; ++i) {
            model.RunOne();
            ASSERT_FALSE(HasFailure()) << "operation " << i << " of round " << round;
        }
    }
}

}  // namespace
