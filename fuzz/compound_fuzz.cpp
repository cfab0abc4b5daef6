// Any bytes as a compound file. What must hold: an open and the reads end, a read gives no more than was asked for, and
// a stream has no more bytes than it says.
//
// Seeds: fuzz/seeds/compound, from tests/data.
#include <Utility/file_io.h>
#include <Utility/files.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

void ReadThrough(int file, const wchar16* name) {
    if (stream_fileopen(file, omRead, nullptr, name) != file) return;
    const long32 end = stream_lseek(file, 0, 2);
    Require(stream_lseek(file, 0, 0) == 0);
    int64 total = 0;
    std::vector<char> bytes(1000);
    // A damaged directory may promise gigabytes; the first of them are enough.
    while (total < 1 << 20) {
        const int got = stream_read(file, bytes.data(), static_cast<unsigned>(bytes.size()));
        Require(got >= -1 && got <= 1000);
        if (got <= 0) break;
        total += got;
    }
    Require(end < 0 || total <= end);
    Require(stream_close(file) == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string path = "/tmp/torvo_compound_fuzz_" + std::to_string(::getpid());
    static const int file = register_file(wstring16(path.begin(), path.end()).c_str(), ftNone, true);
    std::FILE* const output = std::fopen(path.c_str(), "wb");
    Require(output != nullptr && std::fwrite(data, 1, size, output) == size && std::fclose(output) == 0);
    for (const wchar16* const name : {ZUTEXT("Book"), ZUTEXT("Notes")}) ReadThrough(file, name);
    return 0;
}
