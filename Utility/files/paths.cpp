// The forms of a path: absolute, relative, and back.

#include <Utility/paths.h>

#include <Utility/files/file_names.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

#include <algorithm>
#include <array>

namespace Torvo {

namespace {

// The longest absolute path: one less than the working limit.
constexpr std::size_t QualifiedLimit = PathLimit - 1;
// A current directory of any depth that the systems know.
constexpr std::size_t DirectoryRoom = 4096 + 2;

bool IsDriveLetter(wchar16 unit) {
    return (unit >= 'A' && unit <= 'Z') || (unit >= 'a' && unit <= 'z');
}

bool IsEndOfComponent(wchar16 unit) {
    return unit == 0 || IsPathSeparator(unit);
}

// Whether a path begins with that many dots, and they are a component.
bool IsDots(const wchar16* path, std::size_t dots) {
    return std::all_of(path, path + dots, [](wchar16 unit) { return unit == '.'; }) && IsEndOfComponent(path[dots]);
}

// What follows a component, and its separator if it has one.
const wchar16* BehindComponent(const wchar16* path, std::size_t length) {
    return path + length + (path[length] != 0 ? 1 : 0);
}

// An absolute path that is being built. What does not fit is left out.
class AbsolutePath {
public:
    bool IsFull() const { return length == QualifiedLimit; }
    const wchar16* Text() const { return text.data(); }

    void Add(wchar16 unit) {
        if (!IsFull()) text[length++] = unit;
    }

    void Add(const wchar16* more) {
        while (*more != 0) Add(*more++);
    }

    // Adds a component with its separator; what follows it.
    const wchar16* AddComponent(const wchar16* path) {
        while (*path != 0) {
            const wchar16 unit = *path++;
            if (IsPathSeparator(unit)) {
                Add(Separator);
                break;
            }
            Add(unit);
        }
        return path;
    }

    // The drive's current directory, with a separator behind it; the root if the drive has none.
    void AddCurrentDirectory(wchar16 driveLetter) {
        std::array<wchar16, DirectoryRoom> directory;
        const int drive = (driveLetter | CaseBit) - 'a' + 1;
        if (platform::_wgetdcwd(drive, directory.data(), static_cast<int>(directory.size())) != nullptr) {
            // The drive has been added as the caller wrote it.
            const bool hasDrive = directory[0] != 0 && directory[1] == ':';
            Add(directory.data() + (hasDrive ? 2 : 0));
        }
        if (!EndsInSeparator()) Add(Separator);
    }

    // Drops the last component, unless it is part of the root.
    void DropComponent() {
        std::size_t end = length;
        if (end > RootLength && EndsInSeparator()) --end;
        while (end > 0 && text[end - 1] != Separator) --end;
        if (end >= RootLength) length = end;
    }

    void Finish() {
        if (EndsInSeparator()) --length;
        text[length] = 0;
    }

private:
    static constexpr wchar16 Separator = '\\';
    static constexpr wchar16 CaseBit = 0x20;
    // Of a drive with its separator.
    static constexpr std::size_t RootLength = 3;

    bool EndsInSeparator() const { return length > 0 && IsPathSeparator(text[length - 1]); }

    std::array<wchar16, QualifiedLimit + 1> text;
    std::size_t length = 0;
};

// Adds what comes before the components: the root of a path that has one, else the current directory. The rest.
const wchar16* AddRoot(const wchar16* path, AbsolutePath* target) {
    if (IsPathSeparator(path[0]) && IsPathSeparator(path[1]) && path[2] != 0) {
        target->Add('\\');
        return path + 1;
    }
    const bool hasDrive = IsDriveLetter(path[0]) && path[1] == ':';
    const auto drive = hasDrive ? path[0] : static_cast<wchar16>('A' + platform::_getdrive() - 1);
    const wchar16* const rest = hasDrive ? path + 2 : path;
    const bool isOnAShare = drive < 'A';  // the current directory has no drive then, and is told whole
    if (!isOnAShare) {
        target->Add(drive);
        target->Add(':');
    }
    if (!IsPathSeparator(*rest)) target->AddCurrentDirectory(drive);
    return rest;
}

void TurnSlashes(wchar16* path) {
    for (; *path != 0; ++path) {
        if (*path == '/') *path = '\\';
    }
}

// A copy of a path in which `\` is the only separator, with room for one more at the end.
class PlainPath {
public:
    explicit PlainPath(const wchar16* path) {
        CopyPath(path, text.data(), PathSize);
        TurnSlashes(text.data());
    }

    wchar16* Text() { return text.data(); }
    std::size_t Length() const { return platform::wcslen(text.data()); }

    // Appends a separator to a directory that has none. Only an empty text stays as it is.
    void EndInSeparator() {
        const std::size_t length = Length();
        if (length == 0 || text[length - 1] == '\\') return;
        text[length] = '\\';
        text[length + 1] = 0;
    }

