// Paths in the one form that is used on every system, and a file found in the directories of the application.
#include <Utility/file_io.h>
#include <Utility/instance.h>
#include <Utility/paths.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    wchar16 path[261] = ZUTEXT("C:/maps/./europe/../world.tab");
    qualify_filename(path);
    std::printf("%s\n", Shown(path).c_str());

    wchar16 name[261] = ZUTEXT("world.dat");
    resolve_path_reference(name, path);  // as seen from the directory of world.tab
    std::printf("%s\n", Shown(name).c_str());

    wchar16 relative[261];
    CalcRelativePath(ZUTEXT("C:\\a\\b"), ZUTEXT("C:\\a\\c\\d.tab"), relative);
    FullPathFromRelativePath(ZUTEXT("C:\\a\\b"), relative, path);
    std::printf("%s and back: %s\n", Shown(relative).c_str(), Shown(path).c_str());

    // A new file, found by its name in the directory in which it lies.
    const int file = register_file(ZUTEXT("found.txt"), ftTxt, true);
    if (fileopen(file, omCreate, nullptr) == -1) return 1;
    close2(file);
    fhandle2dir(file, path);
    AddAppDataPath(path);
    wchar16 wanted[261] = ZUTEXT("found.txt");
    const bool isFound = search_for_file(wanted, ftTxt);
    fhandle2path(file, path);
    std::printf("found: %s, with its whole path: %s\n", YesOrNo(isFound), YesOrNo(wanted == wstring16(path)));

    fileremove(file);
    unregister_file(file);
    InstanceData::Destroy(false, false);
    return 0;
}
