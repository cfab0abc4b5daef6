// File names in their two forms: the one that the library shows and keeps, and the one that this system knows.
//
// The library shows the root directory as drive `C:`. `C:\a\b`, `\a\b` and `/a/b` are `/a/b`; `a\b`, `a/b` and `C:a\b`
// are relative to the current directory. There is no other drive and no network share.
//
// Names are UTF-8 on disk. A byte that is not part of valid UTF-8 is shown as the unit 0xDC00 + byte, which valid text
// never contains alone, and becomes that byte again; so every name on disk can be shown and opened.
#pragma once

#include <Utility/platform/types.h>

#include <optional>
#include <string>
#include <string_view>

namespace Torvo::platform {

// The native form; nothing for a path on another drive or on a share.
std::optional<std::string> NativePath(std::basic_string_view<wchar16> path);

// The shown form of a native path: `C:\a\b` for `/a/b`, `a\b` for `a/b`.
wstring16 ShownPath(std::string_view path);

// One name or path text between the encodings, separators left alone.
std::string Utf8FromName(std::basic_string_view<wchar16> name);
wstring16 NameFromUtf8(std::string_view name);

}  // namespace Torvo::platform
