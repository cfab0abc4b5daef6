// A walk over the files of a directory, and the search for one in a list of directories.
#include <Utility/file_io.h>
#include <Utility/file_search.h>
#include <Utility/files.h>
#include <Utility/instance.h>

#include <cstdio>
#include <memory>

#include "show.h"

int main() {
    using namespace Torvo;

    int files[3];
    const wchar16* const names[] = {ZUTEXT("b.tab"), ZUTEXT("a.tab"), ZUTEXT("c.txt")};
    for (int i = 0; i < 3; ++i) {
        files[i] = register_file(names[i], ftNone, true);
        if (fileopen(files[i], omCreate, nullptr) == -1) return 1;
        close2(files[i]);
    }

    wchar16 pattern[] = ZUTEXT("*.tab");
    FILEFIND walk{};
    for (int more = FileFindFirst(pattern, 0x20 | 0x80, &walk); more != 0; more = FileFindNext(&walk)) {
        std::printf("%s\n", Shown(walk.name).c_str());
    }
    FileFindClose(&walk);

    wchar16 directory[261];
    wchar16 path[261];
    fhandle2dir(files[0], directory);
    const std::unique_ptr<FindFileInfo> search(FindFileInfo::Create(directory, true));
    std::printf("c.txt: %s, d.txt: %s\n", YesOrNo(search->Find(ZUTEXT("c.txt"), path, 261)),
                YesOrNo(search->Find(ZUTEXT("d.txt"), path, 261)));

    for (const int file : files) fileremove(file);
    InstanceData::Destroy(false, false);
    return 0;
}
