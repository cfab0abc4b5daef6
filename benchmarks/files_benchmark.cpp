// Registered files: the registry, the budget of open handles, and bytes through the block cache, beside the runtime's
// streams, the system's own calls and GDAL's cached reader on the same files. The files lie in the directory for
// temporary files and are in the system's page cache, but for those that are read from the disk.
//
// Registry: the time is for all 100,000. OpenReadClose, of one file among as many registered: compare the two.
// RoundRobin opens, reads 16 bytes of and closes one after the other of 10,000 files, with 64 handles; its peer does
// the same with the system's calls and no budget.
//
// Reading and writing: one item is one call. WriteInOrder writes over what is there; WriteGrowing lets the file grow,
// which the library does in steps of 512 bytes at most, and its peer in those of its buffer.
//
// ReadCold reads a file that the library's cache does not hold, and the system's does. ReadFromDisk reads one that
// neither holds; it lies in the current directory, since the one for temporary files may be kept in memory.
#include <Utility/Utility.h>
#include <benchmark/benchmark.h>
#include <cpl_vsi_virtual.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace Torvo;
namespace fs = std::filesystem;

// A directory that is removed at the end.
class Scratch {
public:
    explicit Scratch(const fs::path& parent)
        : path(fs::canonical(parent) / ("torvo-bench-" + std::to_string(getpid()))) {
        fs::create_directory(path);
    }
    ~Scratch() { fs::remove_all(path); }
    std::string Make(const std::string& name, std::size_t size) const {
        const std::string file = path / name;
        std::ofstream(file, std::ios::binary) << std::string(size, 'x');
        return file;
    }
    const fs::path path;
};

const Scratch& Directory() {
    static const Scratch scratch(fs::temp_directory_path());
    return scratch;
}

wstring16 Wide(const std::string& text) {
    return wstring16(text.begin(), text.end());
}

// A file system and a cache of the benchmark's own.
class Services {
public:
    explicit Services(int budget = 507, bool closeReadOnly = true)
        : formerFiles(cFileSystem::Instance()), formerCache(cFileCache::Instance()) {
        cFileSystem::Instance(cFileSystem::Create(budget, closeReadOnly, nullptr));
        cFileCache::Instance(cFileCache::Create(2048, 16384));
    }
    ~Services() {
        delete cFileSystem::Instance();
        delete cFileCache::Instance();
        cFileSystem::Instance(formerFiles);
        cFileCache::Instance(formerCache);
    }
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

private:
    cFileSystem* const formerFiles;
    cFileCache* const formerCache;
};

std::vector<wstring16> Names(int64_t count) {
    std::vector<wstring16> names;
    for (int64_t i = 0; i < count; ++i)
        names.push_back(Wide("/data/atlas/region" + std::to_string(i % 100) + "/file" + std::to_string(i) + ".dat"));
    return names;
}

