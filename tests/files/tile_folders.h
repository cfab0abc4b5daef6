// Takes away the folders for temporary files that a test has made the library make, which itself leaves them.
#pragma once

#include <Utility/platform/files.h>
#include <Utility/platform/threads.h>
#include <gtest/gtest.h>

#include <string>

namespace Torvo::test {

inline void RemoveIn(const wstring16& directory, const wstring16& pattern, int (*remove)(const wstring16& path)) {
    WIN32_FIND_DATAW data;
    void* const walk = platform::FindFirstFileW((directory + pattern).c_str(), &data);
    if (walk == platform::InvalidFindHandle()) return;
    do {
        remove(directory + data.cFileName);
    } while (platform::FindNextFileW(walk, &data));
    platform::FindClose(walk);
}

// The folders that this process has made, with what a removal that failed left there.
inline void RemoveTileFolders() {
    wchar16 temp[300];
    platform::GetTempPathW(300, temp);
    const std::string number = std::to_string(platform::GetCurrentProcessId());
    const wstring16 pattern =
        ZUTEXT("Zunavia.Application.x64.") + wstring16(number.begin(), number.end()) + ZUTEXT("*");
    RemoveIn(temp + wstring16(ZUTEXT("Zunaverse\\")), pattern, [](const wstring16& folder) {
        RemoveIn(folder + ZUTEXT("\\"), ZUTEXT("ZUN*"),
                 [](const wstring16& file) { return platform::_wremove(file.c_str()); });
        EXPECT_TRUE(platform::RemoveDirectoryW(folder.c_str()));
        return 0;
    });
}

}  // namespace Torvo::test