    // Drops the last component of a directory that ends in a separator; false if there is no separator before it.
    bool DropComponent() {
        std::size_t length = Length();
        if (length > 0) --length;
        while (length > 0 && text[length - 1] != '\\') --length;
        text[length] = 0;
        return length > 0;
    }

private:
    std::array<wchar16, PathSize + 1> text;
};

bool IsNetworkPath(const wchar16* path) {
    return path[0] == '\\' && path[1] == '\\';
}

// Whether a path is seen from a root or a drive; one of a single unit counts as if it were.
bool HasRoot(const wchar16* path) {
    return path[0] == 0 || path[1] == 0 || path[0] == '\\' || path[1] == ':';
}

// Writes two texts, one behind the other.
void WriteJoined(const wchar16* first, const wchar16* second, wchar16* out) {
    CopyPath(first, out, PathSize);
    AppendPath(second, out, PathSize);
}

// Writes a path that first leads some levels up.
void WriteFromAbove(int levels, const wchar16* path, wchar16* out) {
    *out = 0;
    for (; levels > 0; --levels) AppendPath(ZUTEXT("..\\"), out, PathSize);
    AppendPath(path, out, PathSize);
}

// Whether a name begins with a single separator: it is seen from the root of a drive.
bool IsOnDrive(const wchar16* name) {
    return IsPathSeparator(name[0]) && !IsPathSeparator(name[1]);
}

// Whether a name that is to be resolved stays as it is.
bool IsResolved(const wchar16* name) {
    if (name[0] == 0 || IsOnDrive(name)) return false;
    return name[1] == ':' || name[1] == '\\';
}

// The longest directory that names are resolved against.
constexpr std::size_t ReferenceLimit = 520;

// Writes a name as seen from a directory that ends in a separator, through a name record.
void WriteResolved(cFileSystemImpl& files, const wchar16* directory, wchar16* name) {
    std::array<wchar16, ReferenceLimit + PathSize> whole;
    constexpr std::size_t driveLength = 2;
    CopyPath(directory, whole.data(), (IsOnDrive(name) ? driveLength : ReferenceLimit) + 1);
    AppendPath(name, whole.data(), whole.size());
    CopyPath(whole.data(), name, PathSize);
    files.relativepath2fullpath(name);
}

}  // namespace

void cFileSystemImpl::qualify_filename(wchar16* path) {
    if (path == nullptr) return;
    AbsolutePath absolute;
    const wchar16* rest = AddRoot(path, &absolute);
    while (*rest != 0 && !absolute.IsFull()) {
        if (IsDots(rest, 2)) {
            rest = BehindComponent(rest, 2);
            absolute.DropComponent();
        } else if (IsDots(rest, 1)) {
            rest = BehindComponent(rest, 1);
        } else {
            rest = absolute.AddComponent(rest);
        }
    }
    absolute.Finish();
    CopyPath(absolute.Text(), path, PathSize);
}

void cFileSystemImpl::relativepath2fullpath(wchar16* path) {
    if (path == nullptr) return;
    FileNameRec record;
    BuildNameRecord(path, ftNone, &record);
    WriteJoined(record.directory, record.name, path);
}

void cFileSystemImpl::resolve_path_reference(wchar16* name, const wchar16* path) {
    if (name == nullptr || path == nullptr || IsResolved(name)) return;
    std::array<wchar16, ReferenceLimit + 1> directory;
    const auto length = static_cast<std::size_t>(LastComponent(path) - path);
    CopyPath(path, directory.data(), std::min(length, ReferenceLimit) + 1);
    WriteResolved(*this, directory.data(), name);
}

void cFileSystemImpl::resolve_path_reference(wchar16* name, int file) {
    if (name == nullptr || IsResolved(name)) return;
    wchar16 directory[PathSize];
    fhandle2dir(file, directory);
    WriteResolved(*this, directory, name);
}

bool cFileSystemImpl::CalcRelativePath(const wchar16* base, const wchar16* target, wchar16* out) {
    if (base == nullptr || target == nullptr || out == nullptr) return false;
    PlainPath from(base);
    PlainPath to(target);
    from.EndInSeparator();
    if (!HasRoot(to.Text())) {
        WriteJoined(from.Text(), to.Text(), out);
        return true;
    }
    for (int levels = 0;; ++levels) {
        const std::size_t length = from.Length();
        if (strniequ(from.Text(), to.Text(), length)) {
            WriteFromAbove(levels, to.Text() + length, out);
            return true;
        }
        if (!from.DropComponent() || strequ(from.Text(), ZUTEXT("\\\\"))) break;
    }
    CopyPath(to.Text(), out, PathSize);
    return false;
}

bool cFileSystemImpl::FullPathFromRelativePath(const wchar16* base, const wchar16* relative, wchar16* out) {
    if (base == nullptr || relative == nullptr || out == nullptr) return false;
    PlainPath from(base);
    PlainPath path(relative);
    from.EndInSeparator();
    const wchar16* rest = path.Text();
    if (IsNetworkPath(rest) || (rest[0] != 0 && rest[1] == ':')) {
        CopyPath(rest, out, PathSize);
        return false;
    }
    for (;;) {
        if (strnequ(rest, ZUTEXT("..\\"), 3)) {
            rest += 3;
            if (!from.DropComponent()) {
                *out = 0;
                return true;
            }
        } else if (strnequ(rest, ZUTEXT(".\\"), 2)) {
            rest += 2;
        } else {
            break;
        }
    }
    WriteJoined(from.Text(), rest, out);
    return true;
}

void qualify_filename(wchar16* path) {
    cFileSystem::Instance()->qualify_filename(path);
}

void relativepath2fullpath(wchar16* path) {
    cFileSystem::Instance()->relativepath2fullpath(path);
}

void resolve_path_reference(wchar16* name, const wchar16* path) {
    cFileSystem::Instance()->resolve_path_reference(name, path);
}

void resolve_path_reference(wchar16* name, int file) {
    cFileSystem::Instance()->resolve_path_reference(name, file);
}

bool CalcRelativePath(const wchar16* base, const wchar16* target, wchar16* out) {
    return cFileSystem::Instance()->CalcRelativePath(base, target, out);
}

bool FullPathFromRelativePath(const wchar16* base, const wchar16* relative, wchar16* out) {
    return cFileSystem::Instance()->FullPathFromRelativePath(base, relative, out);
}

}  // namespace Torvo