void Register(benchmark::State& state) {
    const std::vector<wstring16> names = Names(state.range(0));
    for (auto _ : state) {
        const Services services;
        for (const wstring16& name : names) benchmark::DoNotOptimize(register_file(name.c_str(), FILETYPE(0), true));
    }
}
BENCHMARK(Register)->Arg(100'000)->Unit(benchmark::kMillisecond);

void OpenReadClose(benchmark::State& state) {
    const Services services;
    for (const wstring16& name : Names(state.range(0) - 1)) register_file(name.c_str(), FILETYPE(0), false);
    const int file = register_file(Wide(Directory().Make("one", 4096)).c_str(), FILETYPE(0), true);
    char buffer[16];
    for (auto _ : state) {
        fileopen(file, eOpenMode(1), nullptr);
        read2(file, buffer, sizeof buffer);
        close2(file);
    }
}
BENCHMARK(OpenReadClose)->Arg(10)->Arg(100'000);

void OpenReadCloseSystemCalls(benchmark::State& state) {
    const std::string path = Directory().Make("one", 4096);
    char buffer[16];
    for (auto _ : state) {
        const int file = open(path.c_str(), O_RDONLY);
        benchmark::DoNotOptimize(read(file, buffer, sizeof buffer));
        close(file);
    }
}
BENCHMARK(OpenReadCloseSystemCalls);

constexpr int ManyFiles = 10'000;

const std::vector<std::string>& TheManyFiles() {
    static const std::vector<std::string> files = [] {
        std::vector<std::string> made;
        for (int i = 0; i < ManyFiles; ++i) made.push_back(Directory().Make("many" + std::to_string(i), 64));
        return made;
    }();
    return files;
}

void RoundRobin(benchmark::State& state) {
    const Services services(64, false);
    std::vector<int> files;
    for (const std::string& name : TheManyFiles())
        files.push_back(register_file(Wide(name).c_str(), FILETYPE(0), false));
    std::size_t next = 0;
    char buffer[16];
    for (auto _ : state) {
        const int file = files[next];
        if (fileopen(file, eOpenMode(1), nullptr) != file || read2(file, buffer, sizeof buffer) != 16) {
            state.SkipWithError("a file could not be opened and read");
            break;
        }
        close2(file);
        next = next + 1 < files.size() ? next + 1 : 0;
    }
}
BENCHMARK(RoundRobin);

void RoundRobinSystemCalls(benchmark::State& state) {
    const std::vector<std::string>& files = TheManyFiles();
    std::size_t next = 0;
    char buffer[16];
    for (auto _ : state) {
        const int file = open(files[next].c_str(), O_RDONLY);
        benchmark::DoNotOptimize(read(file, buffer, sizeof buffer));
        close(file);
        next = next + 1 < files.size() ? next + 1 : 0;
    }
}
BENCHMARK(RoundRobinSystemCalls);

// Reading -----------------------------------------------------------------------------------------------------------

constexpr int64_t CachedSize = 16 << 20;

int OpenRegistered(const std::string& path, int mode) {
    return fileopen(register_file(Wide(path).c_str(), FILETYPE(0), true), eOpenMode(mode), nullptr);
}

void ReadInOrder(benchmark::State& state) {
    const Services services;
    const auto piece = static_cast<uint64>(state.range(0));
    const int file = OpenRegistered(Directory().Make("in order", CachedSize), 1);
    std::vector<char> buffer(piece);
    for (auto _ : state) {
        if (read2(file, buffer.data(), piece) <= 0) lseek2(file, 0, 0);
        benchmark::DoNotOptimize(buffer.data());
    }
    close2(file);
}
BENCHMARK(ReadInOrder)->Arg(16)->Arg(4096);

void ReadInOrderStream(benchmark::State& state) {
    const auto piece = static_cast<std::size_t>(state.range(0));
    std::FILE* const file = std::fopen(Directory().Make("in order", CachedSize).c_str(), "rb");
    std::vector<char> buffer(piece);
    for (auto _ : state) {
        if (fread_unlocked(buffer.data(), 1, piece, file) == 0) std::rewind(file);
        benchmark::DoNotOptimize(buffer.data());
    }
    std::fclose(file);
}
BENCHMARK(ReadInOrderStream)->Arg(16)->Arg(4096);

std::vector<int64_t> RandomPlaces(int64_t piece) {
    std::mt19937_64 random(1);
    std::uniform_int_distribution<int64_t> place(0, CachedSize - piece);
    std::vector<int64_t> places(4096);
    for (int64_t& each : places) each = place(random);
    return places;
}

void ReadAtRandom(benchmark::State& state) {
    const Services services;
    const auto piece = static_cast<uint64>(state.range(0));
    const int file = OpenRegistered(Directory().Make("random", CachedSize), 1);
    std::vector<char> buffer(CachedSize);
    read2(file, buffer.data(), CachedSize);
    const std::vector<int64_t> places = RandomPlaces(state.range(0));
    std::size_t next = 0;
    for (auto _ : state) {
        lseek2(file, places[next++ % places.size()], 0);
        benchmark::DoNotOptimize(read2(file, buffer.data(), piece));
    }
    close2(file);
}
BENCHMARK(ReadAtRandom)->Arg(64)->Arg(4096);

void ReadAtRandomPread(benchmark::State& state) {
    const auto piece = static_cast<std::size_t>(state.range(0));
    const int file = open(Directory().Make("random", CachedSize).c_str(), O_RDONLY);
    std::vector<char> buffer(piece);
    const std::vector<int64_t> places = RandomPlaces(state.range(0));
    std::size_t next = 0;
    for (auto _ : state) benchmark::DoNotOptimize(pread(file, buffer.data(), piece, places[next++ % places.size()]));
    close(file);
}
BENCHMARK(ReadAtRandomPread)->Arg(64)->Arg(4096);

// GDAL's cached reader, with chunks of its own size and room for the whole file.
void ReadAtRandomGdal(benchmark::State& state) {
    const auto piece = static_cast<std::size_t>(state.range(0));
    const std::string path = Directory().Make("random", CachedSize);
    VSIVirtualHandle* const plain = VSIFileManager::GetHandler(path.c_str())->Open(path.c_str(), "rb");
    VSIVirtualHandle* const file = VSICreateCachedFile(plain, 32768, 2 * CachedSize);
    std::vector<char> buffer(CachedSize);
    file->Read(buffer.data(), 1, CachedSize);
    const std::vector<int64_t> places = RandomPlaces(state.range(0));
    std::size_t next = 0;
    for (auto _ : state) {
        file->Seek(static_cast<vsi_l_offset>(places[next++ % places.size()]), SEEK_SET);
        if (file->Read(buffer.data(), 1, piece) != piece) state.SkipWithError("not read");
    }
    file->Close();
    delete file;
}
BENCHMARK(ReadAtRandomGdal)->Arg(64)->Arg(4096);

// One item is a whole file of 64 MiB, which the library's cache does not hold.
constexpr int64_t ColdSize = 64 << 20;

void ReadCold(benchmark::State& state) {
    const Services services;
    const int file = OpenRegistered(Directory().Make("cold", ColdSize), 1);
    char buffer[4096];
    for (auto _ : state) {
        lseek2(file, 0, 0);
        while (read2(file, buffer, sizeof buffer) == sizeof buffer) benchmark::DoNotOptimize(buffer);
    }
    state.SetBytesProcessed(state.iterations() * ColdSize);
    close2(file);
}
BENCHMARK(ReadCold)->Unit(benchmark::kMillisecond);

void ReadColdSystemCalls(benchmark::State& state) {
    const int file = open(Directory().Make("cold", ColdSize).c_str(), O_RDONLY);
    char buffer[4096];
    for (auto _ : state) {
        lseek(file, 0, SEEK_SET);
        while (read(file, buffer, sizeof buffer) == sizeof buffer) benchmark::DoNotOptimize(buffer);
    }
    state.SetBytesProcessed(state.iterations() * ColdSize);
    close(file);
}
BENCHMARK(ReadColdSystemCalls)->Unit(benchmark::kMillisecond);

const std::string& FileOnDisk() {
    static const Scratch scratch(fs::current_path());
    static const std::string path = scratch.Make("on disk", ColdSize);
    return path;
}

// Lets the system forget what it holds of the file.
void ForgetPages(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY);
    fdatasync(file);
    posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    close(file);
}

void ReadFromDisk(benchmark::State& state) {
    const Services services;
    const int file = OpenRegistered(FileOnDisk(), 1);
    char buffer[4096];
    for (auto _ : state) {
        state.PauseTiming();
        ForgetPages(FileOnDisk());
        state.ResumeTiming();
        lseek2(file, 0, 0);
        while (read2(file, buffer, sizeof buffer) == sizeof buffer) benchmark::DoNotOptimize(buffer);
    }
    state.SetBytesProcessed(state.iterations() * ColdSize);
    close2(file);
}
BENCHMARK(ReadFromDisk)->Unit(benchmark::kMillisecond)->UseRealTime();

void ReadFromDiskSystemCalls(benchmark::State& state) {
    const int file = open(FileOnDisk().c_str(), O_RDONLY);
    char buffer[4096];
    for (auto _ : state) {
        state.PauseTiming();
        ForgetPages(FileOnDisk());
        state.ResumeTiming();
        lseek(file, 0, SEEK_SET);
        while (read(file, buffer, sizeof buffer) == sizeof buffer) benchmark::DoNotOptimize(buffer);
    }
    state.SetBytesProcessed(state.iterations() * ColdSize);
    close(file);
}
BENCHMARK(ReadFromDiskSystemCalls)->Unit(benchmark::kMillisecond)->UseRealTime();

// Writing -----------------------------------------------------------------------------------------------------------

constexpr int64_t WrittenSize = 1 << 20;

void WriteInOrder(benchmark::State& state) {
    const Services services;
    const auto piece = static_cast<uint64>(state.range(0));
    const int file = OpenRegistered(Directory().Make("written", WrittenSize), 2);
    const std::vector<char> bytes(piece, 'w');
    int64_t position = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(write2(file, bytes.data(), piece));
        position += state.range(0);
        if (position == WrittenSize) position = lseek2(file, 0, 0);
    }
    close2(file);
}
BENCHMARK(WriteInOrder)->Arg(64);

