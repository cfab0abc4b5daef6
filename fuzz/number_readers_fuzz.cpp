// The number readers, beside the C library's on the same text in bytes. The text is a copy of its exact size, so that a
// read too far is seen.
#include <Utility/number_parsing.h>

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;

bool Same(double a, double b) {
    return a == b ? std::signbit(a) == std::signbit(b) : std::isnan(a) && std::isnan(b);
}

// Where the C library's reader stops at an exponent that is written with a "d", it is given an "e".
std::string WithExponentLetter(std::string text) {
    char* end;
    std::strtod(text.c_str(), &end);
    const auto at = static_cast<std::size_t>(end - text.c_str());
    const bool hexadecimal = text.find_first_of("xX") < at;
    if (at > 0 && !hexadecimal && (text[at] == 'd' || text[at] == 'D') &&
        std::isdigit(text[at - 1] == '.' ? '0' : text[at - 1]) &&
        text.substr(0, at).find_first_of("eE") == std::string::npos) {
        text[at] = 'e';
    }
    return text;
}

void CompareDouble(const wchar16* text, const std::string& narrow) {
    double value = 1;
    wchar16* end = nullptr;
    const bool read = StringToDouble(text, &value, &end);
    char* expectedEnd;
    errno = 0;
    const double expected = std::strtod(narrow.c_str(), &expectedEnd);
    // The C library also calls a subnormal result a range error, which is none here.
    const bool outOfRange = errno == ERANGE && (std::isinf(expected) || expected == 0);
    Require(read == (expectedEnd != narrow.c_str() && !outOfRange));
    Require(read ? end - text == expectedEnd - narrow.c_str() : end == nullptr);
    Require(Same(value, read ? expected : 0.0));
}

void CompareIntegers(const wchar16* text, const std::string& narrow) {
    char* expectedEnd;
    errno = 0;
    const long long expected = std::strtoll(narrow.c_str(), &expectedEnd, 10);
    const bool isNumber = expectedEnd != narrow.c_str();
    int64 wide = 1;
    Require(StringToInt64(text, &wide) == isNumber);
    Require(wide == (isNumber ? expected : 0));
    int32 value = 1;
    wchar16* end = nullptr;
    const bool fits = isNumber && expected == static_cast<int32>(expected);
    Require(StringToInt(text, &value, &end) == fits);
    Require(value == (fits ? expected : 0));
    Require(fits ? end - text == expectedEnd - narrow.c_str() : end == nullptr);
    int16 small = 1;
    Require(StringToShort(text, &small, nullptr) == (isNumber && expected == static_cast<int16>(expected)));
    for (int base : {0, 2, 16, 36}) {
        uint32 bits = 1;
        wchar16* after = nullptr;
        if (!StringToUnsignedInt32(text, &bits, &after, base)) continue;
        Require(after > text && after <= text + narrow.size());
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes;
    for (std::size_t index = 0; index < size; ++index) bytes += static_cast<char>(data[index] & 0x7F);
    bytes.resize(std::char_traits<char>::length(bytes.c_str()));
    const auto text = std::make_unique<wchar16[]>(bytes.size() + 1);
    for (std::size_t index = 0; index < bytes.size(); ++index) text[index] = static_cast<wchar16>(bytes[index]);
    CompareDouble(text.get(), WithExponentLetter(bytes));
    CompareIntegers(text.get(), bytes);
    double value;
    StringToDoubleFmtCtl(text.get(), &value, true);
    return 0;
}
