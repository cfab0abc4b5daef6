// The program without its entry point, so that it can be tested.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace atlas {

// How the program ends.
enum ExitCode {
    done = 0,
    notDone = 2,  // a wrong command line, a faulty folder, files that cannot be written
};

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace atlas
