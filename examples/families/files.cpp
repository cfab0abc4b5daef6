// A file has a handle before it exists, and keeps it between opens; bytes go to a logical position.
#include <Utility/errors.h>
#include <Utility/file_io.h>
#include <Utility/files.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    const int file = register_file(ZUTEXT("rows"), ftMap, true);  // a type that forces its extension
    wchar16 name[261];
    fhandle2name(file, name);
    std::printf("handle %d is %s\n", file, Shown(name).c_str());
    const int again = register_file(ZUTEXT("ROWS.map"), ftMap, true);
    std::printf("registered once more: %d, error %d\n", again, GetErrorNum(0));
    ClearErrors();

    const bool isOpen = fileopen(file, omRead, nullptr) != -1;
    std::printf("it is there to be read: %s, error %d\n", YesOrNo(isOpen), GetErrorNum(0));
    if (fileopen(file, omCreate, nullptr) == -1) return 1;
    write2(file, "0123456789", 10);
    write_app_string(file, ZUTEXT("a name"));
    std::printf("length %lld, position %lld\n", static_cast<long long>(filelength2(file)),
                static_cast<long long>(tell2(file)));
    close2(file);  // now it is all on disk

    char bytes[8] = {};
    wchar16 text[20];
    if (fileopen(file, omRead, nullptr) == -1) return 1;
    lseek2(file, 4, 0);
    const int count = read2(file, bytes, 6);
    read_app_string(file, text, 20);
    std::printf("%d bytes: %s, and %s\n", count, bytes, Shown(text).c_str());
    close2(file);

    std::printf("removed: %s\n", YesOrNo(fileremove(file)));
    unregister_file(file);
    InstanceData::Destroy(false, false);
    return 0;
}
