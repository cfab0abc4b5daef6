// The service itself: how it is made and unmade, and what it answers about its budget.

#include <Utility/files.h>

#include <Utility/files/file_system_impl.h>
#include <Utility/files/handle_limit.h>
#include <Utility/frame/instance_data.h>
#include <Utility/memory_blocks.h>
#include <Utility/platform/platform.h>

#include <atomic>
#include <new>

namespace Torvo {

namespace {

std::atomic<bool> closeReadOnlyFiles{true};

}  // namespace

cFileSystemImpl::cFileSystemImpl(int budget, bool closing, FileRetryCallback callback)
    : maxFiles(budget), closeReadOnly(closing), retry(callback) {}

cFileSystemImpl::~cFileSystemImpl() {
    CloseAllIdle();
    for (int32 index = 0; index < tableSize; ++index) {
        FileEntry& entry = table[index];
        if (!entry.IsInUse()) continue;
        DropStorage(entry);
        ffree_(&entry.buffer);
        delete entry.name;
    }
    platform::free(table);
    for (wchar16* path : appDataPaths) platform::free(path);
}

int cFileSystemImpl::GetMaxFileCount() {
    return maxFiles;
}

long32 cFileSystemImpl::GetFileAccessRetryTime() {
    return retryTime;
}

void cFileSystemImpl::SetFileAccessRetryTime(long32 hundredths) {
    retryTime = hundredths;
}

cFileSystem* cFileSystem::Create(int maxFiles, bool closeReadOnly, FileRetryCallback retry) {
    return new (std::nothrow) cFileSystemImpl(maxFiles, closeReadOnly, retry);
}

cFileSystem* cFileSystem::Create() {
    return Create(FileBudget(), GetCloseReadOnlyFiles(), DefaultRetry);
}

cFileSystem* cFileSystem::Instance() {
    return ServiceInstance<cFileSystem, ServiceKey::FileSystem>();
}

bool cFileSystem::Instance(cFileSystem* service) {
    return SetServiceInstance<cFileSystem, ServiceKey::FileSystem>(service);
}

void cFileSystem::SetCloseReadOnlyFiles(bool closeReadOnly) {
    closeReadOnlyFiles = closeReadOnly;
}

bool cFileSystem::GetCloseReadOnlyFiles() {
    return closeReadOnlyFiles;
}

int GetMaxFileCount() {
    return cFileSystem::Instance()->GetMaxFileCount();
}

long32 GetFileAccessRetryTime() {
    return cFileSystem::Instance()->GetFileAccessRetryTime();
}

void SetFileAccessRetryTime(long32 hundredths) {
    cFileSystem::Instance()->SetFileAccessRetryTime(hundredths);
}

void SetCloseReadOnlyFiles(bool closeReadOnly) {
    cFileSystem::SetCloseReadOnlyFiles(closeReadOnly);
}

}  // namespace Torvo
