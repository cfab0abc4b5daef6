// Writes what the system's code-page calls answer.
#include <golden/code_page_probe.h>

#include <cstdio>

int main() {
    code_page_probe::WriteCodePageVectors([](const std::string& line) { std::printf("%s\n", line.c_str()); });
}
