// Any text as a message format, with any parameters, straight and through the error list: the walk ends, gives what a
// second reading of the format gives, and writes nothing outside the buffer.
#include <Utility/errors/error_system.h>
#include <Utility/errors/message_composer.h>
#include <Utility/strings.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

// The input, taken from the front.
class Bytes {
public:
    Bytes(const std::uint8_t* bytes, std::size_t byteCount) : data(bytes), size(byteCount) {}

    std::uint8_t Byte() {
        if (size == 0) return 0;
        --size;
        return *data++;
    }
    wstring16 Text(std::size_t units) {
        wstring16 text(std::min(units, size / 2), wchar16{0});
        std::memcpy(text.data(), data, text.size() * 2);
        data += text.size() * 2;
        size -= text.size() * 2;
        return text.c_str();
    }

private:
    const std::uint8_t* data;
    std::size_t size;
};

// The same format read from left to right as pieces between carets.
wstring16 ReadAgain(const wstring16& format, const wstring16& param0, const wstring16& param1) {
    wstring16 message;
    std::size_t at = 0;
    while (at < format.size()) {
        if (format[at] != '^') {
            message += format[at];
            at = static_cast<std::size_t>(zuNextChar(format.c_str() + at) - format.c_str());
            continue;
        }
        const wchar16 code = at + 1 < format.size() ? format[at + 1] : wchar16{0};
        if (code == '0')
            message += param0;
        else if (code == '1')
            message += param1;
        else if (code == '^')
            message += code;
        else
            break;
        at += 2;
    }
    return message;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Bytes bytes(data, size);
    const std::uint64_t bufferSize = bytes.Byte();
    const std::uint64_t limit = bytes.Byte();
    const wstring16 param0 = bytes.Text(bytes.Byte() % 16);
    const wstring16 param1 = bytes.Text(bytes.Byte() % 16);
    // A copy of the exact size, so that a step past the terminator is seen.
    const wstring16 format = bytes.Text(size);
    const std::vector<wchar16> exact(format.c_str(), format.c_str() + format.size() + 1);
    const wstring16 expected = ReadAgain(format, param0, param1);

    wstring16 message;
    ComposeMessage(&message, exact.data(), param0, param1, ~uint64{0});
    Require(message == expected);

    wstring16 limited;
    ComposeMessage(&limited, exact.data(), param0, param1, limit);
    Require(expected.starts_with(limited));
    Require(limited.size() < limit + std::max<std::size_t>({param0.size(), param1.size(), 1}));

    cErrorSystemImpl errors;
    errors.SetError(ERRORLEVEL_ERROR, exact.data(), GUID{}, 1, param0.c_str(), param1.c_str());
    std::vector<wchar16> buffer(bufferSize);
    errors.GetErrorMsg(nullptr, 0, buffer.data(), buffer.size());
    if (bufferSize > 0) Require(expected.starts_with(wstring16(buffer.data())));
    Require(errors.GetNextError(true, buffer.data(), buffer.size()));
    if (bufferSize > 0) Require(std::find(buffer.begin(), buffer.end(), wchar16{0}) != buffer.end());
    return 0;
}
