// What this system knows of a file, as the directory search and GetFileAttributesExW tell it.
#pragma once

#include <Utility/platform/files.h>
#include <sys/stat.h>

namespace Torvo::platform {

WIN32_FILE_ATTRIBUTE_DATA AttributeDataOf(const struct stat& status);

}  // namespace Torvo::platform
