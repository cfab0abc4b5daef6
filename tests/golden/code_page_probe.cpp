// Writes what the system's code-page calls answer to the file named by the only argument.
#include <fstream>

#include "golden/code_page_vectors.h"

int main(int count, char** arguments) {
    if (count != 2) return 2;
    std::ofstream file(arguments[1], std::ios::binary);
    golden::WriteCodePageVectors([&](const std::string& line) { file << line << '\n'; });
    return file.flush() ? 0 : 1;
}
