// A text file in a character set of its own, with the mark that says so, written and read by lines.
#include <Utility/byte_order_marks.h>
#include <Utility/file_io.h>
#include <Utility/files.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    std::FILE* const file = fregister_file(ZUTEXT("cities.txt"), ftTxt, true);  // a handle, not a stream of the runtime
    if (ffileopen(file, omCreate, nullptr) == nullptr) return 1;
    WriteUTFBom(file, csUTF8);
    file_put_charset(file, csUTF8);
    fputs2(ZUTEXT("\u0141\u00f3d\u017a\n"), file);  // "Łódź"
    fprintf2(file, ZUTEXT("%s, %d\n"), ZUTEXT("K\u00f8benhavn"), 1167);
    std::printf("%lld bytes\n", static_cast<long long>(ffilelength2(file)));
    fclose2(file);

    if (ffileopen(file, omRead, nullptr) == nullptr) return 1;
    file_put_charset(file, ProcessUTFBom(file));
    std::printf("the file says: %s\n", Shown(CS2Str(file_get_charset(file))).c_str());
    wchar16 line[80];
    while (fgets2(line, 80, file) != nullptr) std::printf("%s", Shown(line).c_str());
    fclose2(file);

    fileremove(fileno2(file));
    funregister_file(file);
    InstanceData::Destroy(false, false);
    return 0;
}
