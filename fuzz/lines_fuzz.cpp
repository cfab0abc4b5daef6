// Any bytes as a text file, read by lines in every charset. What must hold: nothing is written past the size (the block
// ends there, so the sanitizer would see it), every text is terminated inside it, each line moves the stream on and
// never past the end, and at the end all bytes have been passed, but for a text that Ctrl-Z ends.
//
// The first byte chooses the charset, the next two the size of the buffer.
#include <Utility/charsets.h>
#include <Utility/file_io.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

// A file that is written anew for each input and stays registered.
class InputFile {
public:
    InputFile() : path("/tmp/torvo_lines_fuzz_" + std::to_string(::getpid())) {
        const wstring16 wide(path.begin(), path.end());
        handle = fregister_file(wide.c_str(), ftNone, true);
        Require(handle != nullptr);
    }
    ~InputFile() {
        funregister_file(handle);
        std::remove(path.c_str());
    }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    FILE* Open(const std::uint8_t* data, std::size_t size, ZUCHARSET charset) {
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        Require(file != nullptr && std::fwrite(data, 1, size, file) == size && std::fclose(file) == 0);
        file_put_charset(handle, charset);
        Require(ffileopen(handle, omRead, nullptr) == handle);
        return handle;
    }

private:
    const std::string path;
    FILE* handle;
};

// Reads one line into a block of exactly that size; whether there was one.
bool ReadOne(FILE* file, int size) {
    const std::unique_ptr<wchar16[]> out(new wchar16[static_cast<std::size_t>(size)]);
    std::fill_n(out.get(), size, wchar16{0xFFFF});
    if (fgets2(out.get(), size, file) == nullptr) return false;
    Require(std::find(out.get(), out.get() + size, 0) != out.get() + size);
    return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    static InputFile input;
    const auto charset = static_cast<ZUCHARSET>(data[0] % 59);
    const int room = 1 + (data[1] | (data[2] & 3) << 8);
    const auto length = static_cast<int64>(size - 3);
    FILE* const file = input.Open(data + 3, size - 3, charset);
    int64 position = 0;
    while (ReadOne(file, room)) {
        const int64 next = ftell2(file);
        Require(next > position && next - position <= 2 * static_cast<int64>(room) && next <= length);
        position = next;
    }
    const int64 last = ftell2(file);
    const bool endedByControlZ = last > 0 && data[3 + last - 1] == 26;
    Require(last == length || (endedByControlZ && last > position));
    Require(fclose2(file) == 0);
    return 0;
}
