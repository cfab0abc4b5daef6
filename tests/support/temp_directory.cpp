#include <support/temp_directory.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace Torvo::test {

namespace {

namespace fs = std::filesystem;

// A directory that did not exist before.
fs::path MakeNew() {
    static std::atomic<unsigned> serial = 0;
    const fs::path parent = fs::canonical(fs::temp_directory_path());
    std::random_device random;
    for (;;) {
        fs::path made = parent / ("torvo" + std::to_string(random()) + "-" + std::to_string(++serial));
        if (fs::create_directory(made)) return made;
    }
}

// The form that the library shows: with a drive and backslashes.
wstring16 Shown(const fs::path& native) {
    const std::u16string text = native.u16string();
    wstring16 shown(text.begin(), text.end());
    std::replace(shown.begin(), shown.end(), wchar16{'/'}, wchar16{'\\'});
    return shown.front() == '\\' ? ZUTEXT("C:") + shown : shown;
}

void MakeWritable(const fs::path& path) {
    std::error_code ignored;
    fs::permissions(path, fs::perms::owner_write, fs::perm_options::add, ignored);
}

}  // namespace

TempDirectory::TempDirectory() : root(MakeNew()), path(Shown(root)) {}

TempDirectory::~TempDirectory() {
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(root, ignored)) {
        if (!entry.is_symlink()) MakeWritable(entry.path());
    }
    fs::remove_all(root, ignored);
}

fs::path TempDirectory::Native(const wstring16& name) const {
    std::u16string generic(name.begin(), name.end());
    std::replace(generic.begin(), generic.end(), u'\\', u'/');
    return root / fs::path(generic);
}

wstring16 TempDirectory::Write(const wstring16& name, std::string_view content) const {
    const fs::path file = Native(name);
    if (const std::size_t separator = name.find_last_of(ZUTEXT("\\/")); separator != wstring16::npos) {
        fs::create_directories(Native(name.substr(0, separator)));
    }
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    out.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!out.flush()) throw std::runtime_error("cannot write " + file.string());
    return Path(name);
}

wstring16 TempDirectory::MakeDirectory(const wstring16& name) const {
    fs::create_directories(Native(name));
    return Path(name);
}

std::string TempDirectory::Read(const wstring16& name) const {
    std::ifstream in(Native(name), std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + Native(name).string());
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

bool TempDirectory::Has(const wstring16& name) const {
    return fs::exists(fs::symlink_status(Native(name)));
}

void TempDirectory::Remove(const wstring16& name) const {
    fs::remove_all(Native(name));
}

void TempDirectory::SetReadOnly(const wstring16& name, bool readOnly) const {
    constexpr fs::perms write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(Native(name), readOnly ? write : fs::perms::owner_write,
                    readOnly ? fs::perm_options::remove : fs::perm_options::add);
}

}  // namespace Torvo::test
