// Names for temporary files, and the folder for those of tiles.

#include <Utility/paths.h>

#include <Utility/files/file_names.h>
#include <Utility/files/file_system_impl.h>
#include <Utility/files/file_types.h>
#include <Utility/files/temp_serial.h>
#include <Utility/platform/platform.h>
#include <Utility/strings.h>

namespace Torvo {

namespace {

// What the calls of the system for directories fill.
constexpr std::size_t SystemPathSize = 260;

void MakeDirectoryIfMissing(const wchar16* path) {
    if (!platform::PathIsDirectoryW(path)) platform::CreateDirectoryW(path);
}

// Writes the folder of all programs like this one, and makes it. False if its path is not known or too long.
bool FamilyFolder(wchar16 (&path)[SystemPathSize]) {
    const uint32 length = platform::GetTempPathW(SystemPathSize, path);
    if (length == 0 || length >= SystemPathSize || !platform::PathAppendW(path, ZUTEXT("Zunaverse"))) return false;
    MakeDirectoryIfMissing(path);
    return true;
}

// Makes a folder that was not there before: `base`, or else `base` with a dot and the first number from 2 on. False if
// that is too long.
bool MakeNewFolder(const wchar16* base, wchar16 (&path)[SystemPathSize]) {
    CopyPath(base, path, SystemPathSize);
    for (int number = 2; platform::PathIsDirectoryW(path); ++number) {
        if (platform::swprintf(path, SystemPathSize, ZUTEXT("%ls.%d"), base, number) < 0) return false;
    }
    platform::CreateDirectoryW(path);
    return true;
}

// Whether a file can be written in a folder; none stays there.
bool CanWriteIn(cFileSystem& files, const wchar16* folder) {
    wchar16 name[SystemPathSize];
    if (platform::GetTempFileNameW(folder, ZUTEXT("ZUN"), 0, name) == 0) return false;
    const int file = files.register_file(name, ftNone, true);
    if (file == 0) {  // memory is short, or the name is registered already
        platform::_wremove(name);
        return true;
    }
    files.fileremove(file);
    files.unregister_file(file);
    return true;
}

}  // namespace

void cFileSystemImpl::tempname(wchar16* out, const wchar16* dir, FILETYPE type) {
    if (out == nullptr) return;
    wchar16 directory[PathSize];
    if (dir != nullptr) {
        concat_backslash(dir, directory, PathLimit);
    } else {
        CopyPath(tempDirectory, directory, PathSize);
    }
    const wchar16* const ownExtension = ExtensionOf(type);
    const wchar16* const extension = ownExtension != nullptr ? ownExtension : ZUTEXT(".TMP");
    for (uint32 attempt = 0; attempt < TempSerialLimit; ++attempt) {
        const uint32 serial = TakeTempSerial(&tempSerial);
        const int length = platform::swprintf(out, PathSize, ZUTEXT("%ls~ZUN%lu-%lu%ls"), directory,
                                              platform::GetCurrentThreadId(), serial, extension);
        if (length < 0 || !file_exists(out, ftNone)) return;
    }
}

void cFileSystemImpl::tempname(wchar16* out, const wchar16* dir) {
    tempname(out, dir, ftNone);
}

FILE* cFileSystemImpl::tempfile(const wchar16* dir) {
    wchar16 name[PathSize];
    tempname(name, dir);
    return fregister_file(name, ftNone, true);
}

void cFileSystemImpl::CreteTempFolderForZxtTile(wchar16* out) {
    if (out == nullptr) return;
    if (tileTempDirectory[0] != 0) {
        MakeDirectoryIfMissing(tileTempDirectory);
        CopyPath(tileTempDirectory, out, PathSize);
        return;
    }
    wchar16 base[SystemPathSize];
    wchar16 folder[SystemPathSize];
    const bool hasFamily = FamilyFolder(base);
    platform::swprintf(out, PathSize, ZUTEXT("%ls.%d"), ZUTEXT("Zunavia.Application.x64"),
                       static_cast<int32>(platform::GetCurrentProcessId()));
    const bool isUsable =
        hasFamily && platform::PathAppendW(base, out) && MakeNewFolder(base, folder) && CanWriteIn(*this, folder);
    CopyPath(isUsable ? folder : tempDirectory, tileTempDirectory, PathSize);
    CopyPath(tileTempDirectory, out, PathSize);
}

void tempname(wchar16* out, const wchar16* dir, FILETYPE type) {
    cFileSystem::Instance()->tempname(out, dir, type);
}

void tempname(wchar16* out, const wchar16* dir) {
    cFileSystem::Instance()->tempname(out, dir);
}

FILE* tempfile(const wchar16* dir) {
    return cFileSystem::Instance()->tempfile(dir);
}

void CreteTempFolderForZxtTile(wchar16* out) {
    cFileSystem::Instance()->CreteTempFolderForZxtTile(out);
}

}  // namespace Torvo
