#include <Utility/files/file_cache.h>
#include <Utility/frame/instance_data.h>

#include <new>

namespace Torvo {

cFileCache* cFileCache::Create(int blocks, long32 blockSize) {
    try {
        return new (std::nothrow) FileCacheImpl(blocks, blockSize, RegisteredBlockFiles());
    } catch (FileCacheImpl::eCreateError) {
        return nullptr;
    }
}

cFileCache* cFileCache::Instance() {
    return ServiceInstance<cFileCache, ServiceKey::FileCache>();
}

bool cFileCache::Instance(cFileCache* service) {
    return SetServiceInstance<cFileCache, ServiceKey::FileCache>(service);
}

}  // namespace Torvo
