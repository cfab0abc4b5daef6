#include <Utility/conversion.h>

#include <Utility/bounded_copy.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <Utility/platform/threads.h>

#include <algorithm>
#include <climits>
#include <cstring>

namespace Torvo {

namespace {

// The platform counts in `int`; a buffer that is larger is used up to there.
int PlatformSize(uint64 size) {
    return static_cast<int>(std::min<uint64>(size, INT_MAX));
}

// As wcsncpy: nothing is read behind the first zero unit, and zeros follow from there. The bytes may lie at an odd
// address, so they are not read as units in place.
void CopyUnits(const char* src, wchar16* dst, uint64 count) {
    wchar16* const end = dst + count;
    for (wchar16 unit = 0; dst != end; *dst++ = unit, src += sizeof unit) {
        std::memcpy(&unit, src, sizeof unit);
        if (unit == 0) break;
    }
    std::fill(dst, end, wchar16{0});
}

bool BytesOfUtf16ToSystem(const char* src, uint64 srcBytes, wchar16* dst, uint64 dstSize) {
    const uint64 count = std::min(srcBytes / 2, dstSize);
    CopyUnits(src, dst, count);
    dst[count] = 0;
    return dstSize >= srcBytes;
}

bool SystemToBytesOfUtf16(const wchar16* src, char* dst, uint64 dstSize, bool allowTruncate) {
    constexpr char terminator[2] = {};
    const uint64 bytes = 2 * platform::wcslen(src);
    std::memcpy(dst, src, std::min(dstSize, bytes));
    if (!allowTruncate && bytes != 0 && bytes + sizeof terminator < dstSize) {
        std::memcpy(dst + bytes, terminator, sizeof terminator);
    }
    return dstSize >= bytes;
}

// What one conversion to a code page needs.
struct ByteTarget {
    char* dst;
    int size;
    uint32 flags;
    const char* defaultChar;
    bool allowTruncate;
};

bool WriteInCodePage(const wchar16* src, ZUCHARSET codePageOf, const ByteTarget& target) {
    const int written = platform::WideCharToMultiByte(static_cast<uint32>(GetWinCodePage(codePageOf)), target.flags,
                                                      src, -1, target.dst, target.size, target.defaultChar, nullptr);
    return written > 0 || (target.allowTruncate && platform::GetLastError() == ERROR_INSUFFICIENT_BUFFER);
}

// A copy that fills its room, without a terminator unless the text is shorter; zeros behind it then.
void CopyWithoutTerminator(const wchar16* src, wchar16* dst, uint64 dstSize) {
    platform::wcsncpy(dst, src, dstSize);
}

}  // namespace

bool ConvertMBCSCharToSystem(const char* src, uint64 srcBytes, ZUCHARSET cs, wchar16* dst, uint64 dstSize) {
    if (src == nullptr || dst == nullptr || srcBytes == 0 || dstSize == 0) return false;
    if (cs == csUTF16) return BytesOfUtf16ToSystem(src, srcBytes, dst, dstSize);
    int count = 0;
    if (srcBytes <= INT_MAX) {
        const uint32 flags = cs == csUTF8 ? 0 : MB_PRECOMPOSED;
        count = platform::MultiByteToWideChar(static_cast<uint32>(GetWinCodePage(cs)), flags, src,
                                              static_cast<int>(srcBytes), dst, PlatformSize(dstSize));
    }
    dst[count] = 0;  // on top of dstSize if the text fills it
    return count > 0;
}

bool ConvertMBCSCharToSystem(const char* src, ZUCHARSET cs, wchar16* dst, uint64 dstSize) {
    return src != nullptr && ConvertMBCSCharToSystem(src, std::strlen(src), cs, dst, dstSize);
}

bool ConvertSystemToMBCSChar(const wchar16* src, char* dst, ZUCHARSET cs, uint64 dstSize, bool allowTruncate) {
    if (src == nullptr || dst == nullptr || dstSize == 0) return false;
    if (cs == csUTF16) return SystemToBytesOfUtf16(src, dst, dstSize, allowTruncate);

    const char unknown[2] = {static_cast<char>(CharsetUnknownCode(cs)), 0};
    const bool utf8 = cs == csUTF8;
    ByteTarget target{dst, PlatformSize(dstSize), utf8 ? 0u : uint32{WC_COMPOSITECHECK}, utf8 ? nullptr : unknown,
                      allowTruncate};
    if (WriteInCodePage(src, cs, target)) return true;
    if (platform::IsValidCodePage(static_cast<uint32>(GetWinCodePage(cs)))) return false;
    target.flags |= WC_DEFAULTCHAR;
    return WriteInCodePage(src, system_charset(), target);
}

bool ConvertSystemToWideChar(const wchar16* src, wchar16* dst, uint64 dstSize, bool allowTruncate) {
    if (src == nullptr || dst == nullptr) return false;
    const uint64 length = platform::wcslen(src);
    if (length < dstSize) {
        strcpyn(dst, src, dstSize);
        return true;
    }
    CopyWithoutTerminator(src, dst, dstSize);
    return allowTruncate && length == dstSize;
}

bool ConvertWideCharToSystem(const wchar16* src, uint64 srcLength, wchar16* dst, ZUCHARSET /*cs*/, uint64 dstSize) {
    if (src == nullptr || dst == nullptr) return false;
    if (srcLength < dstSize) {
        strcpyn(dst, src, dstSize);
        return true;
    }
    CopyWithoutTerminator(src, dst, dstSize);
    return false;
}

}  // namespace Torvo
