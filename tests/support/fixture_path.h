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

// A file of tests/data. Under Wine the root of this file system is drive Z:.
inline std::string DataPath(std::string_view name) {
    return TORVO_SOURCE_DIR "/tests/data/" + std::string(name);
}

}  // namespace Torvo::test
