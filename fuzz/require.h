// What a fuzz target demands.
#pragma once

#include <cstdlib>

namespace Torvo::fuzz {

// Ends the program, so that the fuzzer keeps the input, unless the condition holds.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace Torvo::fuzz
