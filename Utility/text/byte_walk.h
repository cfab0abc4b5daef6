// Stepping through byte text, for the inner users of it. A charset below 1 means the system charset.
#pragma once

#include <Utility/charsets.h>

namespace Torvo {

// Whether the byte at `p` begins a pair, by the system's code page; false for a charset that is not a multi-byte one.
bool CharsetLeadByteEx(const char* p, int cs);
// The next character in the system's code page; the terminator's own address at the end.
char* CharsetNextChar(char* p, int cs);
// Whether the byte at `p` begins a pair, by fixed ranges. Serves charsets without a code page too; false for any
// charset that has no ranges.
bool CharsetIsLeadByte(const unsigned char* p, ZUCHARSET cs);

}  // namespace Torvo
