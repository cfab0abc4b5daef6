// What a fuzz target demands.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace Torvo::fuzz {

// Ends the program, so that the fuzzer keeps the input, unless the condition holds.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

// The same, and tells what did not hold.
inline void Require(bool holds, const char* what) {
    if (!holds) std::fprintf(stderr, "does not hold: %s\n", what);
    Require(holds);
}

}  // namespace Torvo::fuzz
