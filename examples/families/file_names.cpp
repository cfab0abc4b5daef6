// The name that a file of a type ought to have. Text alone: no disk is touched.
#include <Utility/file_names.h>
#include <Utility/instance.h>

#include <cstdio>

#include "show.h"

int main() {
    using namespace Torvo;

    std::printf("%s, forced: %s\n", Shown(file_extension(ftMap)).c_str(), YesOrNo(munge_filename(ftMap)));
    std::printf("the type of a.dbf: %d\n", file_type(ZUTEXT("a.dbf")));

    wchar16 name[300];
    recommend_filename(name, ZUTEXT("x.dat"), ftTxt);
    std::printf("a text file: %s\n", Shown(name).c_str());
    recommend_table_filename(name, ZUTEXT("world.dat"));
    std::printf("its table: %s\n", Shown(name).c_str());

    wchar16 path[300] = ZUTEXT("C:\\maps\\world.tab");
    path2something(path, name, 300);
    std::printf("the bare name: %s\n", Shown(name).c_str());
    make_extension(path, ZUTEXT(".ID"));
    std::printf("another extension: %s\n", Shown(path).c_str());
    splitfilename(path, name);
    std::printf("apart: %s and %s\n", Shown(path).c_str(), Shown(name).c_str());

    InstanceData::Destroy(false, false);
    return 0;
}
