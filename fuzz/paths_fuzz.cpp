// Text of any kind as paths and names. What must hold for any text: no result is longer than its limit (the blocks end
// there, so the sanitizer would see it); an absolute path has a root and no component `.` or `..`; directory and name
// are the whole path again; a relative path leads back to where it was made for; a name of a type bears its extension.
#include <Utility/file_names.h>
#include <Utility/paths.h>
#include <Utility/platform/files.h>
#include <Utility/strings.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "input_text.h"
#include "require.h"

namespace {

using namespace Torvo;
using fuzz::Require;
using fuzz::TextOf;

constexpr std::size_t PathLimit = 260;
constexpr std::size_t QualifiedLimit = 259;
// The longest extension, and the longest component that one is put on.
constexpr std::size_t LongestExtension = 5;
constexpr std::size_t LongestComponent = 254 + LongestExtension - 1;

// A buffer of exactly the size that a call may fill, with a text in it.
class Buffer {
public:
    explicit Buffer(std::size_t size, const wstring16& text = {}) : units(new wchar16[size]) {
        *std::copy(text.begin(), text.end(), units.get()) = 0;
    }
    wchar16* Start() { return units.get(); }
    wstring16 Text() const { return units.get(); }

private:
    std::unique_ptr<wchar16[]> units;
};

bool IsSeparator(wchar16 unit) {
    return unit == '\\' || unit == '/';
}

bool HasDots(const wstring16& path) {
    for (std::size_t at = 0; at <= path.size();) {
        const std::size_t end = std::min(path.find('\\', at), path.size());
        const wstring16 component = path.substr(at, end - at);
        if (component == ZUTEXT(".") || component == ZUTEXT("..")) return true;
        at = end + 1;
    }
    return false;
}

wstring16 Qualified(const wstring16& path) {
    Buffer buffer(std::max(PathLimit + 1, path.size() + 1), path);
    qualify_filename(buffer.Start());
    return buffer.Text();
}

void CheckQualified(const wstring16& path) {
    const wstring16 result = Qualified(path);
    Require(result.size() <= QualifiedLimit);
    // Of a network path without a name nothing is left but what it begins with.
    const bool isNameless = path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]) && result == ZUTEXT("\\");
    Require(isNameless || (result.size() >= 2 && (result[1] == ':' || (result[0] == '\\' && result[1] == '\\'))));
    Require(result.find('/') == wstring16::npos);
    // A path that was cut may end in what became a component of dots by that.
    if (result.size() + 2 < QualifiedLimit) Require(!HasDots(result));
    Buffer full(std::max(PathLimit + 1, path.size() + 1), path);
    relativepath2fullpath(full.Start());
    Require(full.Text().size() <= PathLimit);
}

void CheckRelative(const wstring16& base, const wstring16& target) {
    Buffer relative(PathLimit + 1);
    CalcRelativePath(base.c_str(), target.c_str(), relative.Start());
    Require(relative.Text().size() <= PathLimit);
    Buffer full(PathLimit + 1);
    FullPathFromRelativePath(base.c_str(), target.c_str(), full.Start());
    Require(full.Text().size() <= PathLimit);

    const wstring16 from = Qualified(base);
    const wstring16 to = Qualified(target);
    if (!CalcRelativePath(from.c_str(), to.c_str(), relative.Start())) return;
    // A root is shown without its separator and is then no directory that paths lead through; a component without a
    // name, from two separators in a row, is taken for one by neither of the two; and a name whose second unit is a
    // colon is taken for one with a drive.
    const bool isPlain = from.find(ZUTEXT("\\\\")) == wstring16::npos && to.find(ZUTEXT("\\\\")) == wstring16::npos &&
                         (*relative.Start() == 0 || relative.Start()[1] != ':');
    if (!isPlain || to.size() < 4 || relative.Text().size() + from.size() > PathLimit - 1) return;
    FullPathFromRelativePath(from.c_str(), relative.Start(), full.Start());
    Require(striequ(full.Start(), to.c_str()));
}

void CheckResolved(const wstring16& name, const wstring16& path) {
    Buffer buffer(std::max(PathLimit + 1, name.size() + 1), name);
    resolve_path_reference(buffer.Start(), path.c_str());
    Require(buffer.Text() == name || buffer.Text().size() <= PathLimit);
}

void CheckSplit(const wstring16& path) {
    Buffer directory(path.size() + 1, path);
    Buffer name(std::max<std::size_t>(path.size(), 255 + 257) + 1);
    splitfilename(directory.Start(), name.Start());
    Require(directory.Text().empty() || IsSeparator(directory.Text().back()) || directory.Text().back() == ':');
    if (name.Text().size() <= 255) Require(directory.Text() + name.Text() == path || path.size() > 255);
    for (const int size : {1, 7, 261}) {
        Buffer base(static_cast<std::size_t>(size));
        path2something(path.c_str(), base.Start(), size);
        Require(base.Text().size() < static_cast<std::size_t>(size));
    }
}

std::size_t ComponentLength(const wstring16& path) {
    const std::size_t last = path.find_last_of(ZUTEXT("\\/:"));
    return last == wstring16::npos ? path.size() : path.size() - last - 1;
}

void CheckNames(const wstring16& name, FILETYPE type) {
    Buffer made(name.size() + LongestExtension + 1, name);
    require_dos_extension(made.Start(), type);
    const wchar16* const extension = file_extension(type);
    if (extension != nullptr) {
        Require(ComponentLength(made.Text()) <= LongestComponent);
        const wstring16 whole = extension;
        const wstring16 result = made.Text();
        const bool isWhole = result.size() >= whole.size() && result.substr(result.size() - whole.size()) == whole;
        Require(isWhole || ComponentLength(result) >= 254);
    } else {
        Require(made.Text() == name);
    }
    Buffer recommended(PathLimit + 1 + LongestExtension);
    recommend_filename(recommended.Start(), name.c_str(), type);
    recommend_table_filename(recommended.Start(), name.c_str());
    Buffer trimmed(name.size() + 1, name);
    make_extension(trimmed.Start(), nullptr);
    Require(trimmed.Text().size() <= name.size());
    file_type(name.c_str());
}

void CheckPlatform(const wstring16& path, const wstring16& more) {
    if (path.size() >= 260) return;
    Buffer buffer(260, path);
    const bool fits = platform::PathAppendW(buffer.Start(), more.c_str());
    Require(fits ? buffer.Text().size() < 260 : buffer.Text().empty());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const bool wide = (data[0] & 1) == 0;
    const auto type = static_cast<FILETYPE>(data[0] >> 1);
    const std::size_t first = std::min<std::size_t>(data[1] * 2u, size - 2);
    const wstring16 one = TextOf(data + 2, first, wide).data();
    const wstring16 two = TextOf(data + 2 + first, size - 2 - first, wide).data();
    CheckQualified(one);
    CheckQualified(two);
    CheckRelative(one, two);
    CheckResolved(one, two);
    CheckSplit(two);
    CheckNames(two, type);
    CheckPlatform(one, two);
    return 0;
}
