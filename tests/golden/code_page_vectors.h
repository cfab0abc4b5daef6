// What a system's code-page calls answer, written down as text. The same writer runs in two places: in a probe program
// for Windows, whose output is the checked-in file code_page_vectors.txt, and in a test, which asks this build's
// platform layer the same questions and compares line by line. docs/code_pages.md explains the lines.
#pragma once

#include <functional>
#include <string>

namespace golden {

// Calls `line` for each line, in a fixed order.
void WriteCodePageVectors(const std::function<void(const std::string&)>& line);

}  // namespace golden
