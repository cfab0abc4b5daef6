// Byte-order marks: how a text file says that it is in UTF-8.
//
// The mark is the three bytes EF BB BF, and no other is known: UTF-16 has none here. These calls tell what the file
// says. They store nothing: it is the caller who passes the answer on to file_put_charset (<Utility/files.h>).
//
// Each comes for the two worlds of <Utility/files.h>, and the mark is looked for, or written, at the present position:
// the caller positions first, as a rule to the start.
//
// Example: examples/families/text_files.cpp
#pragma once

#include <Utility/charsets.h>
#include <Utility/files.h>

namespace Torvo {

// csUTF8 if the mark stands here, and the position is then behind it. csUnknown if not, and for a file that cannot be
// read; the position is then where it was, and the stream form leaves an empty file at its end, as the runtime tells
// it. csUnknown for the handle 0 and null, too.
ZUAPI ZUCHARSET ProcessUTFBom(int file);
ZUAPI ZUCHARSET ProcessUTFBom(FILE* file);

// Writes the mark for csUTF8, and nothing for any other charset or for the handle 0 and null. False only if it could
// not be written whole.
ZUAPI bool WriteUTFBom(int file, ZUCHARSET charset);
ZUAPI bool WriteUTFBom(FILE* file, ZUCHARSET charset);

}  // namespace Torvo
