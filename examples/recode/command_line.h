// The program without its entry point, so that it can be tested.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace recode {

// How the program ends.
enum ExitCode {
    everythingKept = 0,  // also when losses were accepted
    somethingLost = 1,   // and nothing was written for that file
    notDone = 2,         // a wrong command line, an unknown set, a file that cannot be read or written
};

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace recode
