#include <Utility/errors/resources.h>

#include <Utility/bounded_copy.h>
#include <Utility/frame/instance_data.h>
#include <Utility/frame/system_version.h>
#include <Utility/platform/platform.h>
#include <Utility/resources.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <new>
#include <string_view>

namespace Torvo {

namespace {

constexpr uint64 BufferCount = 10;

class cStringResourceBuffersImpl final : public cStringResourceBuffers {
public:
    // What the constructor may throw; at present nothing in it fails.
    enum eCreateError { OutOfMemory = 1 };

    wchar16* GetNextBuffer() override {
        index = (index + 1) % BufferCount;
        return buffers[index];
    }

private:
    wchar16 buffers[BufferCount][ResourceTextSize] = {};
    uint64 index = 0;
};

// The texts that the library must be able to show even without any resource.
const wchar16* BuiltInText(int id) {
    switch (id) {
        case 58:
            return ZUTEXT("Internal Error: %u");
        case 59:
            return ZUTEXT("System Error");
        case 60:
            return ZUTEXT(
                "Program cannot run because required resource was not found.  Executable file may be damaged.");
        default:
            return nullptr;
    }
}

// "The string resource (<id>) could not be accessed.", written unit by unit, since a look-up allocates nothing.
void WriteMissingText(int id, wchar16* buffer) {
    std::array<char, 12> digits{};
    const auto digitsEnd = std::to_chars(digits.begin(), digits.end(), id).ptr;
    const std::basic_string_view<wchar16> before = ZUTEXT("The string resource (");
    const std::basic_string_view<wchar16> after = ZUTEXT(") could not be accessed.");
    buffer = std::copy(before.begin(), before.end(), buffer);
    buffer = std::copy(digits.begin(), digitsEnd, buffer);
    buffer = std::copy(after.begin(), after.end(), buffer);
    *buffer = 0;
}

}  // namespace

wchar16* cStringResource::GetNextBuffer() const {
    return cStringResourceBuffers::Instance()->GetNextBuffer();
}

wchar16* cStringResource::operator[](int id) const {
    wchar16* const buffer = GetNextBuffer();
    if (FindString(id, buffer)) return buffer;
    if (const wchar16* const text = BuiltInText(id)) return strcpyn(buffer, text, ResourceTextSize);
    WriteMissingText(id, buffer);
    return buffer;
}

cStringTable::cStringTable() : table(nullptr) {}

cStringTable::cStringTable(sStringTable* rows) : table(rows) {}

cStringTable::cStringTable(const cStringTable& other) = default;

bool cStringTable::FindString(int id, wchar16* buffer) const {
    if (table == nullptr) return false;
    for (const sStringTable* row = table; row->id != 0; ++row) {
        if (row->id != id) continue;
        if (row->text == nullptr) return false;
        strcpyn(buffer, row->text, ResourceTextSize);
        return true;
    }
    return false;
}

cResourceDLL::cResourceDLL() : path{}, module(nullptr) {}

cResourceDLL::cResourceDLL(HINSTANCE const& loaded) : path{}, module(loaded) {}

cResourceDLL::cResourceDLL(const wchar16* name) : path{}, module(nullptr) {
    SetResource(name);
}

cResourceDLL::cResourceDLL(const cResourceDLL& other) = default;

cResourceDLL::~cResourceDLL() {
    if (module != nullptr && !bIsWIN95()) platform::FreeLibrary(module);
}

void cResourceDLL::SetResource(const wchar16* name) {
    if (name == nullptr) throw NullName;
    // A name that was cut would be the name of another file.
    strcpyn(path, platform::wcslen(name) < std::size(path) ? name : ZUTEXT(""), std::size(path));
}

HINSTANCE cResourceDLL::GetResource() const {
    if (module == nullptr) module = platform::LoadLibraryW(path);
    return module;
}

bool cResourceDLL::FindString(int id, wchar16* buffer) const {
    const HINSTANCE resource = GetResource();
    if (resource == nullptr) return false;
    return platform::LoadStringW(resource, static_cast<uint32>(id), buffer, static_cast<int>(ResourceTextSize)) > 0;
}

// The one system on which a module must stay loaded for good.
bool cResourceDLL::bIsWIN95() {
    return SystemIsWorkstation() && SystemIsAtLeast(4, 0) && !SystemIsAtLeast(4, 10);
}

cStringResourceBuffers* cStringResourceBuffers::Create() {
    try {
        return new (std::nothrow) cStringResourceBuffersImpl;
    } catch (cStringResourceBuffersImpl::eCreateError) {
        return nullptr;
    }
}

cStringResourceBuffers* cStringResourceBuffers::Instance() {
    return ServiceInstance<cStringResourceBuffers, ServiceKey::StringResourceBuffers>();
}

bool cStringResourceBuffers::Instance(cStringResourceBuffers* service) {
    return SetServiceInstance<cStringResourceBuffers, ServiceKey::StringResourceBuffers>(service);
}

}  // namespace Torvo
