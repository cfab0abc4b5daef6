#include <dirent.h>
#include <support/open_handles.h>

namespace Torvo::test {

int OpenHandles() {
    DIR* const directory = opendir("/proc/self/fd");
    int count = 0;
    while (readdir(directory) != nullptr) ++count;
    closedir(directory);
    return count;
}

}  // namespace Torvo::test
