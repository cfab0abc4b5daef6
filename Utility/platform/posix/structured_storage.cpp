// Compound files through libgsf. The file is read as a whole when it is opened: what is in memory cannot change under
// the reader, and nothing but the calls of the file family touches the disk. The descriptor stays open all the same,
// since it is what keeps others from writing meanwhile.

#include <Utility/platform/structured_storage.h>

#include <Utility/platform/files.h>
#include <Utility/platform/runtime.h>
#include <Utility/platform/text.h>
#include <gsf/gsf-infile-impl.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-infile.h>
#include <gsf/gsf-input-memory.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

namespace Torvo::platform {

namespace {

constexpr unsigned char kSignature[8] = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

struct Unreference {
    void operator()(void* object) const { g_object_unref(object); }
};
using InputPointer = std::unique_ptr<GsfInput, Unreference>;
using InfilePointer = std::unique_ptr<GsfInfile, Unreference>;

struct FreeBytes {
    void operator()(guint8* bytes) const { g_free(bytes); }
};
using Bytes = std::unique_ptr<guint8, FreeBytes>;

long32 ResultOf(int error) {
    switch (error) {
        case ENOENT:
            return StorageFileNotFound;
        case EMFILE:
        case ENFILE:
            return StorageTooManyOpenFiles;
        case EACCES:
            return StorageAccessDenied;
        case ENOMEM:
            return StorageOutOfMemory;
        default:
            return StorageReadFault;
    }
}

// A descriptor that is closed again.
class OpenFile {
public:
    OpenFile(const wchar16* path, int share)
        : error(_wsopen_dispatch(path, OpenReadOnly | OpenBinary, share, 0, &descriptor, 0)) {}
    OpenFile(OpenFile&& other) noexcept
        : descriptor(std::exchange(other.descriptor, -1)), error(std::exchange(other.error, 0)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() {
        if (descriptor != -1) _close(descriptor);
    }

    int Descriptor() const { return descriptor; }
    // 0, or why there is no descriptor.
    int Error() const { return error; }

private:
    int descriptor = -1;
    int error;
};

// The whole content of a file; null with a result other than StorageOk.
Bytes ReadWhole(int descriptor, std::size_t* size, long32* result) {
    const int64 length = _lseeki64(descriptor, 0, SEEK_END);
    if (length < 0 || _lseeki64(descriptor, 0, SEEK_SET) != 0) {
        *result = StorageReadFault;
        return nullptr;
    }
    Bytes bytes(static_cast<guint8*>(g_try_malloc(static_cast<gsize>(std::max<int64>(length, 1)))));
    if (bytes == nullptr) {
        *result = StorageOutOfMemory;
        return nullptr;
    }
    *size = 0;
    while (*size < static_cast<std::size_t>(length)) {
        const std::size_t left = static_cast<std::size_t>(length) - *size;
        const int got =
            _read(descriptor, bytes.get() + *size, static_cast<uint32>(std::min<std::size_t>(left, 1 << 30)));
        if (got < 0) {
            *result = StorageReadFault;
            return nullptr;
        }
        if (got == 0) break;
        *size += static_cast<std::size_t>(got);
    }
    *result = StorageOk;
    return bytes;
}

bool HasSignature(const guint8* bytes, std::size_t size) {
    return size >= sizeof kSignature && std::memcmp(bytes, kSignature, sizeof kSignature) == 0;
}

// Damage in a file is told by the results. The reader would also print it, which a library does not.
void PrintNothing(const gchar* /*domain*/, GLogLevelFlags /*level*/, const gchar* /*message*/, gpointer /*unused*/) {}

void SilenceReader() {
    static const guint handler = g_log_set_handler(
        "libgsf:msole", static_cast<GLogLevelFlags>(G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING | G_LOG_LEVEL_MESSAGE),
        PrintNothing, nullptr);
    static_cast<void>(handler);
}

bool SameName(const wchar16* name, const char* utf8) {
    wchar16 other[32] = {};  // names have 31 units at most
    if (utf8 == nullptr || MultiByteToWideChar(CP_UTF8, 0, utf8, -1, other, 32) == 0) return false;
    const wchar16* unit = other;
    for (; *name != 0 && CharUpperW(*name) == CharUpperW(*unit); ++name) ++unit;
    return *name == 0 && *unit == 0;
}

}  // namespace

class Storage {
public:
    Storage(OpenFile opened, InfilePointer root) : file(std::move(opened)), infile(std::move(root)) {}

