// Prints the answers of the system that it runs on; make_date_format_vectors builds it for Windows and runs it under
// Wine.
#include <golden/date_format_probe.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>

int main() {
    _setmode(_fileno(stdout), _O_BINARY);
    const std::string answers = Torvo::test::DateFormatProbe().Run();
    std::fwrite(answers.data(), 1, answers.size(), stdout);
}
