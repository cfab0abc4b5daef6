#include <Utility/platform/path_separator.h>
#include <Utility/platform/runtime.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace Torvo::platform {

namespace {

using Text = std::u16string_view;

// Copies a part with its terminator; whether it fits.
template <std::size_t Size>
bool CopyPart(Text part, wchar16 (&target)[Size]) {
    if (part.size() >= Size) return false;
    *std::copy(part.begin(), part.end(), target) = 0;
    return true;
}

// A path that is being joined in a buffer; once something did not fit, nothing more is added.
class JoinedPath {
public:
    JoinedPath(wchar16* buffer, std::size_t size) : next(buffer), last(buffer + size - 1) {}

    void Append(Text text) {
        fits = fits && text.size() <= static_cast<std::size_t>(last - next);
        if (fits) next = std::copy(text.begin(), text.end(), next);
    }

    // Terminates the path; whether everything was added.
    bool Finish() {
        *next = 0;
        return fits;
    }

private:
    wchar16* next;
    wchar16* last;
    bool fits = true;
};

Text TextOf(const wchar16* text) {
    return text != nullptr ? Text(text) : Text();
}

}  // namespace

bool _wsplitpath(const wchar16* path, PathParts* parts) {
    const Text whole = TextOf(path);
    const std::size_t driveEnd = whole.size() >= 2 && whole[1] == ':' ? 2 : 0;
    const auto lastSeparator =
        std::find_if(whole.rbegin(), whole.rend() - static_cast<std::ptrdiff_t>(driveEnd), IsPathSeparator);
    const auto nameBegin = static_cast<std::size_t>(whole.rend() - lastSeparator);
    const std::size_t point = whole.rfind('.');
    const std::size_t nameEnd = point == Text::npos || point < nameBegin ? whole.size() : point;
    const bool fits = CopyPart(whole.substr(0, driveEnd), parts->drive) &&
                      CopyPart(whole.substr(driveEnd, nameBegin - driveEnd), parts->directory) &&
                      CopyPart(whole.substr(nameBegin, nameEnd - nameBegin), parts->name) &&
                      CopyPart(whole.substr(nameEnd), parts->extension);
    if (!fits) *parts = {};
    return fits;
}

bool _wmakepath(wchar16* path, std::size_t size, const wchar16* drive, const wchar16* directory, const wchar16* name,
                const wchar16* extension) {
    if (size == 0) return false;
    JoinedPath joined(path, size);
    if (const Text part = TextOf(drive); !part.empty()) {
        joined.Append(part.substr(0, 1));
        joined.Append(u":");
    }
    if (const Text part = TextOf(directory); !part.empty()) {
        joined.Append(part);
        if (!IsPathSeparator(part.back())) joined.Append(u"\\");
    }
    joined.Append(TextOf(name));
    if (const Text part = TextOf(extension); !part.empty()) {
        if (part.front() != '.') joined.Append(u".");
        joined.Append(part);
    }
    if (joined.Finish()) return true;
    *path = 0;
    return false;
}

}  // namespace Torvo::platform
