#include <examples/atlas/output_file.h>

namespace atlas {

using namespace Torvo;

OutputFile::OutputFile(const wstring16& path, FILETYPE type)
    : registered(fregister_nonunique_file(path.c_str(), type)) {
    if (registered == nullptr) return;
    file_put_charset(registered, csUTF8);
    file = ffileopen(registered, omCreate, nullptr);
    good = file != nullptr;
}

OutputFile::~OutputFile() {
    Close();
    if (registered != nullptr) funregister_file(registered);
}

void OutputFile::Write(const wstring16& text) {
    good = good && fputs2(text.c_str(), file) >= 0;
}

bool OutputFile::Close() {
    if (file == nullptr) return good;
    if (fflush2(file) != 0 || ferror2(file) != 0) good = false;
    if (fclose2(file) != 0) good = false;
    file = nullptr;
    return good;
}

}  // namespace atlas
