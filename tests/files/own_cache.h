// A block cache of a test's own in place of the instance's, so small that the rare ways are the common ones.
#pragma once

#include <Utility/file_cache.h>

#include <memory>

namespace Torvo::test {

class OwnCache {
public:
    OwnCache(int blocks, long32 blockSize)
        : cache(cFileCache::Create(blocks, blockSize)), former(cFileCache::Instance()) {
        cFileCache::Instance(cache.get());
    }
    ~OwnCache() { cFileCache::Instance(former); }
    OwnCache(const OwnCache&) = delete;
    OwnCache& operator=(const OwnCache&) = delete;

    cFileCache* operator->() const { return cache.get(); }

private:
    std::unique_ptr<cFileCache> cache;
    cFileCache* former;
};

}  // namespace Torvo::test
