// The path under which the system knows a registered file.
#pragma once

#include <Utility/files/file_table.h>
#include <Utility/platform/platform.h>

#include <algorithm>

namespace Torvo {

// The directory and the name of a record, one behind the other. An extension that a type forces may make them longer
// than a path may be. Such a path is no file: cut, it would be another one.
class RecordPath {
public:
    explicit RecordPath(const FileNameRec& record) {
        const std::size_t directoryLength = platform::wcsnlen(record.directory, PathLimit);
        std::copy_n(record.directory, directoryLength, text);
        const std::size_t nameLength = platform::wcsnlen(record.name, PathLimit);
        std::copy_n(record.name, nameLength, text + directoryLength);
        length = directoryLength + nameLength;
        text[length] = 0;
    }
    bool IsTooLong() const { return length > PathLimit; }
    const wchar16* Text() const { return text; }

private:
    wchar16 text[2 * PathSize];
    std::size_t length;
};

}  // namespace Torvo
