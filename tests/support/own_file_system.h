// A file system of a test's own in the place of the instance's, for as long as an object lives.
#pragma once

#include <Utility/files.h>

#include <memory>

namespace Torvo::test {

class OwnFileSystem {
public:
    OwnFileSystem() : own(cFileSystem::Create()), former(cFileSystem::Instance()) { cFileSystem::Instance(own.get()); }
    ~OwnFileSystem() { cFileSystem::Instance(former); }
    OwnFileSystem(const OwnFileSystem&) = delete;
    OwnFileSystem& operator=(const OwnFileSystem&) = delete;
    cFileSystem* operator->() const { return own.get(); }

private:
    const std::unique_ptr<cFileSystem> own;
    cFileSystem* const former;
};

}  // namespace Torvo::test
