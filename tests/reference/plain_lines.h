// Reading a line in its plainest form: pieces of 40 bytes, and a seek back to the place behind the line end.
#pragma once

#include <Utility/conversion.h>
#include <Utility/file_io.h>

#include <algorithm>
#include <string>
#include <vector>

namespace Torvo::test {

inline wchar16* PlainGets(wchar16* out, int size, FILE* file) {
    if (size < 1) return nullptr;
    const int64 start = ftell2(file);
    const std::size_t limit = 2 * static_cast<std::size_t>(size) - 1;
    std::string bytes;
    for (;;) {
        char piece[40];
        const std::size_t wanted = std::min(sizeof piece, limit - bytes.size());
        const std::size_t got = wanted == 0 ? 0 : fread2(piece, 1, static_cast<unsigned>(wanted), file);
        if (got == 0 && bytes.empty()) return nullptr;
        if (got == 0) break;
        if (got == 1 && piece[0] == 26) return nullptr;
        bytes.append(piece, got);
        if (std::string_view(piece, got).find_first_of("\r\n") != std::string_view::npos) break;
    }
    if (bytes.back() == '\r' && bytes.size() < limit) {
        char next = 0;
        if (fread2(&next, 1, 1, file) == 1 && static_cast<unsigned char>(next) < 255) bytes += next;
    }
    const std::size_t end = bytes.find_first_of("\r\n");
    if (end != std::string::npos) {
        const std::size_t length = bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1;
        fseek2(file, start + static_cast<int64>(end + length), 0);
        bytes.replace(end, std::string::npos, "\n");
    }
    // A text of exactly `size` units loses its last one to the terminator.
    const auto room = static_cast<uint64>(size);
    const ZUCHARSET charset = file_get_charset(file);
    std::vector<wchar16> whole(room + 1);
    ConvertMBCSCharToSystem(bytes.data(), bytes.size(), charset, whole.data(), charset == csUTF16 ? room - 1 : room);
    whole[room - 1] = 0;
    std::copy(whole.begin(), whole.end() - 1, out);
    return out;
}

}  // namespace Torvo::test
