// A text file that the program writes, in UTF-8, through the library's files.
#pragma once

#include <Utility/Utility.h>

#include <string>

namespace atlas {

class OutputFile {
public:
    OutputFile(const Torvo::wstring16& path, Torvo::FILETYPE type);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void Write(const Torvo::wstring16& text);
    // Closes the file; false if anything could not be written.
    bool Close();

private:
    Torvo::FILE* registered;
    Torvo::FILE* file = nullptr;
    bool good = false;
};

}  // namespace atlas
