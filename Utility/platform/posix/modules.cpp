#include <Utility/platform/modules.h>

#include <Utility/platform/host.h>
#include <Utility/platform/posix/module_table.h>
#include <Utility/platform/posix/native_path.h>
#include <Utility/platform/threads.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace Torvo::platform {

namespace {

constexpr off_t LargestResourceFile = off_t{256} << 20;

constinit ModuleTable modules;
std::atomic<uint32> errorMode = 0;

std::string AbsolutePath(const std::string& path) {
    std::array<char, PATH_MAX> resolved;
    return realpath(path.c_str(), resolved.data()) != nullptr ? resolved.data() : std::string();
}

std::string ProgramPath() {
    return AbsolutePath("/proc/self/exe");
}

std::string_view BaseName(std::string_view path) {
    return path.substr(path.rfind('/') + 1);
}

std::string DirectoryOf(std::string_view path) {
    return std::string(path.substr(0, path.rfind('/') + 1));
}

bool HasDirectory(std::string_view path) {
    return path.find('/') != std::string_view::npos;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && strncasecmp(a.data(), b.data(), a.size()) == 0;
}

// The native form of a module's name, with the extension that a name without one gets.
std::optional<std::string> ModulePath(const wchar16* name) {
    std::optional<std::string> path = NativePath(name);
    if (!path || path->empty()) return std::nullopt;
    const std::string_view base = BaseName(*path);
    if (base.find('.') == std::string_view::npos) {
        *path += ".dll";
    } else if (base.back() == '.') {
        path->pop_back();
    }
    return path;
}

// The name under which this system keeps the code of a module: `dir/libdbinfo.so` for `dir/dbinfo.dll`.
std::string CodePath(const std::string& path) {
    const std::string_view base = BaseName(path);
    constexpr std::string_view extension = ".dll";
    if (base.size() <= extension.size() || !EqualIgnoringCase(base.substr(base.size() - extension.size()), extension)) {
        return path;
    }
    return DirectoryOf(path) + "lib" + std::string(base.substr(0, base.size() - extension.size())) + ".so";
}

// The names under which the dynamic loader knows what is in the process.
std::vector<std::string> LoadedCodeNames() {
    struct Names {
        std::vector<std::string> list;
        bool complete = true;
    } names;
    // The loader calls this through C, where no exception may pass.
    const auto add = [](dl_phdr_info* info, std::size_t, void* argument) noexcept {
        Names& found = *static_cast<Names*>(argument);
        try {
            if (info->dlpi_name != nullptr && info->dlpi_name[0] != 0) found.list.emplace_back(info->dlpi_name);
        } catch (const std::bad_alloc&) {
            found.complete = false;
        }
        return found.complete ? 0 : 1;
    };
    dl_iterate_phdr(add, &names);
    if (!names.complete) throw std::bad_alloc();
    return std::move(names.list);
}

// Whether a file name is the wanted one, case aside, alone or with a version behind it: `libdbinfo.so.1.2`.
bool IsCodeName(std::string_view file, std::string_view wanted) {
    if (file.size() < wanted.size() || !EqualIgnoringCase(file.substr(0, wanted.size()), wanted)) return false;
    const std::string_view version = file.substr(wanted.size());
    return version.empty() ||
           (version.front() == '.' && version.find_first_not_of(".0123456789") == std::string_view::npos);
}

// The absolute path of a loaded module of code by its path or its bare name; empty if there is none.
std::string FindLoadedCode(const std::string& path) {
    const std::string absolute = HasDirectory(path) ? AbsolutePath(path) : std::string();
    if (HasDirectory(path) && absolute.empty()) return {};
    for (const std::string& name : LoadedCodeNames()) {
        const bool same = absolute.empty() ? IsCodeName(BaseName(name), path) : AbsolutePath(name) == absolute;
        if (same) return AbsolutePath(name);
    }
    return {};
}

HINSTANCE FindLoadedImage(const std::string& path) {
    const std::string absolute = HasDirectory(path) ? AbsolutePath(path) : std::string();
    return modules.FindImage([&](const std::string& loaded) {
        return HasDirectory(path) ? loaded == absolute : EqualIgnoringCase(BaseName(loaded), path);
    });
}

// A descriptor that is closed again, whatever is thrown meanwhile.
class OpenFile {
public:
    explicit OpenFile(const std::string& path) : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~OpenFile() {
        if (descriptor >= 0) close(descriptor);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    const int descriptor;
};

// The content of a Windows resource library; nothing if the file is not one or cannot be read.
std::optional<std::vector<uint8>> ReadImage(const std::string& path) {
    const OpenFile opened(path);
    const int file = opened.descriptor;
    if (file < 0) return std::nullopt;
    std::optional<std::vector<uint8>> content;
    struct stat status;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= LargestResourceFile) {
        content.emplace(static_cast<std::size_t>(status.st_size));
        std::size_t have = 0;
        while (have < content->size()) {
            const ssize_t got = read(file, content->data() + have, content->size() - have);
            if (got < 0 && errno == EINTR) continue;
            if (got <= 0) break;
            have += static_cast<std::size_t>(got);
        }
        content->resize(have);
        if (!ResourceImage::HasSignature(*content)) content.reset();
    }
    return content;
}

HINSTANCE LoadImage(const std::string& path) {
    const std::string absolute = AbsolutePath(path);
    if (absolute.empty()) return nullptr;
    if (const HINSTANCE loaded = modules.AddImageReference(absolute)) return loaded;
    auto content = ReadImage(absolute);
    if (!content) return nullptr;
    auto image = std::make_unique<ResourceImage>(std::move(*content));
    return image->IsWhole() ? modules.AddImage(absolute, std::move(image)) : nullptr;
}

// A path is made absolute first: the loader remembers the one it was given, and the current directory may change.
HINSTANCE LoadCode(const std::string& path) {
    const std::string absolute = HasDirectory(path) ? AbsolutePath(path) : path;
    if (absolute.empty()) return nullptr;
    void* const code = dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (code == nullptr) return nullptr;
    link_map* map = nullptr;
    if (dlinfo(code, RTLD_DI_LINKMAP, &map) != 0) {
        dlclose(code);
        return nullptr;
    }
    try {
        return modules.AddReference(AbsolutePath(map->l_name));
    } catch (...) {
        dlclose(code);
        throw;
    }
}

// A name without a directory is looked for beside the program, then where the system looks for code, then in the
// current directory.
HINSTANCE LoadModule(const std::string& path) {
    const std::string code = CodePath(path);
    if (HasDirectory(path)) {
        const HINSTANCE image = LoadImage(path);
        return image != nullptr ? image : LoadCode(code);
    }
    const std::string programDirectory = DirectoryOf(ProgramPath());
    if (const HINSTANCE image = LoadImage(programDirectory + path)) return image;
    if (const HINSTANCE module = LoadCode(programDirectory + code)) return module;
    if (const HINSTANCE module = LoadCode(code)) return module;
    if (const HINSTANCE image = LoadImage("./" + path)) return image;
    return LoadCode("./" + code);
}

// A reference of the dynamic loader to a module that is loaded, for as long as the object lives.
class LoadedCode {
public:
    explicit LoadedCode(const std::string& path)
        : handle(path == ProgramPath() ? dlopen(nullptr, RTLD_LAZY) : dlopen(path.c_str(), RTLD_LAZY | RTLD_NOLOAD)) {}
    ~LoadedCode() {
        if (handle != nullptr) dlclose(handle);
    }
    LoadedCode(const LoadedCode&) = delete;
    LoadedCode& operator=(const LoadedCode&) = delete;

