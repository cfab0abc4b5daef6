// Whole files.
#pragma once

#include <string>

namespace recode {

// Reads a file to the last byte; false if that failed.
bool ReadFile(const std::string& path, std::string& bytes);
// Writes a file beside its place and moves it there when it is complete, so that a failure leaves what was there. What
// it takes for that has a name that nothing had before.
bool WriteFile(const std::string& path, const std::string& bytes);

}  // namespace recode
