// Files that tests read, as names that the library takes on every system.
#pragma once

#include <Utility/platform/types.h>

#include <string>
#include <string_view>

namespace Torvo::test {

// ASCII text as system text.
inline wstring16 Wide(std::string_view text) {
    return {text.begin(), text.end()};
}

// A path below the source tree, one below the build tree, and one of tests/data. Under Wine the root of this file
// system is drive Z:. They are defined in one source file, so that where a tree lies is compiled into nothing else.
std::string SourcePath(std::string_view relative);
std::string BuildPath(std::string_view relative);
inline std::string DataPath(std::string_view name) {
    return SourcePath("tests/data/" + std::string(name));
}

}  // namespace Torvo::test
