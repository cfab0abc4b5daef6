// The demonstration: the Universal Declaration of Human Rights, each language through its own legacy set.
#pragma once

#include <iosfwd>
#include <string>

namespace recode {

// Prints the table for the texts in `folder`, and below it what got lost. False, with the reason in `out`, if a text
// cannot be read or is not what it should be.
bool ShowDemo(const std::string& folder, std::ostream& out);

}  // namespace recode
