// A directory of its own for a test, removed with everything in it at the end.
//
// Names inside it are relative and may be in subdirectories, with either separator. Paths for the library are in the
// form that it takes on every system; what is on disk is looked at without the library.
#pragma once

#include <Utility/platform/types.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace Torvo::test {

class TempDirectory {
public:
    TempDirectory();
    ~TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    // The directory with its drive and without a separator at its end, and a name in it.
    const wstring16& Path() const { return path; }
    wstring16 Path(const wstring16& name) const { return path + ZUTEXT("\\") + name; }
    std::filesystem::path Native(const wstring16& name = {}) const;

    // Makes a file, and the directories on the way to it; returns its path for the library.
    wstring16 Write(const wstring16& name, std::string_view content) const;
    // Makes a directory, and those on the way to it; likewise.
    wstring16 MakeDirectory(const wstring16& name) const;
    // The content of a file; an exception if it cannot be read.
    std::string Read(const wstring16& name) const;
    bool Has(const wstring16& name) const;
    void Remove(const wstring16& name) const;
    // Sets the read-only attribute of a file, or clears it.
    void SetReadOnly(const wstring16& name, bool readOnly) const;

private:
    std::filesystem::path root;
    wstring16 path;
};

}  // namespace Torvo::test