    // A symbol of the module itself: the loader's search goes on into what the module depends on.
    void* Symbol(const char* name) const {
        void* const symbol = handle != nullptr ? dlsym(handle, name) : nullptr;
        if (symbol == nullptr) return nullptr;
        link_map* wanted = nullptr;
        void* found = nullptr;
        Dl_info info;
        const bool known =
            dlinfo(handle, RTLD_DI_LINKMAP, &wanted) == 0 && dladdr1(symbol, &info, &found, RTLD_DL_LINKMAP) != 0;
        return known && found == wanted ? symbol : nullptr;
    }
    // Gives back one of the references that loading took.
    void Release() const {
        if (handle != nullptr) dlclose(handle);
    }

private:
    void* const handle;
};

HINSTANCE Failed(uint32 error) {
    SetLastError(error);
    return nullptr;
}

HINSTANCE FindModule(const wchar16* name) {
    if (name == nullptr) return modules.RecordOf(ProgramPath());
    const auto path = ModulePath(name);
    if (!path) return nullptr;
    std::string code = FindLoadedCode(CodePath(*path));
    if (code.empty() && EqualIgnoringCase(BaseName(ProgramPath()), *path)) code = ProgramPath();
    return code.empty() ? FindLoadedImage(*path) : modules.RecordOf(code);
}

HINSTANCE FindModuleAt(const void* address) {
    Dl_info info;
    if (dladdr(address, &info) == 0) return nullptr;
    const std::string path = AbsolutePath(info.dli_fname);
    return modules.RecordOf(path.empty() ? ProgramPath() : path);
}

// Runs a body that may find memory short.
template <typename Body>
auto WithoutThrowing(Body body) -> decltype(body()) {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return {};
    }
}

}  // namespace