void WriteInOrderStream(benchmark::State& state) {
    const auto piece = static_cast<std::size_t>(state.range(0));
    std::FILE* const file = std::fopen(Directory().Make("written", WrittenSize).c_str(), "r+b");
    const std::vector<char> bytes(piece, 'w');
    int64_t position = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(fwrite_unlocked(bytes.data(), 1, piece, file));
        position += state.range(0);
        if (position == WrittenSize) {
            std::rewind(file);
            position = 0;
        }
    }
    std::fclose(file);
}
BENCHMARK(WriteInOrderStream)->Arg(64);

void WriteGrowing(benchmark::State& state) {
    const Services services;
    const auto piece = static_cast<uint64>(state.range(0));
    const int file = OpenRegistered(Directory().path / "growing", 3);
    const std::vector<char> bytes(piece, 'w');
    int64_t position = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(write2(file, bytes.data(), piece));
        position += state.range(0);
        if (position == WrittenSize) {
            chsize2(file, 0);
            position = lseek2(file, 0, 0);
        }
    }
    close2(file);
}
BENCHMARK(WriteGrowing)->Arg(64);

void WriteGrowingStream(benchmark::State& state) {
    const auto piece = static_cast<std::size_t>(state.range(0));
    std::FILE* const file = std::fopen((Directory().path / "growing").c_str(), "w+b");
    const std::vector<char> bytes(piece, 'w');
    int64_t position = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(fwrite_unlocked(bytes.data(), 1, piece, file));
        position += state.range(0);
        if (position == WrittenSize) {
            std::rewind(file);
            if (ftruncate(fileno(file), 0) != 0) state.SkipWithError("not cut");
            position = 0;
        }
    }
    std::fclose(file);
}
BENCHMARK(WriteGrowingStream)->Arg(64);

}  // namespace
