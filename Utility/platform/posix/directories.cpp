#include <Utility/platform/clock.h>
#include <Utility/platform/files.h>
#include <Utility/platform/posix/system_calls.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace Torvo::platform {

namespace {

using Text = std::basic_string_view<wchar16>;

constexpr int DriveC = 3;
// A path with its terminator, for the calls that name no size.
constexpr std::size_t PathRoom = 260;
constexpr wchar16 Separator = '\\';

// The current directory as it is shown; nothing, with errno, if it is gone or memory is short.
std::optional<wstring16> CurrentDirectory() {
    std::array<char, PATH_MAX> path;
    const int done = SystemCall([&] { return ::getcwd(path.data(), path.size()) != nullptr ? 0 : -1; });
    if (done != 0) return std::nullopt;
    // A directory outside the process's root is told without one.
    if (path[0] != '/') {
        errno = ENOENT;
        return std::nullopt;
    }
    try {
        return ShownPath(path.data());
    } catch (const std::bad_alloc&) {
        errno = ENOMEM;
        return std::nullopt;
    }
}

void CopyText(Text text, wchar16* buffer) {
    *std::copy(text.begin(), text.end(), buffer) = 0;
}

// Hands a text out by the rule of the calls with a size: its length, or the room that it needs.
uint32 HandOut(Text text, uint32 size, wchar16* buffer) {
    const auto length = static_cast<uint32>(text.size());
    if (size <= length) return length + 1;
    CopyText(text, buffer);
    return length;
}

std::string TempDirectory() {
    for (const char* const name : {"TMPDIR", "TMP", "TEMP"}) {
        const char* const value = std::getenv(name);
        if (value != nullptr && value[0] == '/') return value;
    }
    return "/tmp";
}

// The text that _wgetenv answered last on this thread.
wstring16& HeldValue() {
    thread_local wstring16 held;
    return held;
}

void AppendSeparator(wstring16& path) {
    if (!path.empty() && path.back() != Separator) path += Separator;
}

// A name of the form that GetTempFileNameW describes.
wstring16 TempFileName(Text directory, Text prefix, uint32 number) {
    wstring16 name(directory);
    AppendSeparator(name);
    name += prefix.substr(0, 3);
    wstring16 digits;
    do {
        digits.insert(digits.begin(), Text(ZUTEXT("0123456789ABCDEF"))[number % 16]);
        number /= 16;
    } while (number != 0);
    return name + digits + ZUTEXT(".TMP");
}

// Creates an empty file; false with EEXIST if there is one of that name.
bool CreateNew(const wstring16& name) {
    int file = -1;
    if (_wsopen_dispatch(name.c_str(), OpenWriteOnly | OpenCreate | OpenExclusive, ShareDenyBoth,
                         PermitRead | PermitWrite, &file, 0) != 0) {
        return false;
    }
    ::close(file);
    return true;
}

// The first number from a changing start for which no file exists, whose file is then created; 0 with errno.
uint32 CreateTempFile(Text directory, Text prefix, wstring16* name) {
    constexpr uint32 numbers = 0xFFFF;
    const uint32 start = GetTickCount() + GetCurrentProcessId();
    for (uint32 i = 0; i < numbers; ++i) {
        const uint32 number = (start + i) % numbers + 1;
        *name = TempFileName(directory, prefix, number);
        if (CreateNew(*name)) return number;
        if (errno != EEXIST) return 0;
    }
    return 0;
}

bool IsShare(Text path) {
    return path.substr(0, 2) == ZUTEXT("\\\\");
}

// The length of what `..` does not climb over.
std::size_t RootLength(Text path) {
    if (IsShare(path)) return 2;
    if (path.size() >= 2 && path[1] == ':') return path.size() >= 3 && path[2] == Separator ? 3 : 2;
    return path.substr(0, 1) == ZUTEXT("\\") ? 1 : 0;
}

// Takes `.` and `..` out of a path; a drive alone becomes its root, and nothing the root of the present drive.
wstring16 Canonical(Text path) {
    const std::size_t root = RootLength(path);
    wstring16 result(path.substr(0, root));
    for (std::size_t at = root; at < path.size();) {
        const std::size_t end = std::min(path.find(Separator, at), path.size());
        const Text component = path.substr(at, end - at);
        at = end + 1;
        if (component == ZUTEXT(".")) continue;
        if (component == ZUTEXT("..")) {
            const std::size_t last = result.find_last_of(Separator);
            result.resize(last == wstring16::npos ? std::min(root, result.size()) : std::max(root, last));
            continue;
        }
        if (result.size() > root) AppendSeparator(result);
        result += component;
        if (at == path.size()) result += Separator;
    }
    if (result.size() == 2 && result[1] == ':') result += Separator;
    return result.empty() ? wstring16(1, Separator) : result;
}

wstring16 Combine(Text path, Text more) {
    const bool isRelative = !IsShare(more) && (more.size() < 2 || more[1] != ':');
    if (!isRelative) return Canonical(more);
    wstring16 whole(path);
    if (!more.empty()) AppendSeparator(whole);
    whole += more;
    return Canonical(whole);
}

}  // namespace