    // The stream of that name, or null. A storage inside the storage is none.
    InputPointer FindStream(const wchar16* name) const {
        const int count = gsf_infile_num_children(infile.get());
        for (int i = 0; i < count; ++i) {
            if (!SameName(name, gsf_infile_name_by_index(infile.get(), i))) continue;
            InputPointer child = OpenChild(i);
            const bool isStorage =
                child != nullptr && GSF_IS_INFILE(child.get()) && gsf_infile_num_children(GSF_INFILE(child.get())) >= 0;
            return isStorage ? nullptr : std::move(child);
        }
        return nullptr;
    }

private:
    // The class's own call: the public one prints what is wrong with the file.
    InputPointer OpenChild(int i) const {
        const GsfInfileClass* const classOfInfile =
            G_TYPE_INSTANCE_GET_CLASS(infile.get(), GSF_INFILE_TYPE, GsfInfileClass);
        GError* error = nullptr;
        GsfInput* const child = classOfInfile->child_by_index(infile.get(), i, &error);
        g_clear_error(&error);
        return InputPointer(child);
    }

    OpenFile file;  // held for its lock
    InfilePointer infile;
};

class StorageStream {
public:
    explicit StorageStream(InputPointer opened) : input(std::move(opened)) {}

    long32 ReadHere(void* buffer, uint32 count, uint32* got) {
        *got = 0;
        const int64 size = Size();
        if (position >= size || count == 0) return StorageOk;
        const auto part = static_cast<uint32>(std::min<int64>(count, size - position));
        if (gsf_input_seek(input.get(), position, G_SEEK_SET) != 0) return StorageReadFault;
        if (gsf_input_read(input.get(), part, static_cast<guint8*>(buffer)) == nullptr) return StorageReadFault;
        position += part;
        *got = part;
        return StorageOk;
    }

    long32 MoveTo(int64 offset, uint32 origin, uint64* reached) {
        if (origin > 2) return StorageInvalidFunction;
        const int64 from = origin == 0 ? 0 : origin == 1 ? position : Size();
        int64 target = 0;
        if (__builtin_add_overflow(from, offset, &target) || target < 0) return StorageInvalidFunction;
        position = target;
        *reached = static_cast<uint64>(position);
        return StorageOk;
    }

private:
    int64 Size() const { return gsf_input_size(input.get()); }

    InputPointer input;
    int64 position = 0;
};

long32 StgIsStorageFile(const wchar16* path) {
    const OpenFile file(path, ShareDenyWrite);
    if (file.Error() != 0) return ResultOf(file.Error());
    guint8 start[sizeof kSignature];
    const int got = _read(file.Descriptor(), start, sizeof start);
    if (got < 0) return StorageReadFault;
    return HasSignature(start, static_cast<std::size_t>(got)) ? StorageOk : StorageNotOne;
}

long32 StgOpenStorage(const wchar16* path, uint32 /*mode*/, Storage** storage) {
    *storage = nullptr;
    OpenFile file(path, ShareDenyWrite);
    if (file.Error() != 0) return ResultOf(file.Error());
    std::size_t size = 0;
    long32 result = StorageOk;
    Bytes bytes = ReadWhole(file.Descriptor(), &size, &result);
    if (bytes == nullptr) return result;
    if (!HasSignature(bytes.get(), size)) return StorageInvalidHeader;

    SilenceReader();
    const InputPointer input(gsf_input_memory_new(bytes.get(), static_cast<gsf_off_t>(size), TRUE));
    if (input == nullptr) return StorageOutOfMemory;
    static_cast<void>(bytes.release());  // the input's now
    InfilePointer infile(gsf_infile_msole_new(input.get(), nullptr));
    if (infile == nullptr) return StorageInvalidHeader;
    *storage = new (std::nothrow) Storage(std::move(file), std::move(infile));
    return *storage != nullptr ? StorageOk : StorageOutOfMemory;
}

long32 OpenStream(Storage* storage, const wchar16* name, uint32 /*mode*/, StorageStream** stream) {
    *stream = nullptr;
    InputPointer input = storage->FindStream(name);
    if (input == nullptr) return StorageFileNotFound;
    *stream = new (std::nothrow) StorageStream(std::move(input));
    return *stream != nullptr ? StorageOk : StorageOutOfMemory;
}

long32 Read(StorageStream* stream, void* buffer, uint32 count, uint32* got) {
    return stream->ReadHere(buffer, count, got);
}

long32 Seek(StorageStream* stream, int64 offset, uint32 origin, uint64* position) {
    return stream->MoveTo(offset, origin, position);
}

void Release(Storage* storage) {
    delete storage;
}

void Release(StorageStream* stream) {
    delete stream;
}

}  // namespace Torvo::platform