HINSTANCE GetModuleHandleW(const wchar16* name) {
    return WithoutThrowing([&] {
        const HINSTANCE module = FindModule(name);
        return module != nullptr ? module : Failed(ERROR_MOD_NOT_FOUND);
    });
}

bool GetModuleHandleExW(uint32 flags, const wchar16* name, HINSTANCE* module) {
    *module = WithoutThrowing([&] {
        const HINSTANCE found = (flags & HandleFromAddress) != 0 ? FindModuleAt(name) : FindModule(name);
        return found != nullptr ? found : Failed(ERROR_MOD_NOT_FOUND);
    });
    return *module != nullptr;
}

void* GetProcAddress(HINSTANCE module, const char* name) {
    return WithoutThrowing([&]() -> void* {
        const auto path = modules.PathOf(module);
        void* const symbol = path ? LoadedCode(*path).Symbol(name) : nullptr;
        if (symbol == nullptr) SetLastError(ERROR_PROC_NOT_FOUND);
        return symbol;
    });
}

uint32 GetModuleFileNameW(HINSTANCE module, wchar16* buffer, uint32 size) {
    return WithoutThrowing([&]() -> uint32 {
        const auto path = module == nullptr ? ProgramPath() : modules.PathOf(module);
        if (!path) {
            SetLastError(ERROR_MOD_NOT_FOUND);
            return 0;
        }
        const wstring16 name = ShownPath(*path);
        if (name.size() < size) {
            std::copy_n(name.c_str(), name.size() + 1, buffer);
            return static_cast<uint32>(name.size());
        }
        if (size > 0) {
            std::copy_n(name.data(), size - 1, buffer);
            buffer[size - 1] = 0;
        }
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return size;
    });
}

HINSTANCE LoadLibraryW(const wchar16* name) {
    return LoadLibraryExW(name, nullptr, 0);
}

// Where the dependencies of a module of code are searched for is written in the module itself, so the flags change
// nothing.
HINSTANCE LoadLibraryExW(const wchar16* name, void* /*reserved*/, uint32 /*flags*/) {
    if (name == nullptr) return Failed(ERROR_INVALID_PARAMETER);
    return WithoutThrowing([&] {
        const auto path = ModulePath(name);
        const HINSTANCE module = path ? LoadModule(*path) : nullptr;
        return module != nullptr ? module : Failed(ERROR_MOD_NOT_FOUND);
    });
}

bool FreeLibrary(HINSTANCE module) {
    return WithoutThrowing([&] {
        const auto path = modules.PathOf(module);
        switch (modules.ReleaseReference(module)) {
            case ModuleTable::Released::Image:
                return true;
            case ModuleTable::Released::Code:
                LoadedCode(*path).Release();
                return true;
            default:
                SetLastError(ERROR_INVALID_HANDLE);
                return false;
        }
    });
}

// This system never shows a message of its own.
uint32 SetErrorMode(uint32 mode) {
    return errorMode.exchange(mode);
}

int LoadStringW(HINSTANCE module, uint32 id, wchar16* buffer, int size) {
    if (buffer == nullptr || size < 1) return 0;
    buffer[0] = 0;
    int length = 0;
    const bool hasImage = modules.WithImage(module, [&](const ResourceImage& image) {
        const ResourceImage::String found = image.Find(static_cast<uint16>(id), GetThreadLocale());
        length = static_cast<int>(std::min(found.length, static_cast<std::size_t>(size) - 1));
        for (int i = 0; i < length; ++i) {
            buffer[i] = static_cast<wchar16>(found.units[2 * i] | found.units[2 * i + 1] << 8);
        }
        buffer[length] = 0;
    });
    if (!hasImage) SetLastError(ERROR_RESOURCE_TYPE_NOT_FOUND);
    if (hasImage && length == 0) SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
    return length;
}

}  // namespace Torvo::platform
