// Writes what the system's code-page calls answer.
#include <golden/code_page_probe.h>

#include <cstdio>

int main() {
    test::code_pages::WriteCodePageVectors([](const std::string& line) { std::printf("%s\n", line.c_str()); });
}
