// The modules that the process knows by a handle.
#pragma once

#include <Utility/platform/posix/resource_image.h>
#include <Utility/platform/types.h>

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Torvo {

struct HINSTANCE_ {
    std::string path;                                // absolute, native; never changes
    std::unique_ptr<platform::ResourceImage> image;  // null for code, and while a resource library is not loaded
    int references = 0;                              // those that LoadLibraryW gave out
};

namespace platform {

// The modules that a handle was ever given out for. A handle is the address of a record in a list that only grows: one
// that was freed once too often is recognised, and a file that is loaded again gets the handle that it had. A record of
// code holds no reference of the dynamic loader beyond those that LoadLibraryW took, since a look-up must not keep a
// module in the process.
//
// The mutex is never held while the dynamic loader is called: the loader has a lock of its own and runs foreign code
// under it, which may call here.
class ModuleTable {
public:
    HINSTANCE RecordOf(const std::string& path) {
        const std::lock_guard lock(mutex);
        return FindOrAdd(path);
    }

    HINSTANCE AddReference(const std::string& path) {
        const std::lock_guard lock(mutex);
        const HINSTANCE record = FindOrAdd(path);
        ++record->references;
        return record;
    }

    // Adds a reference to a resource library that is loaded; null if it is not.
    HINSTANCE AddImageReference(const std::string& path) {
        const std::lock_guard lock(mutex);
        const HINSTANCE record = FindOrAdd(path);
        if (record->image == nullptr) return nullptr;
        ++record->references;
        return record;
    }

    HINSTANCE AddImage(const std::string& path, std::unique_ptr<ResourceImage> image) {
        const std::lock_guard lock(mutex);
        const HINSTANCE record = FindOrAdd(path);
        if (record->image == nullptr) record->image = std::move(image);
        ++record->references;
        return record;
    }

    enum class Released { None, Code, Image };
    Released ReleaseReference(HINSTANCE module) {
        const std::lock_guard lock(mutex);
        if (!IsKnown(module) || module->references == 0) return Released::None;
        --module->references;
        if (module->image == nullptr) return Released::Code;
        if (module->references == 0) module->image.reset();
        return Released::Image;
    }

    // The path of a module; nothing for what is no handle.
    std::optional<std::string> PathOf(HINSTANCE module) {
        const std::lock_guard lock(mutex);
        return IsKnown(module) ? std::optional(module->path) : std::nullopt;
    }

    // The loaded resource library for which `matches` is true of its path.
    template <typename Predicate>
    HINSTANCE FindImage(Predicate matches) {
        const std::lock_guard lock(mutex);
        for (const auto& record : records) {
            if (record->image != nullptr && matches(record->path)) return record.get();
        }
        return nullptr;
    }

    // Calls `use` with the image of a module, if it is a loaded resource library; whether it did.
    template <typename Use>
    bool WithImage(HINSTANCE module, Use use) {
        const std::lock_guard lock(mutex);
        if (!IsKnown(module) || module->image == nullptr) return false;
        use(*module->image);
        return true;
    }

private:
    bool IsKnown(HINSTANCE module) const {
        return std::any_of(records.begin(), records.end(), [&](const auto& record) { return record.get() == module; });
    }

    HINSTANCE FindOrAdd(const std::string& path) {
        for (const auto& record : records) {
            if (record->path == path) return record.get();
        }
        records.push_back(std::make_unique<HINSTANCE_>());
        records.back()->path = path;
        return records.back().get();
    }

    std::mutex mutex;
    std::vector<std::unique_ptr<HINSTANCE_>> records;
};

}  // namespace platform
}  // namespace Torvo