uint32 GetCurrentDirectoryW(uint32 size, wchar16* buffer) {
    return WithLastError(uint32{0}, [&] {
        const auto directory = CurrentDirectory();
        return directory ? HandOut(*directory, size, buffer) : 0;
    });
}

bool SetCurrentDirectoryW(const wchar16* path) {
    return WithLastError(false, [&] {
        return WithNativePath(path, false, [](const std::string& native) {
            return SystemCall([&] { return ::chdir(native.c_str()); }) == 0;
        });
    });
}

int _getdrive() {
    return DriveC;
}

wchar16* _wgetdcwd(int drive, wchar16* buffer, int size) {
    if (drive != 0 && drive != DriveC) {
        errno = EACCES;
        return nullptr;
    }
    const auto directory = CurrentDirectory();
    if (!directory) return nullptr;
    if (size < 0 || static_cast<std::size_t>(size) <= directory->size()) {
        errno = ERANGE;
        return nullptr;
    }
    CopyText(*directory, buffer);
    return buffer;
}

uint32 GetTempPathW(uint32 size, wchar16* buffer) {
    try {
        wstring16 directory = ShownPath(TempDirectory());
        AppendSeparator(directory);
        return HandOut(directory, size, buffer);
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return 0;
    }
}

uint32 GetTempFileNameW(const wchar16* directory, const wchar16* prefix, uint32 unique, wchar16* name) {
    // What is left of a path for the separator, three units of prefix, four digits, the extension and the terminator.
    constexpr std::size_t longestDirectory = PathRoom - 14;
    const Text path(directory);
    if (path.size() > longestDirectory) {
        SetLastError(ERROR_BUFFER_OVERFLOW);
        return 0;
    }
    return WithLastError(uint32{0}, [&]() -> uint32 {
        try {
            const Text start = prefix != nullptr ? Text(prefix) : Text();
            wstring16 made;
            uint32 number = unique & 0xFFFF;
            if (number != 0) {
                made = TempFileName(path, start, number);
            } else {
                number = CreateTempFile(path, start, &made);
                if (number == 0) return 0;
            }
            CopyText(made, name);
            return number;
        } catch (const std::bad_alloc&) {
            errno = ENOMEM;
            return 0;
        }
    });
}

bool CreateDirectoryW(const wchar16* path) {
    return WithLastError(false, [&] {
        return WithNativePath(path, false, [](const std::string& native) {
            constexpr mode_t everything = S_IRWXU | S_IRWXG | S_IRWXO;
            return SystemCall([&] { return ::mkdir(native.c_str(), everything); }) == 0;
        });
    });
}

bool RemoveDirectoryW(const wchar16* path) {
    return WithLastError(false, [&] {
        return WithNativePath(path, false, [](const std::string& native) {
            return SystemCall([&] { return ::rmdir(native.c_str()); }) == 0;
        });
    });
}

bool PathIsDirectoryW(const wchar16* path) {
    return WithLastError(false, [&] {
        return WithNativePath(path, false, [](const std::string& native) {
            struct stat status;
            return StatusOf(native, &status) && IsDirectory(status);
        });
    });
}

bool PathAppendW(wchar16* path, const wchar16* more) {
    Text rest(more);
    if (!IsShare(rest)) rest.remove_prefix(std::min(rest.find_first_not_of(Separator), rest.size()));
    try {
        const wstring16 whole = Combine(path, rest);
        if (whole.size() < PathRoom) {
            CopyText(whole, path);
            return true;
        }
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    }
    *path = 0;
    return false;
}

const wchar16* _wgetenv(const wchar16* name) {
    try {
        const std::string native = Utf8FromName(name);
        const char* const value = std::getenv(native.c_str());
        if (value == nullptr) return nullptr;
        wstring16& held = HeldValue();
        held = NameFromUtf8(value);
        return held.c_str();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace Torvo::platform
