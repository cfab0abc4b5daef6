#include <Utility/platform/posix/native_path.h>

#include <Utility/platform/path_separator.h>

#include <algorithm>

namespace Torvo::platform {

namespace {

constexpr char32_t EscapeBase = 0xDC00;

bool IsHighSurrogate(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
bool IsLowSurrogate(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}
bool IsEscapedByte(char32_t c) {
    return c >= EscapeBase + 0x80 && c <= EscapeBase + 0xFF;
}

void AppendUtf8(std::string& target, char32_t c) {
    if (c < 0x80) {
        target += static_cast<char>(c);
        return;
    }
    if (c < 0x800) {
        target += static_cast<char>(0xC0 | c >> 6);
    } else if (c < 0x10000) {
        target += static_cast<char>(0xE0 | c >> 12);
        target += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    } else {
        target += static_cast<char>(0xF0 | c >> 18);
        target += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        target += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    }
    target += static_cast<char>(0x80 | (c & 0x3F));
}

void AppendUtf16(wstring16& target, char32_t c) {
    if (c >= 0x10000) {
        target += static_cast<wchar16>(0xD800 + ((c - 0x10000) >> 10));
        c = 0xDC00 + (c & 0x3FF);
    }
    target += static_cast<wchar16>(c);
}

// The length of the valid UTF-8 sequence at the front, 0 if there is none, and its code point.
std::size_t DecodeUtf8(std::string_view text, char32_t& codePoint) {
    const auto lead = static_cast<unsigned char>(text[0]);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || length > text.size()) return 0;
    codePoint = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto trail = static_cast<unsigned char>(text[i]);
        if ((trail & 0xC0) != 0x80) return 0;
        codePoint = codePoint << 6 | (trail & 0x3Fu);
    }
    const bool overlong = (length == 3 && codePoint < 0x800) || (length == 4 && codePoint < 0x10000);
    const bool surrogate = codePoint >= 0xD800 && codePoint <= 0xDFFF;
    return overlong || surrogate || codePoint > 0x10FFFF ? 0 : length;
}

}  // namespace

std::string Utf8FromName(std::basic_string_view<wchar16> name) {
    // Names are mostly ASCII, at least at their start.
    const auto ascii = static_cast<std::size_t>(
        std::find_if(name.begin(), name.end(), [](wchar16 c) { return c >= 0x80; }) - name.begin());
    std::string native(ascii, '\0');
    std::transform(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(ascii), native.begin(),
                   [](wchar16 c) { return static_cast<char>(c); });
    for (std::size_t i = ascii; i < name.size(); ++i) {
        char32_t c = name[i];
        if (IsHighSurrogate(c) && i + 1 < name.size() && IsLowSurrogate(name[i + 1])) {
            c = 0x10000 + ((c - 0xD800) << 10) + (name[++i] - 0xDC00u);
        } else if (IsEscapedByte(c)) {
            native += static_cast<char>(c - EscapeBase);
            continue;
        }
        AppendUtf8(native, c);
    }
    return native;
}

wstring16 NameFromUtf8(std::string_view name) {
    wstring16 shown;
    shown.reserve(name.size());
    while (!name.empty()) {
        char32_t c = 0;
        std::size_t length = DecodeUtf8(name, c);
        if (length == 0) {
            c = EscapeBase + static_cast<unsigned char>(name[0]);
            length = 1;
        }
        AppendUtf16(shown, c);
        name.remove_prefix(length);
    }
    return shown;
}

std::optional<std::string> NativePath(std::basic_string_view<wchar16> path) {
    if (path.size() >= 2 && IsPathSeparator(path[0]) && IsPathSeparator(path[1])) return std::nullopt;
    if (path.size() >= 2 && path[1] == ':') {
        if (path[0] != 'C' && path[0] != 'c') return std::nullopt;
        path.remove_prefix(2);
    }
    std::string native = Utf8FromName(path);
    std::replace(native.begin(), native.end(), '\\', '/');
    return native;
}

wstring16 ShownPath(std::string_view path) {
    wstring16 shown = NameFromUtf8(path);
    std::replace(shown.begin(), shown.end(), wchar16{'/'}, wchar16{'\\'});
    if (!shown.empty() && shown.front() == '\\') shown.insert(0, ZUTEXT("C:"));
    return shown;
}

}  // namespace Torvo::platform
